#include "console/edit_text.h"

#include <algorithm>

#include "text/cell_width.h"
#include "text/compare.h"

namespace {

constexpr std::size_t mostHeld = std::size_t{1} << 24; // units kept for Undo; the oldest changes go first

bool PartsWords(char16_t unit) { return IsBlank(unit) || unit == u'\n'; }

} // namespace

std::size_t EditText::Snap(std::size_t place) const
{
    constexpr char16_t firstSpecial = 0x300; // below it every unit is a character of its own
    place = std::min(place, text.size());
    if (place == 0 || place == text.size() || text[place] < firstSpecial)
        return place;
    const std::size_t front = PreviousCharacter(text, place);
    return NextCharacter(text, front) == place ? place : front;
}

void EditText::PlaceBehind(std::size_t place)
{
    const std::size_t front = Snap(place);
    anchor = cursor = front == place ? place : NextCharacter(text, front);
}

void EditText::Start(std::u16string_view initial, std::size_t place, std::size_t most)
{
    text = initial;
    longest = most;
    refused = false;
    changes.clear();
    done = held = 0;
    ++version;
    MoveTo(place);
}

void EditText::MoveTo(std::size_t place) { anchor = cursor = Snap(place); }

void EditText::SelectTo(std::size_t place) { cursor = Snap(place); }

// Whether a typed character goes on with the word that the last change typed.
bool EditText::Joins(const Change& change) const
{
    if (!change.typed || done == 0 || done != changes.size())
        return false;
    const Change& last = changes.back();
    if (!last.typed || last.at + last.inserted.size() != change.at || change.inserted.empty())
        return false;
    return PartsWords(change.inserted.front()) || !PartsWords(last.inserted.back());
}

void EditText::Apply(Change change)
{
    const std::size_t more = change.inserted.size();
    const std::size_t less = change.removed.size();
    if (more > less && (more > longest || text.size() - less > longest - more)) {
        refused = true;
        return;
    }
    text.Replace(change.at, change.removed.size(), change.inserted);
    PlaceBehind(change.at + change.inserted.size());
    ++version;
    Remember(std::move(change));
}

void EditText::Remember(Change change)
{
    held += change.Units();
    if (Joins(change)) {
        changes.back().removed.Append(change.removed);
        changes.back().inserted.Append(change.inserted);
        return;
    }
    for (; changes.size() > done; changes.pop_back())
        held -= changes.back().Units();
    changes.push_back(std::move(change));
    for (; held > mostHeld && changes.size() > 1; changes.erase(changes.begin()))
        held -= changes.front().Units();
    done = changes.size();
}

void EditText::Replace(std::size_t from, std::size_t to, std::u16string_view by)
{
    to = std::min(to, text.size());
    from = std::min(from, to);
    if (from == to && by.empty())
        return;
    Apply({from, text.Substr(from, to - from), CString(by), cursor, false});
}

void EditText::Insert(std::u16string_view inserted) { Replace(SelectionBegin(), SelectionEnd(), inserted); }

void EditText::Type(std::u16string_view typed, bool overstrike)
{
    const std::size_t from = SelectionBegin();
    std::size_t to = SelectionEnd();
    if (from == to && overstrike)
        for (std::size_t at = 0; at < typed.size() && text[to] != u'\n'; at = NextCharacter(typed, at))
            to = NextCharacter(text, to);
    Apply({from, text.Substr(from, to - from), CString(typed), cursor, !HasSelection()});
}

bool EditText::Undo()
{
    if (done == 0)
        return false;
    const Change& change = changes[--done];
    text.Replace(change.at, change.inserted.size(), change.removed);
    anchor = cursor = change.cursorBefore;
    ++version;
    return true;
}

bool EditText::Redo()
{
    if (done == changes.size())
        return false;
    const Change& change = changes[done++];
    text.Replace(change.at, change.removed.size(), change.inserted);
    PlaceBehind(change.at + change.inserted.size());
    ++version;
    return true;
}
