#include "console/extended_window.h"

#include <algorithm>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "console/extended_history.h"
#include "console/popup_style.h"
#include "engine/country.h"
#include "engine/inifile.h"
#include "engine/results.h"
#include "files/dates.h"
#include "files/directory_source.h"
#include "lang/console_messages.h"
#include "text/cell_width.h"
#include "text/format.h"

namespace {

constexpr int durationCells = 7;
constexpr int leastDirectoryCells = 8;
constexpr int leastLineCells = 32; // the directories give way to the lines on a narrow screen

// What stands in front of the lines.
class Facts {
public:
    explicit Facts(const std::vector<ExtendedEntry>& of)
        : entries(of), country(Country()), timeCells(TextWidth(TimeText(0)))
    {
        for (const ExtendedEntry& entry : entries)
            codeCells = std::max(codeCells, TextWidth(CodeText(entry)));
    }

    // `most` cells are there for facts and line; when they are few the line has them all.
    PopupLead Lead(int most)
    {
        const int others = timeCells + durationCells + codeCells + gaps;
        if (most < others + leastDirectoryCells + leastLineCells / 2)
            return {};
        directoryCells = std::clamp(PopupCells(aIniFile.XHCWD, PopupSide::Width), leastDirectoryCells,
                                    std::max(leastDirectoryCells, most - others - leastLineCells));
        return {others + directoryCells, [this](std::size_t line) { return Text(entries[line]); }};
    }

private:
    CString Text(const ExtendedEntry& entry)
    {
        CString text = FitCells(TimeText(entry.started), timeCells);
        text.Append(Format(u" %7s ", DurationInShort(entry.milliseconds)));
        text.Append(CString(static_cast<std::size_t>(codeCells - TextWidth(CodeText(entry))), u' '));
        text.Append(CodeText(entry)).Append(u' ');
        return text.Append(EndOfDirectory(entry.directory)).Append(u"  ");
    }

    CString TimeText(std::uint64_t fileTime) { return FormatFileTime(clock.ToLocal(fileTime), country); }
    static CString CodeText(const ExtendedEntry& entry) { return Format(u"%d", entry.exitCode); }

    // The last names tell directories apart.
    CString EndOfDirectory(std::u16string_view directory) const
    {
        const int tooMany = TextWidth(directory) - directoryCells;
        return tooMany <= 0 ? FitCells(directory, directoryCells)
                            : CString(u"\u2026").Append(FitCells(directory, directoryCells - 1, tooMany + 1));
    }

    static constexpr int gaps = 5; // blanks between and behind them
    const std::vector<ExtendedEntry>& entries;
    NationalSettings country;
    SystemRangeClock clock;
    int timeCells;
    int codeCells = 1;
    int directoryCells = 0;
};

// False when the file cannot be changed.
bool Delete(const std::vector<ExtendedEntry>& entries, const std::vector<std::size_t>& deleted)
{
    std::set<std::string> gone;
    for (const std::size_t line : deleted)
        gone.insert(WriteExtendedRecord(entries[line]));
    return gone.empty() || RemoveFromExtendedHistory([&](const ExtendedEntry& entry) {
               return gone.contains(WriteExtendedRecord(entry));
           });
}

} // namespace

std::optional<LinePick> PickExtendedLine(EditorConsole& console, std::u16string_view filter)
{
    const std::vector<ExtendedEntry> entries = ExtendedHistory();
    if (entries.empty())
        return std::nullopt;
    PopupRequest popup = UsualPopup();
    const ScreenExtent extent = console.Extent();
    popup.place =
        PopupPlace({aIniFile.XHWinLeft, aIniFile.XHWinTop, aIniFile.XHWinWidth, aIniFile.XHWinHeight});
    Facts facts(entries);
    popup.lead = facts.Lead(extent.windowColumns - 2);
    popup.place.columns = std::max(popup.place.columns, popup.lead.cells + leastLineCells + 2);
    popup.title = LoadMessage(message::extendedHistoryTitle);
    popup.footer = LoadMessage(message::extendedHistoryKeys);
    for (const ExtendedEntry& entry : entries) {
        popup.lines.push_back(entry.line);
        popup.places.push_back(entry.directory);
    }
    popup.chosen = entries.size() - 1;
    popup.filter = filter;
    popup.keys |= key_category::extendedHistory;
    popup.mayDelete = popup.mayEdit = true;
    PopupResult picked = RunPopupList(console, std::move(popup));
    if (!Delete(entries, picked.deleted))
        console.Beep();
    LinePick pick;
    pick.edits = picked.action == PopupAction::ToCommandLine;
    if (picked.action != PopupAction::Cancelled)
        pick.text = std::move(picked.text);
    return pick;
}
