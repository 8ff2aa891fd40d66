// The places, colours and numbers that commands for the screen take, read from the front of their arguments.
//
// A place is a number from 0 in the part of the buffer that is shown, "+n" or "-n" from the cursor, or 999
// for the middle. What is refused has been reported.
#pragma once

#include <optional>
#include <string_view>

#include "platform/console.h"
#include "text/cstring.h"

struct PlaceArgument {
    enum class Kind { FromEdge, FromCursor, Centered };
    Kind kind = Kind::FromEdge;
    int value = 0;
};

class ScreenArguments {
public:
    explicit ScreenArguments(std::u16string_view arguments) : text(arguments) {}

    int TakePlace(PlaceArgument& place);
    int TakeNumber(int& number, int lowest, int highest);
    // A pair of colours, when one stands there.
    int TakeColors(std::optional<unsigned>& attributes);
    int TakeColor(std::optional<unsigned>& color);
    // A word, three letters of which are enough.
    bool TakeWord(std::u16string_view word);

    // What is left, without blanks in front and without quotes around all of it.
    CString Text() const;
    bool AtEnd() const;

private:
    std::u16string_view NextOne(std::size_t& end) const;

    std::u16string_view text;
};

// Columns and rows in the buffer. `length` is what stands there, for the middle; 0 and the place, or the
// result of a reported error when that is not on the screen.
int ResolveRow(const ScreenFacts& screen, const PlaceArgument& place, int length, int& row);
int ResolveColumn(const ScreenFacts& screen, const PlaceArgument& place, int length, int& column);
