// The exported interface: plain buffers outside, CString inside, and no exception in between.
#include <algorithm>
#include <cstring>

#include "config/ini_file.h"
#include "console/extended_history.h"
#include "core/alias_extras.h"
#include "core/blocks.h"
#include "core/command_lookup.h"
#include "engine/batch_entry.h"
#include "engine/break.h"
#include "engine/command_entry.h"
#include "engine/command_state.h"
#include "engine/console_entry.h"
#include "engine/expansion_entry.h"
#include "engine/movacore.h"
#include "engine/output.h"
#include "engine/state.h"
#include "expand/list_keeper.h"
#include "expand/lists.h"
#include "lang/errors.h"
#include "lifecycle/session_start.h"
#include "lifecycle/start_options.h"
#include "lifecycle/startup.h"
#include "platform/environment.h"
#include "text/compare.h"

namespace {

constexpr int brokenOff = 3;

// Runs `work`; a break abandons it. The host sees all variables that it has set.
template <typename Work> int Guarded(Work work)
{
    const struct Publisher {
        ~Publisher() { PublishEnvironment(); }
    } publisher;
    try {
        return work();
    } catch (const Break&) {
        ClearBreak();
        ResetParsingFlags();
        TLS_VARIABLES& tls = Tls();
        tls.unknownCommandDepth = 0;
        tls.associationDepth = 0;
        tls.expansion = {};
        return brokenOff;
    }
}

// Hands a text out; the terminating NUL must fit too.
int Deliver(const CString& text, char16_t* buffer, int capacity)
{
    if (capacity < 1 || text.size() >= static_cast<std::size_t>(capacity))
        return bufferTooSmall;
    std::memcpy(buffer, text.c_str(), (text.size() + 1) * sizeof(char16_t));
    return result::success;
}

CString PromptPattern()
{
    CString pattern;
    if (!ReadEnvironment(u"PROMPT", pattern))
        return u"$P$G";
    CString meant;
    return PromptAliases(pattern, meant) == result::success ? meant : pattern;
}

} // namespace

int ReadStartOptions(const char16_t* commandLine, START_OPTIONS* options)
{
    const StartOptions read = ParseStartOptions(commandLine);
    ApplyStartOptions(read);
    if (!read.refused.empty())
        return MVError(errors::invalidSwitch, read.refused);
    // The right side of a pipe is passed on as it stands.
    aTexts.startCommand =
        IsInEnvironment(u"MOVAPIPE") ? read.commands : UnquoteCommands(read.commands, read.stripsQuotes);
    aTexts.startIniFile = read.iniFile;
    options->mode = static_cast<int>(read.mode);
    options->commands = aTexts.startCommand.empty() ? nullptr : aTexts.startCommand.c_str();
    options->iniFile = aTexts.startIniFile.empty() ? nullptr : aTexts.startIniFile.c_str();
    return result::success;
}

int KeepGlobalLists() { return KeepLists(); }

int InitializeDLL(const char16_t* iniName)
{
    constexpr int brokenDown = 3;
    try {
        return StartEngine(iniName ? iniName : u"");
    } catch (...) {
        return brokenDown;
    }
}

void ShutdownCommandProcessor()
{
    Guarded([] {
        StopEngine();
        return 0;
    });
}

int Command(const char16_t* line, int flags)
{
    const bool typed = (flags & line_flags::typed) != 0;
    const int code = Guarded([&] { return Command_S(CString(line), flags); });
    if (typed)
        Guarded([&] {
            Tls().typedLine = false;
            if (IsConsole(0))
                Print(u"\r\n");
            FinishExtendedEntry(EndsLine(code) ? result::success : code);
            return 0;
        });
    return code;
}

int ReadPromptLine(char16_t* buffer, int capacity)
{
    CString line;
    bool more = true;
    Guarded([&] {
        UpdateEnvironment();
        const bool inBlock = Tls().blocks.iffNesting > 0;
        more = ReadConsoleLine(line, inBlock ? ContinuationPrompt() : ExpandPrompt(PromptPattern()),
                               LinePurpose::Command);
        return 0;
    });
    if (!more)
        return -1;
    CString kept(line);
    if (!line.empty())
        AddToHistory(kept);
    const std::size_t length = std::min(line.size(), static_cast<std::size_t>(capacity - 1));
    std::memcpy(buffer, line.c_str(), length * sizeof(char16_t));
    buffer[length] = u'\0';
    return static_cast<int>(length);
}

int QueryExitRequested() { return aGlobals.exitRequested; }

int QueryTransient() { return aGlobals.transient; }

int QueryExitCode() { return aGlobals.exitRequested ? aGlobals.exitCode : Tls().errorLevel; }

void RunStartupFile(const char16_t* name, const char16_t* arguments)
{
    Guarded([&] {
        if (EqualNoCase(name, u"MVSTART"))
            RunAutoRun();
        return RunStartupFiles(name, arguments ? arguments : u"");
    });
}

int QueryIsCommandEnabled(const char16_t* name) { return QueryIsCommandEnabled(std::u16string_view(name)); }

unsigned QueryInternalCommandFlags(const char16_t* name)
{
    return QueryInternalCommandFlags(std::u16string_view(name));
}

int SetInternalCommandFlags(const char16_t* name, unsigned flags)
{
    return SetInternalCommandFlags(std::u16string_view(name), flags);
}

int DisableInternalCommand(const char16_t* name) { return DisableInternalCommand(std::u16string_view(name)); }

void SetInternalCommands(int all) { SelectCommandSet(all != 0); }

int ExpandVariables(char16_t* buffer, int capacity, int nested)
{
    return Guarded([&] {
        CString line(buffer);
        const int code = VariableExpansion(line, nested != 0);
        return code ? code : Deliver(line, buffer, capacity);
    });
}

int Evaluate(char16_t* buffer, int capacity)
{
    return Guarded([&] {
        CString expression(buffer);
        const int code = EvaluateExpression(expression);
        return code ? code : Deliver(expression, buffer, capacity);
    });
}

int GetAliasValue(const char16_t* name, char16_t* buffer, int capacity)
{
    CString value;
    return GetAlias(name, value) ? Deliver(value, buffer, capacity) : result::error;
}

int GetFunctionBody(const char16_t* name, char16_t* buffer, int capacity)
{
    CString body;
    return GetFunction(name, body) ? Deliver(body, buffer, capacity) : result::error;
}

int GetSetting(const char16_t* name, char16_t* buffer, int capacity)
{
    CString value;
    const int code = GetOptionValue(name, value);
    return code ? code : Deliver(value, buffer, capacity);
}

int SetEnvironmentEntry(const char16_t* entry)
{
    return Guarded([&] { return SetEVariable(entry); });
}
