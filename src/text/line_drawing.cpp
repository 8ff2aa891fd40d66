#include "text/line_drawing.h"

namespace {

// By vertical x 2 + horizontal weight.
struct LineRow {
    unsigned arms;
    const char16_t* characters;
};
constexpr LineRow rows[] = {
    {arm::vertical, u"││║║"},
    {arm::horizontal, u"─═─═"},
    {arm::down | arm::right, u"┌╒╓╔"},
    {arm::down | arm::left, u"┐╕╖╗"},
    {arm::up | arm::right, u"└╘╙╚"},
    {arm::up | arm::left, u"┘╛╜╝"},
    {arm::vertical | arm::right, u"├╞╟╠"},
    {arm::vertical | arm::left, u"┤╡╢╣"},
    {arm::down | arm::horizontal, u"┬╤╥╦"},
    {arm::up | arm::horizontal, u"┴╧╨╩"},
    {arm::vertical | arm::horizontal, u"┼╪╫╬"},
};

constexpr unsigned WithoutLoneArms(unsigned arms)
{
    if ((arms & arm::horizontal) == 0)
        return arms != 0 ? arm::vertical : 0;
    return (arms & arm::vertical) == 0 ? arm::horizontal : arms;
}

} // namespace

LineArms ArmsOf(char16_t unit)
{
    for (const LineRow& row : rows)
        for (unsigned weights = 0; weights < 4; ++weights)
            if (row.characters[weights] == unit)
                return {row.arms, weights & 2 ? LineWeight::Double : LineWeight::Single,
                        weights & 1 ? LineWeight::Double : LineWeight::Single};
    return {};
}

char16_t LineCharacter(const LineArms& line)
{
    const unsigned weights =
        static_cast<unsigned>(line.vertical) * 2 + static_cast<unsigned>(line.horizontal);
    for (const LineRow& row : rows)
        if (row.arms == WithoutLoneArms(line.arms))
            return row.characters[weights];
    return u' ';
}

char16_t JoinLine(const LineArms& line, char16_t unit, unsigned kept)
{
    const LineArms old = ArmsOf(unit);
    LineArms joined = line;
    joined.arms |= old.arms & kept;
    if ((line.arms & arm::vertical) == 0)
        joined.vertical = old.vertical;
    if ((line.arms & arm::horizontal) == 0)
        joined.horizontal = old.horizontal;
    return LineCharacter(joined);
}
