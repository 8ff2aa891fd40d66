#include "commands/tabcomplete.h"

#include <windows.h>

#include "console/completion_scripts.h"
#include "console/system_completion.h"
#include "core/command_switches.h"
#include "core/path_search.h"
#include "engine/output.h"
#include "engine/results.h"
#include "engine/state.h"
#include "lang/console_messages.h"
#include "text/compare.h"
#include "text/words.h"

const CommandHelp tabcompleteHelp = {
    u"Registers batch files that say what Tab offers, and shows what it offers.",
    u"TABCOMPLETE [file [command ...]]\n"
    u"TABCOMPLETE /D file ...\n"
    u"TABCOMPLETE /C\n"
    u"TABCOMPLETE /T line",
    u"/C  forget all completion files\n"
    u"/D  forget these completion files\n"
    u"/T  list what Tab offers at the end of the line (write % as %%)\n"
    u"Without arguments the completion files are listed. A file is asked for the commands that are named "
    u"(wildcards allowed, without extensions), or for all of them; the newest file is asked first, and the "
    u"usual candidates come when none offers anything. A file registered again gets the new commands.\n"
    u"The batch file is called as: file command word number. Word is what has been typed so far, number "
    u"that of the argument, 0 for the command itself. It finds more in the variables COMPLETE_LINE, "
    u"COMPLETE_CURSOR, COMPLETE_COMMAND, COMPLETE_WORD and COMPLETE_ARGUMENT. Each line that it writes is a "
    u"candidate; what stands behind a tab tells about it. Candidates that do not begin with the word are "
    u"left out.",
    u"tabcomplete c:\\lib\\git.btm git\n"
    u"tabcomplete c:\\lib\\hosts.btm ping tracert ssh*\n"
    u"tabcomplete /t cd \\prog\n"
    u"tabcomplete /d c:\\lib\\git.btm",
};

namespace {

int ShowOffer(const CString& arguments)
{
    CString line(arguments);
    const std::size_t mark = FindNoCase(line, u"/t");
    line.Erase(0, mark + 2).TrimLeft();
    SystemCompletion completion;
    const CompletionOffer offer = completion.Offer(line, line.size(), CompletionKind::Files);
    for (const CompletionCandidate& candidate : offer.candidates) {
        CString shown(candidate.text);
        if (!candidate.hint.empty())
            shown.Append(u"  ").Append(candidate.hint);
        if (!PrintLine(shown))
            return MVError(0);
    }
    return result::success;
}

int ListFiles()
{
    for (const CompletionScript& script : CompletionScripts())
        if (!PrintLine(script.commands.empty() ? script.file : script.file + u"  " + script.commands.view()))
            return MVError(0);
    return result::success;
}

int RemoveFiles(const std::vector<CString>& names)
{
    int code = result::success;
    for (const CString& name : names) {
        const CString file = SearchPaths(name, SearchKind::Batch);
        if (!RemoveCompletionScript(file.empty() ? WithoutQuotes(name) : file))
            code = MVError(errors::noCompletionFile, WithoutQuotes(name));
    }
    return code;
}

} // namespace

int Tabcomplete_Command(CString& arguments)
{
    arguments.Trim();
    if (BeginsNoCase(arguments, u"/t") && (arguments.size() == 2 || IsBlank(arguments[2])))
        return ShowOffer(arguments);
    std::uint64_t flags = 0;
    if (const int code = ReadSwitches(arguments, u"CD", flags))
        return code;
    std::vector<CString> words = SplitArguments(arguments, false, CurrentSyntax());
    const bool all = (flags & 1) != 0;
    const bool some = (flags & 2) != 0;
    if ((all && (some || !words.empty())) || (some && words.empty()))
        return UsageError();
    if (all) {
        RemoveCompletionScripts();
        return result::success;
    }
    if (some)
        return RemoveFiles(words);
    if (words.empty())
        return ListFiles();
    CompletionScript script;
    script.file = SearchPaths(words[0], SearchKind::Batch);
    if (script.file.empty())
        return MVError(ERROR_FILE_NOT_FOUND, WithoutQuotes(words[0]));
    for (std::size_t i = 1; i < words.size(); ++i)
        script.commands.Append(i > 1 ? u" " : u"").Append(WithoutQuotes(words[i]));
    RegisterCompletionScript(std::move(script));
    return result::success;
}
