// The characters of which lines and boxes are drawn on a text screen, and how they join.
//
// A character has arms in some of four directions; an axis is single or double as a whole, because no
// character mixes the two within one. A lone arm counts as the whole line.
#pragma once

enum class LineWeight { Single, Double };

namespace arm {
constexpr unsigned up = 1;
constexpr unsigned down = 2;
constexpr unsigned left = 4;
constexpr unsigned right = 8;
constexpr unsigned vertical = up | down;
constexpr unsigned horizontal = left | right;
} // namespace arm

struct LineArms {
    unsigned arms = 0; // none: no line
    LineWeight vertical = LineWeight::Single;
    LineWeight horizontal = LineWeight::Single;
};

LineArms ArmsOf(char16_t unit);
char16_t LineCharacter(const LineArms& line); // a blank for no arms

// What stands at a place when `line` is drawn over `unit`: the arms of both, of the latter those in `kept`;
// where they share an axis, `line` tells its weight.
char16_t JoinLine(const LineArms& line, char16_t unit, unsigned kept = arm::vertical | arm::horizontal);
