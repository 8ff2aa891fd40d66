#include "commands/local.h"

#include "batch/local_environment.h"
#include "core/command_switches.h"
#include "engine/results.h"
#include "engine/state.h"
#include "expand/lists.h"
#include "text/compare.h"
#include "text/words.h"

const CommandHelp setlocalHelp = {
    u"Keeps the environment until ENDLOCAL or the end of the batch file.",
    u"SETLOCAL [ENABLEDELAYEDEXPANSION | DISABLEDELAYEDEXPANSION] [ENABLEEXTENSIONS | DISABLEEXTENSIONS]",
    u"Kept are the variables, the current directory, the local aliases and the two switches that the words "
    u"change.",
    u"setlocal\n"
    u"setlocal enabledelayedexpansion",
};

const CommandHelp endlocalHelp = {
    u"Puts back what SETLOCAL has kept.",
    u"ENDLOCAL [variable ...]",
    u"The variables named keep their present values.",
    u"endlocal\n"
    u"endlocal result count\n"
    u"endlocal & set result=%result%",
};

const CommandHelp localHelp = {
    u"Makes variables local to the batch file.",
    u"LOCAL name[=value] ...",
    u"Their values before are put back when the batch file ends.",
    u"local line file\n"
    u"local count=0",
};

namespace {

struct Option {
    const char16_t* name;
    std::int32_t GLOBAL_VARIABLES::*state;
    std::int32_t value;
};

constexpr Option options[] = {
    {u"ENABLEDELAYEDEXPANSION", &GLOBAL_VARIABLES::delayedExpansion, 1},
    {u"DISABLEDELAYEDEXPANSION", &GLOBAL_VARIABLES::delayedExpansion, 0},
    {u"ENABLEEXTENSIONS", &GLOBAL_VARIABLES::cmdExtensions, 1},
    {u"DISABLEEXTENSIONS", &GLOBAL_VARIABLES::cmdExtensions, 0},
};

const Option* FindOption(std::u16string_view word)
{
    for (const Option& option : options)
        if (EqualNoCase(option.name, word))
            return &option;
    return nullptr;
}

} // namespace

int Setlocal_Command(CString& arguments)
{
    const std::vector<CString> words = SplitArguments(arguments, true, CurrentSyntax());
    for (const CString& word : words)
        if (!FindOption(word))
            return UsageError();
    LocalEnvironments& open = CurrentLocalEnvironments();
    if (open.size() >= maximumLocalEnvironments)
        return MVError(errors::localNesting);
    BeginLocalEnvironment(open);
    for (const CString& word : words) {
        const Option& option = *FindOption(word);
        aGlobals.*option.state = option.value;
    }
    return result::success;
}

int Endlocal_Command(CString& arguments)
{
    if (EndLocalEnvironment(CurrentLocalEnvironments(), arguments))
        return result::success;
    // Older scripts end what they never began.
    const BATCH_FRAME* frame = Tls().Frame();
    return frame && frame->EndsInCmd() ? result::success : MVError(errors::noLocal);
}

int Local_Command(CString& arguments)
{
    Syntax syntax = CurrentSyntax();
    syntax.cmdDelimiters = false;
    const std::vector<CString> words = SplitArguments(arguments, true, syntax);
    if (words.empty())
        return UsageError();
    for (const CString& word : words) {
        const std::size_t equals = word.Find(u'=');
        SaveVariable(*Tls().Frame(), word.view().substr(0, equals));
        if (equals != CString::npos)
            if (const int code = SetEVariable(word))
                return code;
    }
    return result::success;
}
