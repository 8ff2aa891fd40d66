#include "console/history_block.h"

#include <unordered_map>
#include <unordered_set>

#include "text/compare.h"

namespace {

constexpr std::size_t npos = std::u16string_view::npos;

// A line of the list to be, whether it stands there already or comes in.
struct Line {
    std::u16string_view text;
    std::size_t at; // place in the block; npos for a line that comes in
    bool dropped = false;

    std::size_t Units() const { return text.size() + 1; }
};

using Lines = std::vector<Line>;

Lines LinesOf(std::u16string_view list)
{
    Lines lines;
    for (std::size_t at = 0; !EntryAt(list, at).empty(); at = NextListEntry(list, at))
        lines.push_back({EntryAt(list, at), at});
    return lines;
}

bool IsNew(const Line& line) { return line.at == npos; }

// Lets each line come in behind the ones before it, in its turn.
class Arrivals {
public:
    Arrivals(Lines& all, std::size_t listSize, EqualLines whatOfEqual)
        : lines(all), capacity(listSize), equalLines(whatOfEqual)
    {}

    void Decide()
    {
        for (std::size_t i = 0; i < lines.size(); ++i) {
            lines[i].dropped = IsNew(lines[i]) && !Admit(i);
            if (lines[i].dropped)
                continue;
            used += lines[i].Units();
            if (equalLines != EqualLines::Keep)
                places[lines[i].text].push_back(i);
        }
    }

private:
    bool Admit(std::size_t i)
    {
        if (equalLines != EqualLines::Keep) {
            std::vector<std::size_t>& equal = places[lines[i].text];
            std::erase_if(equal, [&](std::size_t other) { return lines[other].dropped; });
            if (equalLines == EqualLines::KeepFirst && !equal.empty())
                return false;
            for (const std::size_t other : equal)
                Drop(other);
        }
        for (; oldest < i && used + historySlack + lines[i].text.size() >= capacity; ++oldest)
            Drop(oldest);
        return true;
    }

    void Drop(std::size_t i)
    {
        if (!lines[i].dropped)
            used -= lines[i].Units();
        lines[i].dropped = true;
    }

    Lines& lines;
    std::size_t capacity;
    EqualLines equalLines;
    std::size_t used = 0;
    std::size_t oldest = 0;
    std::unordered_map<std::u16string_view, std::vector<std::size_t>, NoCaseHash, NoCaseEqual> places;
};

void Cut(const ListBlock& block, std::size_t at, std::size_t units)
{
    ListChange change(block, at, at, units, {});
    while (change.Step()) {
    }
}

// Each run of lines in one change, the last one first: the places of the others stay good.
void CutDropped(const ListBlock& block, const Lines& lines, std::size_t oldCount)
{
    for (std::size_t end = oldCount; end > 0;) {
        std::size_t first = end;
        while (first > 0 && lines[first - 1].dropped)
            --first;
        if (first < end)
            Cut(block, lines[first].at, lines[end - 1].at + lines[end - 1].Units() - lines[first].at);
        end = first < end ? first : end - 1;
    }
}

bool LineBegins(std::u16string_view list, std::size_t at)
{
    return at < EndOfList(list) && (at == 0 || list[at - 1] == u'\0');
}

} // namespace

bool FitsHistory(const ListBlock& block, std::u16string_view line)
{
    return line.size() + 1 + listHeadroom + listReserve < block.capacity;
}

std::size_t AppendHistoryLines(const ListBlock& block, std::span<const CString> added, EqualLines equalLines)
{
    Lines lines = LinesOf(block.View().substr(0, EndOfList(block.View())));
    const std::size_t oldCount = lines.size();
    for (const CString& each : added) {
        const std::u16string_view line = each.view().substr(0, each.Find(u'\0'));
        if (!line.empty() && FitsHistory(block, line))
            lines.push_back({line, npos});
    }
    Arrivals(lines, block.capacity, equalLines).Decide();
    CString text;
    std::size_t count = 0;
    for (std::size_t i = oldCount; i < lines.size(); ++i) {
        if (lines[i].dropped)
            continue;
        text.Append(lines[i].text).Append(u'\0');
        ++count;
    }
    CutDropped(block, lines, oldCount);
    const std::size_t end = EndOfList(block.View());
    if (count == 0 || !ListHasRoom(block, static_cast<std::ptrdiff_t>(text.size())))
        return 0;
    ListChange change(block, end, end, 0, text);
    while (change.Step()) {
    }
    return count;
}

void RemoveEqualHistoryLines(const ListBlock& block)
{
    Lines lines = LinesOf(block.View().substr(0, EndOfList(block.View())));
    std::unordered_set<std::u16string_view, NoCaseHash, NoCaseEqual> seen;
    for (std::size_t i = lines.size(); i-- > 0;)
        lines[i].dropped = !seen.insert(lines[i].text).second;
    CutDropped(block, lines, lines.size());
}

bool DeleteHistoryLine(const ListBlock& block, std::size_t at)
{
    return LineBegins(block.View(), at) && DeleteListEntry(block, at);
}

bool ReplaceHistoryLine(const ListBlock& block, std::size_t at, std::u16string_view by)
{
    by = by.substr(0, by.find(u'\0'));
    if (!LineBegins(block.View(), at) || by.empty())
        return false;
    const std::size_t length = EntryAt(block.View(), at).size();
    if (!ListHasRoom(block, std::ssize(by) - static_cast<std::ptrdiff_t>(length)))
        return false;
    ListChange change(block, at, at, length, by);
    while (change.Step()) {
    }
    return true;
}

void ClearHistoryLines(const ListBlock& block)
{
    if (const std::size_t end = EndOfList(block.View()))
        Cut(block, 0, end);
}

std::vector<CString> AllHistoryLines(std::u16string_view list)
{
    std::vector<CString> lines;
    for (std::size_t at = 0; !EntryAt(list, at).empty(); at = NextListEntry(list, at))
        lines.emplace_back(EntryAt(list, at));
    return lines;
}

std::size_t OlderHistoryLine(std::u16string_view list, std::size_t at, bool wrap)
{
    std::size_t older = npos;
    std::size_t newest = npos;
    for (std::size_t line = 0; !EntryAt(list, line).empty(); line = NextListEntry(list, line)) {
        newest = line;
        if (line < at)
            older = line;
    }
    if (older != npos || newest == npos)
        return older;
    return wrap ? newest : 0;
}

std::size_t NewerHistoryLine(std::u16string_view list, std::size_t at, bool wrap)
{
    std::size_t newest = npos;
    for (std::size_t line = 0; !EntryAt(list, line).empty(); line = NextListEntry(list, line)) {
        if (at == npos || line > at)
            return line;
        newest = line;
    }
    return wrap && newest != npos ? 0 : newest;
}
