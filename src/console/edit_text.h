// The text that is being edited: cursor, selection, insert or overstrike, and every change undone and done
// again. Pure. Positions are units and always stand between characters as people see them
// (text/cell_width.h).
#pragma once

#include <cstddef>
#include <string_view>
#include <utility>
#include <vector>

#include "text/cstring.h"

class EditText {
public:
    // A text to begin with, which is nothing to undo. What would make it longer than so many units is
    // refused.
    void Start(std::u16string_view initial, std::size_t place, std::size_t most = CString::npos);

    const CString& Text() const { return text; }
    std::u16string_view View() const { return text; }
    std::size_t Size() const { return text.size(); }
    std::size_t Cursor() const { return cursor; }
    bool AtEnd() const { return cursor == text.size(); }

    // Motions. Those that do not select give up the selection. A place inside a character goes to its front.
    void MoveTo(std::size_t place);
    void SelectTo(std::size_t place);
    bool HasSelection() const { return anchor != cursor; }
    std::size_t SelectionBegin() const { return anchor < cursor ? anchor : cursor; }
    std::size_t SelectionEnd() const { return anchor < cursor ? cursor : anchor; }
    std::u16string_view Selection() const
    {
        return View().substr(SelectionBegin(), SelectionEnd() - SelectionBegin());
    }

    // Characters from the keyboard: they take the place of the selection, and of as many characters at the
    // cursor when `overstrike` says so. A word of them is one step for Undo.
    void Type(std::u16string_view typed, bool overstrike);
    // Other changes, each one step for Undo. The cursor goes behind what was put in.
    void Insert(std::u16string_view inserted); // in place of the selection
    void Replace(std::size_t from, std::size_t to, std::u16string_view by);
    void Erase(std::size_t from, std::size_t to) { Replace(from, to, {}); }
    void EraseSelection() { Erase(SelectionBegin(), SelectionEnd()); }
    void SetText(std::u16string_view whole) { Replace(0, text.size(), whole); }

    // Whether a change was refused since the last call.
    bool TakeRefusal() { return std::exchange(refused, false); }

    // False when there is nothing to undo or do again.
    bool Undo();
    bool Redo();

    // Goes up with every change of the text.
    std::size_t Version() const { return version; }

private:
    struct Change {
        std::size_t at = 0;
        CString removed;
        CString inserted;
        std::size_t cursorBefore = 0;
        bool typed = false;
        std::size_t Units() const { return removed.size() + inserted.size(); }
    };
    void Remember(Change change);
    bool Joins(const Change& change) const;
    void Apply(Change change);
    std::size_t Snap(std::size_t place) const;
    // The cursor goes behind what ends there, and behind the marks that now combine with it.
    void PlaceBehind(std::size_t place);

    CString text;
    std::size_t cursor = 0;
    std::size_t anchor = 0;
    std::vector<Change> changes; // those from `done` on have been undone
    std::size_t done = 0;
    std::size_t held = 0; // units in all changes
    std::size_t version = 0;
    std::size_t longest = CString::npos; // units
    bool refused = false;
};
