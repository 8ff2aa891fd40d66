// The line that is being expanded, as two halves with a gap between them: what is done and what is yet to be
// scanned.
//
// References stand at the front of the unscanned half and are replaced there, so that each replacement costs
// the length of its value and not the length of the line. Views of a half are valid until the next change.
#pragma once

#include <cstddef>
#include <string_view>

class WorkLine {
public:
    explicit WorkLine(std::u16string_view text) { Reset(text); }
    ~WorkLine();
    WorkLine(const WorkLine&) = delete;
    WorkLine& operator=(const WorkLine&) = delete;

    void Reset(std::u16string_view text); // nothing done yet; `text` may be part of this line
    std::u16string_view Done() const { return {buffer, doneEnd}; }
    std::u16string_view Rest() const { return {buffer + restBegin, capacity - restBegin}; }
    std::size_t Length() const { return doneEnd + capacity - restBegin; }

    void Keep(std::size_t units); // moves the front of the rest to what is done
    void Drop(std::size_t units) { restBegin += units; }
    void Add(std::u16string_view text);     // behind what is done
    void PutBack(std::u16string_view text); // in front of the rest
    std::u16string_view All();              // moves everything to what is done

private:
    void MakeRoom(std::size_t units);

    static constexpr std::size_t inlineUnits = 600;
    char16_t inlineBuffer[inlineUnits];
    char16_t* buffer = inlineBuffer;
    std::size_t capacity = inlineUnits;
    std::size_t doneEnd = 0;
    std::size_t restBegin = inlineUnits;
};
