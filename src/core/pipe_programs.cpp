#include "core/pipe_programs.h"

#include <algorithm>

#include "core/command_lookup.h"
#include "core/executable_type.h"
#include "core/invoked_name.h"
#include "core/path_search.h"
#include "core/pseudo_devices.h"
#include "core/redirection.h"
#include "engine/inifile.h"
#include "engine/results.h"
#include "engine/state.h"
#include "expand/lists.h"
#include "platform/file_facts.h"
#include "platform/process_line.h"
#include "platform/standard_handles.h"
#include "text/compare.h"
#include "text/path_names.h"
#include "text/words.h"

namespace {

// The pieces between the pipe signs. Nothing when a character asks for the shell: in quotes those that are
// expanded there too, outside also connectors, groups and input from elsewhere.
std::optional<std::vector<CString>> SplitPieces(std::u16string_view text, const Syntax& syntax)
{
    const char16_t anywhere[] = {u'%', u'`', u'!', u'\r', u'\n', syntax.escapeChar, u'\0'};
    const char16_t outside[] = {u'&', u'<', u'(', u')', u'@', u'[', u'{', syntax.commandSep, u'\0'};
    std::vector<CString> pieces(1);
    bool quoted = false;
    for (const char16_t unit : text) {
        if (std::u16string_view(anywhere).find(unit) != std::u16string_view::npos)
            return std::nullopt;
        if (!quoted && std::u16string_view(outside).find(unit) != std::u16string_view::npos)
            return std::nullopt;
        quoted = quoted != (unit == u'"');
        if (unit == u'|' && !quoted)
            pieces.emplace_back();
        else
            pieces.back() += unit;
    }
    if (quoted)
        return std::nullopt;
    return pieces;
}

// Whether the redirections of the last piece may be put in force here, and are not what the programs before
// it have.
bool AreRedirectionsPlain(const CString& piece, bool isLast, const Syntax& syntax)
{
    CString command(piece);
    std::vector<RedirectionRequest> requests;
    if (ParseRedirections(command, false, syntax, requests) != 0)
        return false;
    return requests.empty() ||
           (isLast && std::none_of(requests.begin(), requests.end(), [](const RedirectionRequest& request) {
                return PseudoDevice::Find(request.name) != nullptr;
            }));
}

std::optional<PipeProgram> ReadProgram(CString piece, const Syntax& syntax)
{
    piece.Trim();
    CString value;
    const CString name = GetNthArgument(piece, 0, syntax);
    if (name.empty() || FindInternalCommand(piece, true) >= 0 || GetAlias(name, value))
        return std::nullopt;
    InvokedName call = ReadInvokedName(piece, name, syntax);
    FoundProgram found;
    if (!SearchPaths(call.name, found) || !found.extraPaths.empty())
        return std::nullopt;
    const std::u16string_view extension = ExtensionPart(found.file);
    const int type = EqualNoCase(extension, u".exe") ? GetExeType(found.file) : program_type::notAProgram;
    if (type == program_type::notAProgram || program_type::IsWindowed(type))
        return std::nullopt;
    return PipeProgram{found.file, call.arguments};
}

unsigned Start(const PipeProgram& program, HANDLE input, ChildProcess& child)
{
    ProcessStart start;
    start.program = SystemPath(program.file);
    start.commandLine = ProcessLine(program.file, program.arguments);
    start.creation = CREATE_DEFAULT_ERROR_MODE;
    return StartReading(start, input, child);
}

// A program that another one reads from; `input` is what it reads itself, and becomes what the next one does.
unsigned StartBeforeAnother(const PipeProgram& program, OwnedHandle& input, ChildProcess& child)
{
    HANDLE readHandle = nullptr;
    HANDLE writeHandle = nullptr;
    SECURITY_ATTRIBUTES inheritable = {sizeof(SECURITY_ATTRIBUTES), nullptr, TRUE};
    if (!CreatePipe(&readHandle, &writeHandle, &inheritable, 0))
        return GetLastError();
    OwnedHandle next(readHandle);
    const OwnedHandle output(writeHandle);
    const HANDLE ownOutput = StandardHandle(1);
    SetStandardHandle(1, output.Get());
    const unsigned code = Start(program, input.Get(), child);
    SetStandardHandle(1, ownOutput);
    input = std::move(next);
    return code;
}

} // namespace

unsigned StartReading(const ProcessStart& start, HANDLE input, ChildProcess& child)
{
    // A child takes our standard handles, whatever they are at that moment.
    const HANDLE ownInput = StandardHandle(0);
    SetStandardHandle(0, input);
    const unsigned code = child.Start(start);
    SetStandardHandle(0, ownInput);
    return code;
}

std::optional<std::vector<PipeProgram>> ReadPipePrograms(const CString& text)
{
    // Files from elsewhere may have to be asked about.
    if (aIniFile.ZoneId != 0)
        return std::nullopt;
    const Syntax syntax = CurrentSyntax();
    const std::optional<std::vector<CString>> pieces = SplitPieces(text, syntax);
    if (!pieces)
        return std::nullopt;
    std::vector<PipeProgram> programs;
    for (const CString& piece : *pieces) {
        std::optional<PipeProgram> program;
        if (AreRedirectionsPlain(piece, &piece == &pieces->back(), syntax))
            program = ReadProgram(piece, syntax);
        if (!program)
            return std::nullopt;
        programs.push_back(*std::move(program));
    }
    return programs;
}

int StartPipePrograms(const std::vector<PipeProgram>& programs, OwnedHandle input,
                      std::vector<ChildProcess>& children)
{
    for (const PipeProgram& program : programs) {
        ChildProcess child;
        unsigned code = 0;
        if (&program != &programs.back()) {
            code = StartBeforeAnother(program, input, child);
        } else {
            PipeProgram last = program;
            RedirectionRecord redirections;
            if (const int failed = redirections.Apply(last.arguments, false, CurrentSyntax()))
                return failed;
            code = Start(last, input.Get(), child);
        }
        if (code != 0)
            return MVError(code, program.file);
        children.push_back(std::move(child));
    }
    return result::success;
}
