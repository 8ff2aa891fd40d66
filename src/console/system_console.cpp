#include "console/system_console.h"

#include <algorithm>

#include "engine/break.h"
#include "platform/clipboard.h"
#include "platform/clock.h"
#include "platform/console.h"

namespace {

constexpr unsigned greyOnBlack = 7;

// Leaves a wait before the break is acted on.
struct BreakWaits {};

ConsoleEvent KeyEvent(const KeyPress& key) { return {ConsoleEventKind::Key, key, {}, 0}; }

ConsoleEvent AsConsoleEvent(const RawEvent& event)
{
    switch (event.kind) {
    case RawEventKind::None: break;
    case RawEventKind::TimedOut: return {ConsoleEventKind::TimedOut, {}, {}, 0};
    case RawEventKind::Press: return {ConsoleEventKind::Press, {}, event.press, 0};
    case RawEventKind::Wheel: return {ConsoleEventKind::Wheel, {}, event.press, event.wheel};
    case RawEventKind::Resized: return {ConsoleEventKind::Resized, {}, {}, 0};
    case RawEventKind::Key: return KeyEvent(event.key);
    }
    return {};
}

} // namespace

SystemEditorConsole::~SystemEditorConsole()
{
    if (attributesBefore)
        SetTextAttributes(*attributesBefore);
}

ConsoleEvent SystemEditorConsole::Wait(std::optional<std::uint64_t> milliseconds)
{
    if (repeats > 0) {
        --repeats;
        return KeyEvent(repeated);
    }
    const RawEvent event = NextEvent(milliseconds);
    if (event.kind == RawEventKind::Key) {
        repeated = event.key;
        repeats = event.repeats - 1;
    }
    return AsConsoleEvent(event);
}

RawEvent SystemEditorConsole::NextEvent(std::optional<std::uint64_t> milliseconds)
{
    for (;;) {
        try {
            return ReadRawEvent(
                [] {
                    if (QueryBreak())
                        throw BreakWaits();
                },
                milliseconds);
        } catch (const BreakWaits&) {
            TakeBreak();
        }
    }
}

// Comes back when breaks are switched off.
void SystemEditorConsole::TakeBreak()
{
    if (beforeBreak)
        beforeBreak();
    ThrowIfBroken();
}

void SystemEditorConsole::Break()
{
    MarkBreak();
    TakeBreak();
}

ConsoleEvent SystemEditorConsole::Peek()
{
    if (repeats > 0)
        return KeyEvent(repeated);
    return AsConsoleEvent(PeekRawEvent());
}

bool SystemEditorConsole::Await(std::uint64_t milliseconds)
{
    const std::uint64_t end = Ticks() + milliseconds;
    while (Waiting() == 0) {
        const std::uint64_t now = Ticks();
        if (now >= end || !WaitForEvent(end - now))
            return false;
    }
    return true;
}

std::size_t SystemEditorConsole::Waiting() { return repeats + WaitingEvents(); }

void SystemEditorConsole::Lend(bool lent)
{
    if (!lent) {
        raw.emplace();
        return;
    }
    if (attributesBefore)
        SetTextAttributes(*attributesBefore);
    attributesBefore.reset();
    raw.reset();
}

void SystemEditorConsole::WatchMouse(bool on) { ::WatchMouse(on); }

ScreenExtent SystemEditorConsole::Extent()
{
    const auto facts = ReadScreenFacts();
    if (!facts)
        return {};
    return {facts->columns,    facts->rows,       facts->windowTop,
            facts->windowLeft, facts->windowRows, facts->windowColumns};
}

ScreenPlace SystemEditorConsole::Cursor()
{
    const auto facts = ReadScreenFacts();
    return facts ? ScreenPlace{facts->cursorRow, facts->cursorColumn} : ScreenPlace{};
}

void SystemEditorConsole::PlaceCursor(ScreenPlace place) { MoveCursor(place.row, place.column); }

void SystemEditorConsole::ShapeCursor(int percent) { SetCursorHeight(percent); }

int SystemEditorConsole::CursorShape() { return ReadCursorHeight(); }

unsigned SystemEditorConsole::Attributes()
{
    const auto facts = ReadScreenFacts();
    return facts ? facts->attributes & 0xFF : greyOnBlack;
}

void SystemEditorConsole::WriteRun(ScreenPlace place, std::u16string_view text, unsigned attributes)
{
    if (!attributesBefore)
        attributesBefore = Attributes();
    MoveCursor(place.row, place.column);
    WriteColored(text, attributes);
}

void SystemEditorConsole::WriteText(std::u16string_view text)
{
    if (attributesBefore)
        SetTextAttributes(*attributesBefore);
    WriteWrapped(text);
}

int SystemEditorConsole::MakeRoom(int row)
{
    const ScreenExtent extent = Extent();
    const int missing = std::max(0, row - (extent.rows - 1));
    if (missing > 0) {
        if (attributesBefore)
            SetTextAttributes(*attributesBefore);
        MoveCursor(extent.rows - 1, 0);
        WriteToConsole(CString(static_cast<std::size_t>(missing), u'\n'));
    } else if (row >= extent.top + extent.windowRows)
        MoveCursor(row, 0);
    return missing;
}

std::vector<ScreenCell> SystemEditorConsole::ReadCells(const ScreenArea& area)
{
    std::vector<ScreenCell> cells;
    for (const ConsoleCell& cell : ReadConsoleCells(area.top, area.left, area.rows, area.columns))
        cells.push_back({cell.unit, cell.attributes});
    return cells;
}

void SystemEditorConsole::WriteCells(const ScreenArea& area, const std::vector<ScreenCell>& cells)
{
    std::vector<ConsoleCell> written;
    written.reserve(cells.size());
    for (const ScreenCell& cell : cells)
        written.push_back({cell.unit, cell.attributes});
    WriteConsoleCells(area.top, area.left, area.rows, area.columns, written);
}

std::optional<CString> SystemEditorConsole::ReadClipboard()
{
    CString text;
    return ReadClipboardText(text) ? std::optional(text) : std::nullopt;
}

bool SystemEditorConsole::WriteClipboard(std::u16string_view text) { return WriteClipboardText(text); }

void SystemEditorConsole::Beep() { WriteToConsole(u"\a"); }
