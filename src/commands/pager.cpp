#include "commands/pager.h"

#include <algorithm>

#include "engine/break.h"
#include "engine/console_entry.h"
#include "engine/output.h"
#include "engine/results.h"
#include "lang/messages.h"

Pager::Pager(bool pauses)
{
    if (pauses && IsConsole(1))
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
        MakeRoom(text.substr(0, text.find_last_not_of(u"\r\n") + 1).size());
}

// Waits before a line that would push the first one of this screen out of sight.
void Pager::MakeRoom(std::size_t length)
{
    const int columns = std::max(1, screen.columns);
    const int needed = std::max(1, (static_cast<int>(length) + columns - 1) / columns);
    if (rows > 0 && rows + needed >= screen.rows) {
        Print(LoadMessage(message::pressKey));
        WaitForKey();
        Print(u"\r\n");
        rows = 0;
    }
    rows += needed;
}
