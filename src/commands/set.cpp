#include "commands/set.h"

#include "commands/definition_text.h"
#include "commands/definitions.h"
#include "core/command_switches.h"
#include "engine/console_entry.h"
#include "engine/expansion_entry.h"
#include "engine/output.h"
#include "engine/results.h"
#include "engine/state.h"

const CommandHelp setHelp = {
    u"Shows, sets or removes variables.",
    u"SET [/D] [/E] [/S] [/U] [/V] [name]\n"
    u"SET [/D] [/E] [/O] [/S] [/T:type] [/U] [/V] name=[value]\n"
    u"SET /A [/N] expression\n"
    u"SET [/D] [/E] [/S] [/U] [/V] /P name=[question]\n"
    u"SET /R [/D] [/E] [/O] [/S] [/U] [/V] [file ...]",
    u"/A       calculate with whole numbers; names in the expression stand for their values, and it may "
    u"assign to them. The result is shown outside batch files\n"
    u"/D       the registry's variables for users who are not logged on\n"
    u"/E       the variables of this process as well, when the registry's are changed\n"
    u"/N       with /A: do not show the result (stands before /A)\n"
    u"/O       leave variables alone that exist already\n"
    u"/P       show the question and read the value from standard input; an empty line changes nothing\n"
    u"/R       read lines \"name=value\" from files or standard input. Lines that begin with : or ; are "
    u"comments, and a line that ends with the escape character goes on in the next one\n"
    u"/S       the registry's variables for all users\n"
    u"/T:type  the value must be a boolean, character, integer, number, path or text; /T:type:description "
    u"names it in the message when it is not\n"
    u"/U       the registry's variables for this user\n"
    u"/V       the registry's variables for this user until log-off\n"
    u"Without \"=\" all variables are shown whose names begin with the text or match its wildcards. Nothing "
    u"behind the \"=\" removes the variable. Quotes around the whole definition are dropped. name[index] "
    u"sets an element when SETARRAY has made an array of that name.",
    u"set\n"
    u"set path\n"
    u"set greeting=Hello, world\n"
    u"set \"folder=C:\\Program Files\"\n"
    u"set /a total=(3+4)*6\n"
    u"set /p \"answer=Your name: \"\n"
    u"set /u EDITOR=notepad.exe",
};

const CommandHelp unsetHelp = {
    u"Removes variables.",
    u"UNSET [/D] [/E] [/Q] [/S] [/U] [/V] name ...\n"
    u"UNSET /R [/D] [/E] [/Q] [/S] [/U] [/V] [file ...]",
    u"/D  the registry's variables for users who are not logged on\n"
    u"/E  the variables of this process as well, when the registry's are removed\n"
    u"/Q  no message when nothing was there to remove\n"
    u"/R  read the names from files or standard input\n"
    u"/S  the registry's variables for all users\n"
    u"/U  the registry's variables for this user\n"
    u"/V  the registry's variables for this user until log-off\n"
    u"Names may hold the wildcards *, ? and [...]; * alone removes every variable.",
    u"unset greeting folder\n"
    u"unset tmp_*\n"
    u"unset /q total",
};

namespace {

struct Levels {
    bool process;
    bool system;
    bool user;
    bool isVolatile;
    bool standard;
};

DefinitionStores StoresOf(const Levels& levels)
{
    DefinitionStores stores;
    auto add = [&](bool wanted, RegistryEnvironment place) {
        if (wanted)
            stores.push_back(std::make_unique<RegistryStore>(place));
    };
    add(levels.system, RegistryEnvironment::System);
    add(levels.user, RegistryEnvironment::User);
    add(levels.isVolatile, RegistryEnvironment::Volatile);
    add(levels.standard, RegistryEnvironment::Default);
    if (levels.process || stores.empty())
        stores.push_back(std::make_unique<EnvironmentStore>());
    return stores;
}

int Calculate(CString& expression, bool quiet)
{
    if (expression.empty())
        return UsageError();
    if (EvaluateExpression(expression, true) != 0)
        return result::error;
    if (!quiet && !Tls().Frame() && !PrintLine(expression))
        return MVError(0);
    return result::success;
}

// The question is shown even when the answer comes from a file: "<nul set /p =text" writes text without a
// line end.
bool ReadAnswer(CString& answer, std::u16string_view question)
{
    const bool editable = IsConsole(0) && IsConsole(1);
    if (!editable)
        Print(question);
    return ReadConsoleLine(answer, editable ? question : std::u16string_view());
}

int Ask(CString& text, const DefinitionStores& stores)
{
    constexpr int nothingRead = 1;
    DropDefinitionQuotes(text);
    const std::size_t equals = text.Find(u'=');
    CString name = text.Substr(0, equals);
    CString question = equals == CString::npos ? CString() : text.Substr(equals + 1);
    DropDefinitionQuotes(question);
    CString answer;
    if (!ReadAnswer(answer, question))
        return nothingRead;
    answer.TrimRight(u"\r\n");
    if (answer.empty() || name.empty())
        return answer.empty() ? nothingRead : result::success;
    const CString entry = name.Append(u'=').Append(answer);
    int code = result::success;
    for (const auto& store : stores) {
        CString definition(entry);
        if (code == result::success)
            code = store->Define(definition, {}) == 0 ? result::success : result::error;
    }
    return code;
}

} // namespace

int Set_Command(CString& arguments)
{
    int code = result::success;
    if (RefuseDialog(arguments, code))
        return code;
    const SetSwitches switches = TakeSetSwitches(arguments, CurrentSyntax().switchChar);
    if (!switches.refused.empty())
        return MVError(errors::invalidSwitch, switches.refused);
    if (switches.arithmetic)
        return Calculate(arguments, switches.quiet);
    DefinitionRequest request;
    request.stores =
        StoresOf({switches.process, switches.system, switches.user, switches.isVolatile, switches.standard});
    if (switches.prompt)
        return Ask(arguments, request.stores);
    request.defineInAll = true;
    request.nameEndsAtBlank = false;
    request.queryByPrefix = true;
    request.keepExisting = switches.keepExisting;
    request.fromFiles = switches.readFiles;
    request.typeSpec = switches.typeSpec;
    code = RunDefinitions(arguments, request);
    return code == definition_result::notDefined ? MVError(errors::notInEnvironment, arguments) : code;
}

int Unset_Command(CString& arguments)
{
    std::uint64_t switches = 0;
    if (const int code = ReadSwitches(arguments, u"DEQRSUV", switches, SwitchPlace::Leading))
        return code;
    auto has = [&](int bit) { return (switches >> bit & 1) != 0; };
    RemovalRequest request;
    request.stores = StoresOf({has(1), has(4), has(5), has(6), has(0)});
    request.fromFiles = has(3);
    const int code = RemoveDefinitions(arguments, request);
    if (code == definition_result::usage)
        return UsageError();
    if (code == definition_result::notDefined)
        return has(2) ? result::error : MVError(errors::notInEnvironment, arguments);
    return code;
}
