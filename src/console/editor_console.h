// The console as the line editor and everything else sees it that draws on it and reads single keys: popup
// lists, the viewer. Pure; whoever draws takes an EditorConsole, so that tests can pass one in memory
// (tests/unit/fake_console.h). The real one is SystemEditorConsole of console/system_console.h.
//
// Places are those of the screen buffer, counted from 0, of which the window shows a part. Colours are
// background x 16 + foreground. A character takes as many cells as CellWidth of text/cell_width.h says.
#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string_view>
#include <vector>

#include "platform/console_keys.h"
#include "text/cstring.h"

struct ScreenPlace {
    int row = 0;
    int column = 0;
    friend bool operator==(const ScreenPlace&, const ScreenPlace&) = default;
};

struct ScreenExtent {
    int columns = 80; // of the buffer: where its rows end
    int rows = 25;    // of the buffer
    int top = 0;      // of the window
    int left = 0;
    int windowRows = 25;
    int windowColumns = 80;
    friend bool operator==(const ScreenExtent&, const ScreenExtent&) = default;
};

struct ScreenArea {
    int top = 0;
    int left = 0;
    int rows = 0;
    int columns = 0;
};

struct ScreenCell {
    char16_t unit = u' ';
    unsigned attributes = 7;
    friend bool operator==(const ScreenCell&, const ScreenCell&) = default;
};

enum class ConsoleEventKind {
    None, // the console is gone
    TimedOut,
    Key,
    Press, // a button of the mouse; only while WatchMouse is on
    Wheel, // the same
    Resized
};
struct ConsoleEvent {
    ConsoleEventKind kind = ConsoleEventKind::None;
    KeyPress key; // NameOfKey of console/key_press_names.h tells its name
    MousePress press;
    int wheel = 0; // notches; above 0 away from the person, that is upwards
};

class EditorConsole {
public:
    virtual ~EditorConsole() = default;

    // Breaks are thrown from here, behind a call of `beforeBreak`, which may put the screen in order. Without
    // a time it waits for ever.
    virtual ConsoleEvent Wait(std::optional<std::uint64_t> milliseconds = std::nullopt) = 0;
    std::function<void()> beforeBreak;
    // For whoever reads the key Ctrl-C: the same as a break that comes by itself. Comes back when breaks are
    // switched off.
    virtual void Break() = 0;
    // The event that waits to be read, which goes on waiting; of kind TimedOut when none does.
    virtual ConsoleEvent Peek() = 0;
    // Waits so long for an event to read; false when none has come.
    virtual bool Await(std::uint64_t milliseconds) = 0;
    // How many events wait to be read, about: above 0 there is no need to draw yet.
    virtual std::size_t Waiting() = 0;
    // While lent, others may write on the console and read from it as usual; nothing else here is called
    // then.
    virtual void Lend(bool lent) = 0;
    virtual void WatchMouse(bool on) = 0;

    virtual ScreenExtent Extent() = 0;
    virtual ScreenPlace Cursor() = 0;
    virtual void PlaceCursor(ScreenPlace place) = 0; // the window follows it
    virtual void ShapeCursor(int percent) = 0;       // its height; 0 hides it, below 0 nothing is changed
    virtual int CursorShape() = 0;                   // the same
    virtual unsigned Attributes() = 0;               // of text to come

    // Characters from a place on, at most to the end of the row. Control characters must not be among them.
    // The cursor may be anywhere afterwards.
    virtual void WriteRun(ScreenPlace place, std::u16string_view text, unsigned attributes) = 0;
    // Text at the cursor as any program writes it, escape sequences, line ends and all.
    virtual void WriteText(std::u16string_view text) = 0;
    // Sees to it that the row is there, in the buffer and in the window. Answers by how many rows that has
    // moved up everything on the screen; the row asked for is so many rows higher, too.
    virtual int MakeRoom(int row) = 0;

    // Cells row by row, to put back what a popup has covered.
    virtual std::vector<ScreenCell> ReadCells(const ScreenArea& area) = 0;
    virtual void WriteCells(const ScreenArea& area, const std::vector<ScreenCell>& cells) = 0;

    virtual std::optional<CString> ReadClipboard() = 0; // nothing when it holds no text
    virtual bool WriteClipboard(std::u16string_view text) = 0;
    virtual void Beep() = 0;
};
