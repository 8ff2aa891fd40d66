#include "commands/except.h"

#include <vector>

#include <windows.h>

#include "commands/search_switches.h"
#include "core/command_lookup.h"
#include "core/command_switches.h"
#include "engine/command_entry.h"
#include "engine/expansion_entry.h"
#include "engine/output.h"
#include "engine/results.h"
#include "engine/state.h"
#include "expand/lists.h"
#include "files/excepted_files.h"
#include "files/file_search.h"
#include "files/hidden_files.h"
#include "lang/file_messages.h"
#include "text/words.h"

const CommandHelp exceptHelp = {
    u"Runs a command that does not see some files.",
    u"EXCEPT [range ...] [/A[:]attributes] [/H] [/S[levels]] (file ...) command\n"
    u"EXCEPT /R",
    u"/A  except files with attributes, as DIR /A tells\n"
    u"/H  hide the files from programs always\n"
    u"/R  make visible what an EXCEPT that was killed has left hidden\n"
    u"/S  the files in directories below as well; with a number, so many levels of them\n"
    u"The shell's own commands pass over the files, whatever their attributes, and the files are not "
    u"touched for that: nothing is copied or moved over them either, and MOVE and MOVEDIR leave them where "
    u"they are. When the command is a program, an alias, a batch file or a group, the files get the "
    u"attribute hidden until it has ended, is broken off or fails. Every EXCEPT also repairs what /R does, "
    u"and names the files. Names and ranges are those of DIR.",
    u"except (*.bak *.tmp) copy * d:\\backup\n"
    u"except /s (*.obj) dir /s\n"
    u"except /[d-1] (*) del /q *",
};

namespace {

// Whether nothing but a command of the shell's own will look for files.
bool StaysInside(const CString& command)
{
    const BUILTIN* row = nullptr;
    CString alias;
    const CString first = GetNthArgument(command, 0, CurrentSyntax());
    if (GetAlias(first, alias) || FindInternalCommand(command, false, &row) < 0 || !row)
        return false;
    constexpr unsigned runsOthers =
        command_flags::block | command_flags::keepGroup | command_flags::keepText | command_flags::wholeLine;
    constexpr std::u16string_view others[] = {u"CALL", u"START", u"GOSUB", u"LOADBTM", u"IF", u"EXEC"};
    for (const std::u16string_view name : others)
        if (EqualNoCase(row->name, name))
            return false;
    return (CommandFlags(*row) & runsOthers) == 0 && command.view().find_first_of(u"&|%`\n") == CString::npos;
}

// "(names) command" as its two parts.
bool Part(CString& arguments, CString& names)
{
    arguments.Trim();
    if (arguments.empty() || arguments.front() != u'(')
        return false;
    bool quoted = false;
    for (std::size_t at = 1; at < arguments.size(); ++at) {
        if (arguments[at] == u'"')
            quoted = !quoted;
        if (quoted || arguments[at] != u')')
            continue;
        names = arguments.Substr(1, at - 1);
        arguments.Erase(0, at + 1);
        arguments.Trim();
        return true;
    }
    return false;
}

// Lets the files be seen again however the block is left.
class Exception {
public:
    explicit Exception(std::shared_ptr<const ExceptedFiles> files) : before(Tls().exceptedFiles)
    {
        Tls().exceptedFiles = std::move(files);
    }
    Exception(const Exception&) = delete;
    Exception& operator=(const Exception&) = delete;
    ~Exception() { Tls().exceptedFiles = std::move(before); }

private:
    std::shared_ptr<const ExceptedFiles> before;
};

void Repair()
{
    RestoreHidden([](const CString& name) { PrintLine(LoadMessage(message::exceptRestored, name)); });
}

int Collect(FILESEARCH& search, const CString& names, std::vector<CString>& files)
{
    for (const CString& name : SplitArguments(names, true, CurrentSyntax())) {
        search.error = 0;
        for (bool found = FindFiles(search, name); found; found = FindFiles(search))
            files.push_back(search.fullName);
        if (search.error != 0)
            return MVError(search.error, search.failed);
    }
    return result::success;
}

int RunWithout(const std::vector<CString>& files, const CString& command, bool hidesAlways)
{
    auto excepted = std::make_shared<ExceptedFiles>();
    for (const CString& name : files)
        excepted->Add(name);
    // Those of an EXCEPT around this one stay unseen.
    if (const auto& outer = Tls().exceptedFiles)
        excepted->names.insert(outer->names.begin(), outer->names.end());
    const Exception exception(excepted);
    HiddenFiles hidden;
    CString failed;
    if (hidesAlways || !StaysInside(command)) {
        if (const unsigned code = hidden.Hide(files, failed))
            return Tls().errorLevel = MVError(code, failed);
    }
    int code = Command_S(command, 0);
    if (const unsigned reason = hidden.Restore(failed))
        code = Tls().errorLevel = MVError(reason, failed);
    return code;
}

struct ExceptRequest {
    std::vector<CString> files;
    bool hidesAlways = false;
    bool repairsOnly = false;
};

// Leaves the command. 0, or the result of an error that was reported.
int ReadRequest(CString& arguments, ExceptRequest& request)
{
    const std::size_t open = arguments.Find(u'(');
    CString switches = arguments.Substr(0, open);
    arguments.Erase(0, switches.size());
    if (const int code = VariableExpansion(switches))
        return code;
    FILESEARCH search;
    std::uint64_t flags = 0;
    int code = GetRange(switches, &search.ranges, 0);
    code = code ? code : TakeAttributeSwitches(switches, search.attributes);
    code = code ? code : TakeDepthSwitch(switches, search.deepest);
    code = code ? code : ReadSwitches(switches, u"HR", flags);
    if (code)
        return code;
    Repair();
    request.hidesAlways = (flags & 1) != 0;
    request.repairsOnly = (flags & 2) != 0;
    if (request.repairsOnly)
        return arguments.empty() ? result::success : UsageError();
    CString names;
    if (!switches.empty() || !Part(arguments, names) || arguments.empty())
        return UsageError();
    if (const int failed = VariableExpansion(names))
        return failed;
    return Collect(search, names, request.files);
}

} // namespace

int Except_Command(CString& arguments)
{
    ExceptRequest request;
    // The error level is the command's own, unless it does not run.
    if (const int code = ReadRequest(arguments, request); code != 0 || request.repairsOnly)
        return Tls().errorLevel = code;
    return RunWithout(request.files, arguments, request.hidesAlways);
}
