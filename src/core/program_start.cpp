#include "core/program_start.h"

#include "core/association_template.h"
#include "core/associations.h"
#include "core/executable_type.h"
#include "core/path_search.h"
#include "core/zone.h"
#include "engine/batch_entry.h"
#include "engine/break.h"
#include "engine/console_entry.h"
#include "engine/inifile.h"
#include "engine/output.h"
#include "engine/results.h"
#include "engine/state.h"
#include "lang/messages.h"
#include "platform/environment.h"
#include "platform/file_facts.h"
#include "platform/process.h"
#include "platform/process_line.h"
#include "platform/shell_open.h"
#include "platform/standard_handles.h"
#include "text/compare.h"
#include "text/format.h"
#include "text/path_names.h"

namespace {

// Puts folders in front of PATH while it lives.
class LongerPath {
public:
    explicit LongerPath(const CString& folders) : changed(!folders.empty())
    {
        if (!changed)
            return;
        existed = ReadEnvironment(u"PATH", before);
        WriteEnvironment(u"PATH", Format(u"%s;%s", folders, before));
    }
    LongerPath(const LongerPath&) = delete;
    LongerPath& operator=(const LongerPath&) = delete;
    ~LongerPath()
    {
        if (changed && existed)
            WriteEnvironment(u"PATH", before);
        else if (changed)
            RemoveEnvironment(u"PATH");
    }

private:
    bool changed;
    bool existed = false;
    CString before;
};

// Shows a child to the break handling for as long as it runs.
class RunningProcess {
public:
    explicit RunningProcess(HANDLE process) : place(FreePlace()) { *place = process; }
    RunningProcess(const RunningProcess&) = delete;
    RunningProcess& operator=(const RunningProcess&) = delete;
    ~RunningProcess() { *place = nullptr; }

private:
    static void** FreePlace()
    {
        TLS_VARIABLES& tls = Tls();
        return &tls.runningProcesses[tls.runningProcesses[0] ? 1 : 0];
    }

    void** place;
};

bool MustWait(bool windowed)
{
    return !windowed || Tls().Frame() || aIniFile.ExecWait || aGlobals.alwaysWait;
}

// A console program gets the same Ctrl+C as we do and may have its own use for it: its end is waited for, and
// then the break counts. A windowed one hears nothing of it, and waiting is what the user wants to break.
bool WaitForEnd(ChildProcess& child, bool windowed)
{
    const RunningProcess running(child.Get());
    const bool ended = child.Wait(windowed ? tty_yield : ThrowIfShellEnds);
    // In a pipe another program may be using the console.
    if (!windowed && IsConsole(0) && IsConsole(1))
        ConsoleANSI(); // programs leave consoles in any state
    ThrowIfBroken();
    return ended;
}

int Finish(ChildProcess& child, bool windowed, const CString& program)
{
    return MustWait(windowed) ? WaitForProgram(child, windowed, program) : Tls().errorLevel = result::success;
}

unsigned StartProgram(ChildProcess& child, const CString& program, const CString& commandLine)
{
    ProcessStart start;
    start.program = SystemPath(program);
    start.commandLine = commandLine;
    start.creation = CREATE_DEFAULT_ERROR_MODE;
    const unsigned code = child.Start(start);
    if (code == 0)
        Tls().childProcess = child.Id();
    return code;
}

// A document whose program runs in a console is run by that program directly: it then has our handles, is
// waited for, and has an exit code.
bool StartAssociated(ChildProcess& child, const CString& file, const CString& arguments)
{
    Association association;
    if (!MyFindExecutable(file, association) || association.needsShell)
        return false;
    const CString program =
        HasDirectory(association.program) ? association.program : SearchPaths(association.program);
    const int type = GetExeType(program);
    if (type == program_type::notAProgram || program_type::IsWindowed(type))
        return false;
    const CString line = FillAssociation(association.commandTemplate, file, arguments, CurrentDirectory());
    return StartProgram(child, program, line) == 0;
}

// What CreateProcess cannot start: a document, or a program that wants more rights.
int OpenDocument(const CString& file, const CString& arguments, unsigned reason)
{
    ChildProcess child;
    if (StartAssociated(child, file, arguments))
        return Finish(child, false, file);
    TLS_VARIABLES& tls = Tls();
    tls.errorLevel = static_cast<int>(reason);
    // What is too long for one way is too long for the other.
    if (reason == ERROR_FILENAME_EXCED_RANGE || OpenWithShell(file, arguments) != 0)
        return MVError(reason, file);
    return tls.errorLevel = result::success;
}

} // namespace

int External(const CString& program, const CString& arguments, const CString& extraPaths)
{
    CloseBatchFile();
    if (!IsZoneAccepted(program))
        return Tls().errorLevel = result::error;
    const int type = GetExeType(program);
    if (type == program_type::notAProgram && !EqualNoCase(ExtensionPart(program), u".exe"))
        return OpenDocument(program, arguments, ERROR_BAD_EXE_FORMAT);

    ChildProcess child;
    unsigned code = 0;
    {
        const LongerPath path(extraPaths);
        code = StartProgram(child, program, ProcessLine(program, arguments));
    }
    if (code != 0)
        return OpenDocument(program, arguments, code);
    return Finish(child, program_type::IsWindowed(type), program);
}

int WaitForProgram(ChildProcess& child, bool windowed, const CString& program)
{
    TLS_VARIABLES& tls = Tls();
    if (!WaitForEnd(child, windowed)) {
        const unsigned code = GetLastError();
        tls.errorLevel = static_cast<int>(code);
        return MVError(code, program);
    }
    const unsigned exitCode = child.ExitCode().value_or(0);
    tls.errorLevel = static_cast<int>(exitCode);
    return ResultOfExitCode(exitCode);
}

unsigned OpenWithShell(const CString& file, const CString& arguments)
{
    ShellOpen open;
    open.file = file;
    open.arguments = arguments;
    open.mayAsk = KindOfHandle(StandardHandle(0)) == HandleKind::Console;
    return OpenThroughShell(open);
}

int GotoURL(std::u16string_view url)
{
    const unsigned code = OpenWithShell(CString(url), {});
    if (code == 0)
        return Tls().errorLevel = result::success;
    Tls().errorLevel = static_cast<int>(code);
    return MVError(code, url);
}

bool IsZoneAccepted(const CString& program)
{
    if (aIniFile.ZoneId == 0 || ZoneOfFile(program) < static_cast<int>(aIniFile.ZoneId))
        return true;
    PrintError(LoadMessage(message::zoneWarning, program) + u"\r\n");
    return QueryInputChar(message::confirm, program, u"YN", u'N') == u'Y';
}
