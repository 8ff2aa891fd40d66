#include "commands/xhistory.h"

#include <algorithm>
#include <limits>
#include <optional>
#include <vector>

#include "commands/file_texts.h"
#include "commands/pager.h"
#include "console/extended_history.h"
#include "core/command_switches.h"
#include "engine/results.h"
#include "engine/state.h"
#include "platform/file_facts.h"
#include "text/compare.h"
#include "text/format.h"
#include "text/numbers.h"
#include "text/words.h"

const CommandHelp xhistoryHelp = {
    u"Shows or clears the typed lines with their times, directories, durations and exit codes.",
    u"XHISTORY [/B] [/D[:directory]] [/E] [/N] [/P] [/T:text] [/V] [count]\n"
    u"XHISTORY /F [/D[:directory]] [/E] [/T:text]",
    u"/B  the lines alone\n"
    u"/D  only lines that were typed in the directory, or without one in the current directory\n"
    u"/E  only lines with another exit code than 0\n"
    u"/F  forget the lines, or those that the other switches choose\n"
    u"/N  number the lines\n"
    u"/P  wait for a key after each screen\n"
    u"/T  only lines that hold the text\n"
    u"/V  show the newest line first\n"
    u"With a count the newest of the lines are shown, so many of them. Lines are kept from one session to "
    u"the next for all shells of a user, while the setting XHistory is on; what the command history leaves "
    u"out is left out here too.",
    u"xhistory 20\n"
    u"xhistory /e /d\n"
    u"xhistory /t:copy /v\n"
    u"xhistory /f /t:password",
};

namespace {

struct Choice {
    std::optional<CString> directory;
    std::optional<CString> text;
    bool failedOnly = false;

    bool Takes(const ExtendedEntry& entry) const
    {
        return (!directory || EqualNoCase(entry.directory, *directory)) &&
               (!text || FindNoCase(entry.line, *text) != CString::npos) &&
               (!failedOnly || entry.exitCode != 0);
    }
};

// "0:00:01.250"; hours grow as they must.
CString DurationText(std::uint64_t milliseconds)
{
    const std::uint64_t seconds = milliseconds / 1000;
    return Format(u"%lu:%02lu:%02lu.%03lu", seconds / 3600, seconds / 60 % 60, seconds % 60,
                  milliseconds % 1000);
}

Choice ReadChoice(CString& arguments)
{
    Choice choice;
    CString text;
    if (TakeSwitchText(arguments, u"D", text)) {
        const CString given = WithoutQuotes(text);
        CString name = text.empty() ? CurrentDirectory() : given.empty() ? given : FullPathName(given);
        if (name.size() > 3 && name.back() == u'\\')
            name.Truncate(name.size() - 1);
        choice.directory = name;
    }
    if (TakeSwitchText(arguments, u"T", text))
        choice.text = WithoutQuotes(text);
    return choice;
}

class Listing {
public:
    Listing(bool pauses, bool linesOnly, bool numbers) : pager(pauses), bare(linesOnly), numbered(numbers) {}

    // The lines of a command that went over several stand below each other. False when the output ends.
    bool Show(std::size_t number, const ExtendedEntry& entry)
    {
        CString prefix;
        if (numbered)
            prefix = Format(u"%4lu : ", number);
        if (!bare)
            prefix.Append(Format(u"%s  %s %5d  %s> ", texts.DateAndTime(entry.started),
                                 DurationText(entry.milliseconds), entry.exitCode, entry.directory));
        std::u16string_view rest = entry.line;
        for (;;) {
            const std::size_t end = rest.find(u'\n');
            if (!pager.Line(Format(u"%s%s", prefix, rest.substr(0, end))))
                return false;
            if (end == rest.npos)
                return true;
            rest.remove_prefix(end + 1);
            prefix.Clear();
        }
    }

private:
    Pager pager;
    FileTexts texts;
    bool bare;
    bool numbered;
};

struct Chosen {
    std::size_t number; // from 1, the oldest of all
    const ExtendedEntry* entry;
};

} // namespace

int Xhistory_Command(CString& arguments)
{
    Choice choice = ReadChoice(arguments);
    std::uint64_t flags = 0;
    if (const int code = ReadSwitches(arguments, u"BEFNPV", flags))
        return code;
    // A text that is empty, as that of a variable that is not set, is in every line.
    if ((choice.text && choice.text->empty()) || (choice.directory && choice.directory->empty()))
        return UsageError();
    auto has = [&](unsigned place) { return (flags >> place & 1) != 0; };
    choice.failedOnly = has(1);
    arguments.Trim();
    const bool forgets = has(2);
    const std::optional<std::int64_t> count =
        arguments.empty() ? std::numeric_limits<std::int64_t>::max() : ParseInteger(arguments);
    if (!count || *count < 0 || (forgets && !arguments.empty()))
        return UsageError();
    if (forgets) {
        const bool removed =
            RemoveFromExtendedHistory([&](const ExtendedEntry& entry) { return choice.Takes(entry); });
        return removed ? result::success : MVError(0, ExtendedHistoryFile());
    }
    const std::vector<ExtendedEntry> entries = ExtendedHistory();
    std::vector<Chosen> chosen;
    for (std::size_t i = 0; i < entries.size(); ++i)
        if (choice.Takes(entries[i]))
            chosen.push_back({i + 1, &entries[i]});
    const auto shown = static_cast<std::size_t>(std::min<std::int64_t>(*count, std::ssize(chosen)));
    chosen.erase(chosen.begin(), chosen.end() - static_cast<std::ptrdiff_t>(shown));
    if (has(5))
        std::reverse(chosen.begin(), chosen.end());
    Listing listing(has(4), has(0), has(3));
    for (const Chosen& one : chosen)
        if (!listing.Show(one.number, *one.entry))
            return MVError(0);
    return result::success;
}
