#include "core/external.h"

#include <utility>
#include <vector>

#include "core/associations.h"
#include "core/extension_variables.h"
#include "core/invoked_name.h"
#include "core/path_search.h"
#include "core/program_start.h"
#include "engine/batch_entry.h"
#include "engine/command_entry.h"
#include "engine/console_entry.h"
#include "engine/inifile.h"
#include "engine/results.h"
#include "engine/state.h"
#include "platform/environment.h"
#include "text/compare.h"
#include "text/escapes.h"
#include "text/format.h"
#include "text/path_names.h"
#include "text/words.h"

namespace {

constexpr int deepestAssociation = 10;

// What is run: the file that was found and the text behind the name.
struct Invocation {
    FoundProgram found;
    InvokedName call;
    CString commandLine;
};

enum class FileKind { Program, Batch, CmdBatch, Script, Other };

struct ScriptLanguage {
    const char16_t* extension;
    SettingChoice INIFILE::*setting; // null: whatever the settings say
};
constexpr ScriptLanguage languages[] = {
    {u".rexx", nullptr},        {u".rex", &INIFILE::Rexx}, {u".pl", &INIFILE::Perl},
    {u".py", &INIFILE::Python}, {u".tcl", &INIFILE::Tcl},  {u".ps1", &INIFILE::PowerShell},
    {u".lua", &INIFILE::Lua},
};

FileKind KindOfFile(std::u16string_view file)
{
    const std::u16string_view extension = ExtensionPart(file);
    if (EqualNoCase(extension, u".com") || EqualNoCase(extension, u".exe"))
        return FileKind::Program;
    if (EqualNoCase(extension, u".btm"))
        return FileKind::Batch;
    if (EqualNoCase(extension, u".bat") || EqualNoCase(extension, u".cmd"))
        return aIniFile.CMDBatch ? FileKind::CmdBatch : FileKind::Batch;
    for (const ScriptLanguage& language : languages)
        if (EqualNoCase(extension, language.extension) && (!language.setting || aIniFile.*language.setting))
            return FileKind::Script;
    return FileKind::Other;
}

int RunBatch(const Invocation& run)
{
    Syntax syntax = CurrentSyntax();
    // The arguments are parted by the rules of the file that gets them.
    syntax.cmdDelimiters =
        !EqualNoCase(ExtensionPart(run.found.file), u".btm") && aIniFile.CMDBatchDelimiters;
    std::vector<CString> arguments = SplitArguments(run.call.arguments, true, syntax);
    arguments.insert(arguments.begin(), run.found.file);
    // A chained file answers abandonLine, which is for the line that names it.
    return RunBatchFile(std::move(arguments), run.call.name, run.call.arguments);
}

// Batch files that are to run in the system's own command prompt.
int RunInCmd(const Invocation& run)
{
    const CString cmd = SearchPaths(u"cmd.exe");
    if (cmd.empty())
        return Tls().errorLevel = MVError(errors::unknownCommand, u"cmd.exe");
    CString text = AddQuotes(run.found.file);
    const bool quoted = text.front() == u'"';
    text.Append(run.call.arguments);
    // It takes the first and the last quote away when the text begins with one.
    return External(cmd, Format(quoted ? u"/c \"%s\"" : u"/c %s", text));
}

int RunAssociated(const CString& command, const Invocation& run)
{
    TLS_VARIABLES& tls = Tls();
    if (tls.associationDepth >= deepestAssociation)
        return tls.errorLevel = MVError(errors::associationLoop, run.found.file);
    ++tls.associationDepth;
    // File and arguments have been expanded; the variable's text has not.
    const Syntax syntax = CurrentSyntax();
    const CString line = Format(u"%s %s %s", command, ProtectText(AddQuotes(run.found.file), syntax),
                                ProtectText(run.call.arguments, syntax));
    int code = result::error;
    try {
        code = Command_S(line, line_flags::debugger);
    } catch (...) {
        --Tls().associationDepth;
        throw;
    }
    --Tls().associationDepth;
    return code;
}

int RunOther(const Invocation& run)
{
    const CString command = FindExtensionCommand(EnvironmentEntries(u"."), ExtensionPart(run.found.file));
    if (!command.empty() && command.front() != u'*')
        return RunAssociated(command, run);
    return External(run.found.file, run.call.arguments, run.found.extraPaths);
}

// The languages have no interpreter of their own in the shell: what the user has set up for them runs them.
int RunScript(const Invocation& run)
{
    Association association;
    if (!FindExtensionCommand(EnvironmentEntries(u"."), ExtensionPart(run.found.file)).empty() ||
        MyFindExecutable(run.found.file, association))
        return RunOther(run);
    return Tls().errorLevel = MVError(errors::noInterpreter, run.found.file);
}

int RunFile(const Invocation& run)
{
    switch (KindOfFile(run.found.file)) {
    case FileKind::Program: return External(run.found.file, run.call.arguments, run.found.extraPaths);
    case FileKind::Batch: return RunBatch(run);
    case FileKind::CmdBatch: return RunInCmd(run);
    case FileKind::Script: return RunScript(run);
    case FileKind::Other: break;
    }
    return RunOther(run);
}

// A Java archive along JARPATH: the command becomes a call of the Java program.
bool FindArchive(Invocation& run)
{
    CString list;
    if (!EqualNoCase(ExtensionPart(WithoutQuotes(run.call.name)), u".jar") ||
        !ReadEnvironment(u"JARPATH", list))
        return false;
    const CString archive = SearchAlong(run.call.name, list);
    if (archive.empty())
        return false;
    run.call.arguments = Format(u" -jar %s%s", AddQuotes(archive), run.call.arguments);
    run.call.name = u"java.exe";
    return true;
}

bool Find(Invocation& run)
{
    // CALL of a label: the file is the one that runs.
    const BATCH_FRAME* frame = Tls().Frame();
    if (frame && (Tls().batchStartMode & batch_start::callLabel) != 0) {
        run.found.file = frame->fileName;
        return true;
    }
    FindArchive(run);
    if (SearchPaths(run.call.name, run.found))
        return true;
    // "name/switch": what follows the name without a blank is its first switch, unless it names a file.
    return CutAtSwitch(run.call, CurrentSyntax()) && SearchPaths(run.call.name, run.found);
}

void Announce(const Invocation& run, bool setCommandLineVariable)
{
    if (setCommandLineVariable)
        WriteEnvironment(u"CMDLINE", run.commandLine);
    else
        RemoveEnvironment(u"CMDLINE");
    if (!Tls().titleHeld)
        UpdateTitleAndIcon(run.commandLine);
}

} // namespace

bool RunExternal(const CString& commandLine, const CString& name, bool setCommandLineVariable, int& code)
{
    if (QueryIsURL(name)) {
        code = GotoURL(WithoutQuotes(name));
        return true;
    }
    Invocation run;
    run.commandLine = commandLine;
    run.call = ReadInvokedName(commandLine, name, CurrentSyntax());
    if (run.call.name.empty() || !Find(run))
        return false;
    Announce(run, setCommandLineVariable);
    code = RunFile(run);
    return true;
}
