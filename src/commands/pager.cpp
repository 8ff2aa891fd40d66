#include "commands/pager.h"

#include <algorithm>

#include "console/key_input.h"
#include "engine/break.h"
#include "engine/output.h"
#include "engine/results.h"
#include "lang/console_messages.h"
#include "text/cell_width.h"

namespace {

// Keys by Windows' own numbers.
constexpr unsigned enterKey = 13;
constexpr unsigned escapeKey = 27;
constexpr unsigned qKey = 'Q';

} // namespace

Pager::Pager(bool pauses)
{
    if (pauses && IsConsole(0) && IsConsole(1))
        screen = OutputSize();
    else
        screen.rows = 0;
}

bool Pager::Line(std::u16string_view text) { return Piece(Format(u"%s\r\n", text)); }

bool Pager::Line(PaintedText line)
{
    Prepare(line.text);
    return Print(line.Append(u"\r\n"));
}

bool Pager::Piece(std::u16string_view text)
{
    Prepare(text);
    return Print(text);
}

void Pager::Prepare(std::u16string_view text)
{
    ThrowIfBroken();
    if (screen.rows > 0)
        MakeRoom(RowsOnScreen(text.substr(0, text.find_last_not_of(u"\r\n") + 1), screen.columns));
}

// Waits before a line that would push the first one of this screen out of sight.
void Pager::MakeRoom(int needed)
{
    const CString question = LoadMessage(message::morePages);
    const int questionWidth = TextWidth(question);
    const int room = screen.rows - RowsOnScreen(question, screen.columns);
    if (rows > 0 && rows + needed > room) {
        Print(question);
        const unsigned key = ReadKeyOrBreak().key.virtualKey;
        // The listing goes on where the question stood.
        Print(
            questionWidth < screen.columns
                ? CString(u"\r").Append(CString(static_cast<std::size_t>(questionWidth), u' ')).Append(u'\r')
                : CString(u"\r\n"));
        if (key == escapeKey || key == qKey)
            throw ListingLeft();
        rows = key == enterKey ? std::max(0, room - needed) : 0;
    }
    rows += needed;
}
