#include "commands/start.h"

#include <utility>

#include <windows.h>

#include "commands/start_switches.h"
#include "core/command_lookup.h"
#include "core/executable_type.h"
#include "core/jobs.h"
#include "core/path_search.h"
#include "core/program_start.h"
#include "core/shell_line.h"
#include "engine/batch_entry.h"
#include "engine/expansion_entry.h"
#include "engine/results.h"
#include "engine/state.h"
#include "platform/file_facts.h"
#include "platform/process.h"
#include "platform/process_line.h"
#include "platform/shell_open.h"
#include "platform/standard_handles.h"
#include "platform/user_environment.h"
#include "text/compare.h"
#include "text/path_names.h"
#include "text/words.h"

const CommandHelp startHelp = {
    u"Starts a program, a document or a command in a new window.",
    u"START [\"title\"] [switches] [command]",
    u"/ABOVENORMAL /BELOWNORMAL /HIGH /LOW /NORMAL /REALTIME  priority of the new process\n"
    u"/AFFINITY mask    the processors that it may use, hexadecimal\n"
    u"/B                in this window\n"
    u"/C                a new shell ends with its command (so with /B)\n"
    u"/D directory      starts there\n"
    u"/I                with the environment of the log-on in place of the present one\n"
    u"/INV /MAX /MIN    window invisible, maximized, minimized\n"
    u"/K                a new shell stays when its command has ended (so without /B)\n"
    u"/L /LA /LD /LF /LH  a new shell has local lists: all, aliases, directories, functions, history\n"
    u"/NODE number      preferred memory node\n"
    u"/PGM \"program\"    the program, where its name must be quoted and there is no title\n"
    u"/POS=x,y[,width,height]  place of a new console window\n"
    u"/RUNAS            asks for administrator rights\n"
    u"/SEPARATE /SHARED  accepted and ignored\n"
    u"/SIZE=width,height  size of a new console window\n"
    u"/TAB              in a tab of the graphical host, where there is one\n"
    u"/WAIT             waits for the end; its exit code is the error level\n"
    u"A first argument in double quotes is always the title. Internal commands, aliases and batch files run "
    u"in a\n"
    u"new copy of the shell; without a command it is one that waits for input.",
    u"start notepad readme.txt\n"
    u"start \"build log\" /min /d c:\\work make.btm\n"
    u"start /wait /b setup.exe /quiet\n"
    u"start .",
};

namespace {

constexpr unsigned elevationRequired = 740; // ERROR_ELEVATION_REQUIRED, which not every SDK knows

// What is to be started, once the name has been looked up.
struct Target {
    CString program;   // of a process; "" when the Windows shell is to open `document`
    CString line;      // command line of the process
    CString document;  // file, folder or URL
    CString arguments; // of the program or document
    bool windowed = false;
};

unsigned CreationFlags(const StartSwitches& switches)
{
    unsigned flags = CREATE_DEFAULT_ERROR_MODE;
    if (!switches.sameConsole)
        flags |= CREATE_NEW_CONSOLE;
    else if (!switches.wait)
        flags |= CREATE_NEW_PROCESS_GROUP; // Ctrl+C is for us, not for what runs beside us
    switch (switches.priority) {
    case StartPriority::Inherited: break;
    case StartPriority::Low: flags |= IDLE_PRIORITY_CLASS; break;
    case StartPriority::BelowNormal: flags |= BELOW_NORMAL_PRIORITY_CLASS; break;
    case StartPriority::Normal: flags |= NORMAL_PRIORITY_CLASS; break;
    case StartPriority::AboveNormal: flags |= ABOVE_NORMAL_PRIORITY_CLASS; break;
    case StartPriority::High: flags |= HIGH_PRIORITY_CLASS; break;
    case StartPriority::Realtime: flags |= REALTIME_PRIORITY_CLASS; break;
    }
    return flags;
}

int ShowWindowOf(const StartSwitches& switches)
{
    switch (switches.window) {
    case StartWindow::Minimized: return SW_SHOWMINNOACTIVE;
    case StartWindow::Maximized: return SW_SHOWMAXIMIZED;
    case StartWindow::Invisible: return SW_HIDE;
    case StartWindow::Normal: break;
    }
    return SW_SHOWNORMAL;
}

void AimAtShell(Target& target, const StartSwitches& switches, std::u16string_view text)
{
    const bool ends =
        switches.shell == StartShell::Automatic ? switches.sameConsole : switches.shell == StartShell::Ends;
    target.program = aTexts.executable;
    target.line = ShellLine(target.program, switches.shellSwitches, ends ? u"/C" : u"/K", text);
    target.arguments = target.line.Substr(ProcessLine(target.program, {}).size());
}

bool IsBatchFile(std::u16string_view file)
{
    const std::u16string_view extension = ExtensionPart(file);
    return EqualNoCase(extension, u".btm") || EqualNoCase(extension, u".bat") ||
           EqualNoCase(extension, u".cmd");
}

void AimAtFile(Target& target, const CString& file, std::u16string_view arguments)
{
    const int type = GetExeType(file);
    target.arguments = CString(arguments).Trim();
    if (type == program_type::notAProgram) {
        target.document = file;
        return;
    }
    target.program = file;
    target.line = ProcessLine(file, arguments);
    target.windowed = program_type::IsWindowed(type);
}

// In the folder where the program is to start, then as usual.
CString FindProgram(const CString& name, const CString& directory)
{
    if (QueryIsURL(name))
        return CString();
    CString file;
    if (!directory.empty() && !IsAbsolutePath(name))
        file = SearchPaths(JoinPath(directory, name));
    return file.empty() ? SearchPaths(name) : file;
}

// Looks the command's name up as the shell itself would.
Target FindTarget(const StartSwitches& switches)
{
    Target target;
    const CString& command = switches.command;
    const Syntax syntax = CurrentSyntax();
    const bool named = !switches.program.empty();
    const Word word = NextWord(command, 0, syntax);
    const CString name = named ? switches.program : command.Substr(word.start, word.length);
    const std::u16string_view arguments = named ? command.view() : command.view().substr(word.end());
    const CString bare = WithoutQuotes(name);
    if (bare.empty() || (!named && (FindInternalCommand(command, false) >= 0 || command.front() == u'('))) {
        AimAtShell(target, switches, command);
        return target;
    }
    const CString file = FindProgram(bare, switches.directory);
    if (file.empty()) {
        target.document = bare;
        target.arguments = CString(arguments).Trim();
    } else if (IsBatchFile(file)) {
        CString text = AddQuotes(file);
        AimAtShell(target, switches, text.Append(named ? u" " : u"").Append(arguments));
    } else {
        AimAtFile(target, file, arguments);
    }
    return target;
}

WindowPlace PlaceOf(const StartSwitches& switches)
{
    WindowPlace place;
    if (switches.place)
        place.position = POINT{switches.place->x, switches.place->y};
    if (switches.place && switches.place->width > 0)
        place.size = SIZE{switches.place->width, switches.place->height};
    if (switches.size)
        place.size = SIZE{switches.size->width, switches.size->height};
    return place;
}

unsigned StartAsProcess(const Target& target, const StartSwitches& switches, ChildProcess& child)
{
    ProcessStart start;
    start.program = SystemPath(target.program);
    start.commandLine = target.line;
    start.directory = switches.directory;
    start.title = switches.title;
    start.creation = CreationFlags(switches);
    start.showWindow = switches.window == StartWindow::Normal ? -1 : ShowWindowOf(switches);
    start.window = PlaceOf(switches);
    start.affinity = switches.affinity;
    start.node = switches.node;
    if (switches.originalEnvironment)
        start.environment = LogOnEnvironment();
    return child.Start(start);
}

unsigned StartThroughShell(const Target& target, const StartSwitches& switches, ChildProcess& child)
{
    ShellOpen open;
    open.file = target.document.empty() ? target.program : target.document;
    open.arguments = target.arguments;
    open.directory = switches.directory;
    open.showWindow = ShowWindowOf(switches);
    open.mayAsk = KindOfHandle(StandardHandle(0)) == HandleKind::Console;
    if (switches.elevated)
        open.verb = u"runas";
    OwnedHandle process;
    const unsigned code = OpenThroughShell(open, &process);
    child = ChildProcess(process.Release());
    return code;
}

int StartTarget(const Target& target, const StartSwitches& switches)
{
    const CString& shown = target.document.empty() ? target.program : target.document;
    if (!target.program.empty() && !IsZoneAccepted(target.program))
        return result::error;
    CloseBatchFile();
    ChildProcess child;
    bool direct = !target.program.empty() && !switches.elevated;
    unsigned code =
        direct ? StartAsProcess(target, switches, child) : StartThroughShell(target, switches, child);
    if (direct && code == elevationRequired) {
        direct = false;
        code = StartThroughShell(target, switches, child);
    }
    if (code != 0)
        return MVError(code, shown);
    Tls().startedProcess = Tls().childProcess = child.Id();
    if (!switches.wait)
        NoteJob(child, switches.command.empty() ? shown : switches.command);
    if (!switches.wait || !child)
        return result::success;
    const bool hearsBreaks = direct && switches.sameConsole && !target.windowed;
    return WaitForProgram(child, !hearsBreaks, shown);
}

} // namespace

int Start_Command(CString& arguments)
{
    const Syntax syntax = CurrentSyntax();
    arguments.Trim();
    StartSwitches switches;
    CString place;
    if (const unsigned code = ReadStartSwitches(arguments, syntax, switches, place); code != 0)
        return MVError(code, place);
    if (!switches.directory.empty() && !QueryIsDirectory(switches.directory))
        return MVError(ERROR_PATH_NOT_FOUND, switches.directory);
    if (!switches.program.empty())
        return StartTarget(FindTarget(switches), switches);
    const CString asWritten(switches.command);
    if (const int code = ExpandAliases(switches.command); code != 0)
        return code;
    if (switches.command == asWritten)
        return StartTarget(FindTarget(switches), switches);
    // What an alias stands for may be anything that a line can hold.
    Target shell;
    AimAtShell(shell, switches, switches.command);
    return StartTarget(shell, switches);
}
