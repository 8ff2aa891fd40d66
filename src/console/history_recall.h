// Walking through a history by the beginning of the line, and the newest line that begins so. Pure.
#pragma once

#include <cstddef>
#include <optional>
#include <string_view>
#include <vector>

#include "text/cstring.h"

class HistoryRecall {
public:
    // The lines, oldest first. The walk begins anew behind the newest.
    void Take(std::vector<CString> lines);
    bool HasLines() const { return taken; }
    void Forget(); // the lines, too
    const std::vector<CString>& Lines() const { return lines; }

    // Whether a walk is going on, and the line where it stands.
    bool Walking() const { return at < lines.size(); }
    std::size_t Place() const { return at; }
    // What was there when the walk began; that is where it ends when it comes behind the newest line.
    const CString& Typed() const { return typed; }

    struct Rules {
        bool caseCounts = false;
        bool wraps = true;
    };
    // The next line upwards or downwards that begins as the text did when the walk began and differs from
    // the present one. Behind the newest stands the text itself. Null when there is none further.
    const CString* Older(std::u16string_view present, std::size_t prefix, const Rules& rules);
    const CString* Newer(std::u16string_view present, std::size_t prefix, const Rules& rules);
    void StandAt(std::size_t place, std::u16string_view present);
    void EndWalk() { at = CString::npos; }
    // The line at the place of the walk goes.
    void RemovePresent();

    // The newest line that begins with the text and goes on behind it; null when there is none. Quick when
    // the text is that of the last question with a character more.
    const CString* Suggest(std::u16string_view text, bool caseCounts);

private:
    bool Matches(std::size_t line, std::u16string_view present, const Rules& rules) const;

    std::vector<CString> lines;
    std::vector<char16_t> firstUnits; // of each line, in lower case
    bool taken = false;
    std::size_t at = CString::npos;
    CString typed;
    std::size_t prefixLength = 0;
    // The last answer and how long the text was that it was given for; lines.size() when there was none.
    std::size_t answered = 0;
    std::size_t askedLength = 0;
    bool askedBefore = false;
    CString unknown; // a text that no line goes on from
};
