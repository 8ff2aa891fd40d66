#include "commands/history.h"

#include <algorithm>
#include <limits>

#include "commands/definitions.h"
#include "commands/pager.h"
#include "console/history.h"
#include "core/command_switches.h"
#include "engine/break.h"
#include "engine/console_entry.h"
#include "engine/inifile.h"
#include "engine/results.h"
#include "engine/state.h"
#include "platform/file_facts.h"
#include "text/format.h"
#include "text/numbers.h"
#include "text/words.h"

const CommandHelp historyHelp = {
    u"Shows, reads or clears the list of typed command lines.",
    u"HISTORY [/G | /L] [/N] [/P] [/V] [count]\n"
    u"HISTORY /A [/G | /L] text\n"
    u"HISTORY /R [/F] [/G | /L] [file ...]\n"
    u"HISTORY [/F] [/M] [/G | /L]",
    u"/A  add the text as the newest line\n"
    u"/F  forget all lines\n"
    u"/G  the global list, which all shells of this user share\n"
    u"/L  the local list of this shell\n"
    u"/M  of equal lines leave only the newest\n"
    u"/N  number the lines\n"
    u"/P  wait for a key after each screen\n"
    u"/R  add the lines of files, or of standard input; at the console Ctrl+Z ends them\n"
    u"/V  show the newest line first\n"
    u"With a count the newest lines are shown, so many of them; with a negative count the oldest ones are "
    u"left out, so many of them. Without /G and /L it is the list in use. HISTORY > file writes a file that "
    u"HISTORY /R can read.",
    u"history 20\n"
    u"history /n /v\n"
    u"history > lines.txt\n"
    u"history /f /r lines.txt",
};

const CommandHelp dirhistoryHelp = {
    u"Shows, reads or clears the list of directories that you have been to.",
    u"DIRHISTORY [/G | /L] [/N] [/P] [/V] [count]\n"
    u"DIRHISTORY /A [/G | /L] directory\n"
    u"DIRHISTORY /R [/F] [/G | /L] [file ...]\n"
    u"DIRHISTORY [/F] [/M] [/G | /L]",
    u"/A  add the directory as the newest one\n"
    u"/F  forget all directories\n"
    u"/G  the global list, which all shells of this user share\n"
    u"/L  the local list of this shell\n"
    u"/M  of equal directories leave only the newest\n"
    u"/N  number the directories\n"
    u"/P  wait for a key after each screen\n"
    u"/R  add the lines of files, or of standard input; at the console Ctrl+Z ends them\n"
    u"/V  show the newest directory first\n"
    u"With a count the newest directories are shown, so many of them; with a negative count the oldest ones "
    u"are left out, so many of them. Without /G and /L it is the list in use.",
    u"dirhistory 10\n"
    u"dirhistory /a d:\\work\n"
    u"dirhistory > dirs.txt",
};

namespace {

constexpr std::u16string_view letters = u"AFGLNPRVM";

struct Request {
    HistoryList list;
    bool add = false;
    bool clear = false;
    bool number = false;
    bool pause = false;
    bool read = false;
    bool newestFirst = false;
    bool removeEqual = false;

    bool Shows() const { return !add && !clear && !read && !removeEqual; }
};

Request RequestOf(ListKind kind, std::uint64_t switches)
{
    auto has = [&](char16_t letter) { return (switches >> letters.find(letter) & 1) != 0; };
    Request request;
    request.list.kind = kind;
    if (has(u'G') || has(u'L'))
        request.list.scope = has(u'G') ? ListScope::Global : ListScope::Local;
    request.add = has(u'A');
    request.clear = has(u'F');
    request.number = has(u'N');
    request.pause = has(u'P');
    request.read = has(u'R');
    request.newestFirst = has(u'V');
    request.removeEqual = has(u'M');
    return request;
}

int Show(const CString& count, const Request& request)
{
    const std::optional<std::int64_t> limit =
        count.empty() ? std::numeric_limits<std::int64_t>::max() : ParseInteger(count);
    if (!limit)
        return UsageError();
    const std::vector<CString> lines = HistoryLines(request.list);
    const auto size = static_cast<std::int64_t>(lines.size());
    const std::int64_t leftOut =
        *limit < 0 ? std::min(-(*limit + 1), size - 1) + 1 : size - std::min(*limit, size);
    Pager pager(request.pause);
    for (std::int64_t i = leftOut; i < size; ++i) {
        const std::int64_t at = request.newestFirst ? size - 1 - (i - leftOut) : i;
        const CString& line = lines[static_cast<std::size_t>(at)];
        if (!pager.Line(request.number ? Format(u"%4lu : %s", at + 1, line) : line))
            return MVError(0);
    }
    return result::success;
}

int Add(const CString& text, const Request& request)
{
    if (text.empty())
        return UsageError();
    const bool directory = request.list.kind == ListKind::DirHistory;
    const CString line = directory ? FullPathName(WithoutQuotes(text)) : text;
    AddHistoryLines(request.list, std::span(&line, 1));
    return result::success;
}

int ReadStandardInput(const Request& request)
{
    std::vector<CString> lines;
    CString line;
    while (ReadConsoleLine(line, {}))
        lines.push_back(line);
    AddHistoryLines(request.list, lines);
    return result::success;
}

int ReadFiles(const CString& names, const Request& request)
{
    const std::vector<CString> files = SplitArguments(names, true, CurrentSyntax());
    if (files.empty())
        return ReadStandardInput(request);
    int code = result::success;
    for (const CString& each : files) {
        const CString name = WithoutQuotes(each);
        if (!ReadHistoryFile(request.list, name))
            code = MVError(0, name);
    }
    return code;
}

int Run(CString& arguments, ListKind kind)
{
    int code = result::success;
    if (RefuseDialog(arguments, code))
        return code;
    std::uint64_t switches = 0;
    code = ReadSwitches(arguments, letters, switches, SwitchPlace::Leading);
    if (code != result::success)
        return code;
    const Request request = RequestOf(kind, switches);
    arguments.Trim();
    if (!HistoryExists(request.list))
        return MVError(errors::noHistoryList);
    if (request.Shows())
        return Show(arguments, request);
    if (!arguments.empty() && !request.add && !request.read)
        return UsageError();
    if (request.clear)
        ClearHistory(request.list);
    if (request.read)
        code = ReadFiles(arguments, request);
    else if (request.add)
        code = Add(arguments, request);
    if (request.removeEqual)
        RemoveEqualLines(request.list);
    return code;
}

} // namespace

int History_Command(CString& arguments) { return Run(arguments, ListKind::History); }
int Dirhistory_Command(CString& arguments) { return Run(arguments, ListKind::DirHistory); }
