// What stands on the console's screen; empty without a console. Rows and columns count from 0 in the part of
// the buffer that is shown.
#include "functions/families.h"

#include <windows.h>

#include "functions/arguments.h"
#include "functions/file_answers.h"
#include "lang/errors.h"
#include "platform/console.h"

namespace {

constexpr std::int64_t longestText = 32767; // cells

struct CellArguments {
    int column = 0;
    int row = 0;
    int count = 1;
};

// Reads "row,column[,length]"; 0, or what is to be answered. The place must be on the screen.
int ReadCells(FunctionCall& call, std::u16string_view pattern, CellArguments& cells)
{
    const FunctionArguments arguments(call, pattern);
    if (arguments.Error())
        return arguments.Error();
    const auto screen = ReadScreenFacts();
    if (!screen)
        return answer::ForeignText(call, {});
    const std::int64_t row = arguments.Number(0);
    const std::int64_t column = arguments.Number(1);
    const std::int64_t length = arguments.Number(2, 1);
    if (row < 0 || row >= screen->windowRows || column < 0 || column >= screen->columns || length < 0 ||
        length > longestText)
        return Refuse(errors::invalidNumber);
    cells = {static_cast<int>(column) + screen->windowLeft, static_cast<int>(row) + screen->windowTop,
             static_cast<int>(length)};
    return 0;
}

} // namespace

// @readscr[row,column,length]: the characters that stand there; a long text goes on in the next rows.
int Readscr_Function(FunctionCall& call)
{
    CellArguments cells;
    if (const int error = ReadCells(call, u"nnn", cells))
        return error;
    return answer::ForeignText(call, ReadScreenText(cells.row, cells.column, cells.count));
}

// @readattrib[row,column]: the colours there, background x 16 + foreground.
int Readattrib_Function(FunctionCall& call)
{
    CellArguments cells;
    if (const int error = ReadCells(call, u"nn", cells))
        return error;
    return answer::Number(call, ReadScreenAttributes(cells.row, cells.column));
}

// @consoleb[row]: a whole row of the screen buffer, counted from its beginning, without blanks at its end.
int Consoleb_Function(FunctionCall& call)
{
    const FunctionArguments arguments(call, u"n");
    if (arguments.Error())
        return arguments.Error();
    const auto screen = ReadScreenFacts();
    if (!screen)
        return answer::ForeignText(call, {});
    const std::int64_t row = arguments.Number(0);
    if (row < 0 || row >= screen->rows)
        return Refuse(errors::invalidNumber);
    return answer::ForeignText(call,
                               ReadScreenText(static_cast<int>(row), 0, screen->columns).TrimRight(u" "));
}

// @font[n]: of the console's letters 0 the name, 1 the width, 2 the height, 3 the weight.
int Font_Function(FunctionCall& call)
{
    const FunctionArguments arguments(call, u"n");
    if (arguments.Error())
        return arguments.Error();
    const auto font = ReadConsoleFont();
    if (!font)
        return answer::ForeignText(call, {});
    switch (arguments.Number(0)) {
    case 0: return answer::ForeignText(call, font->name);
    case 1: return answer::Number(call, font->width);
    case 2: return answer::Number(call, font->height);
    case 3: return answer::Number(call, font->weight);
    default: return Refuse(errors::invalidNumber);
    }
}
