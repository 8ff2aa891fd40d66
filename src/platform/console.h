// The console that the process is attached to: its screen, colours, title and modes. Keys and
// lines are read in console_keys.h.
//
// Everything here speaks to the console itself, wherever the standard handles lead. Without a console,
// questions are answered with nothing and changes with false, the reason in the last error.
#pragma once

#include <optional>
#include <string_view>

#include "text/cstring.h"

// Found out once: a process keeps the console it was started with.
bool HasConsole();

bool WriteToConsole(std::u16string_view text);

// Places count from 0 and are those of the screen buffer, of which the window shows a part.
struct ScreenFacts {
    int columns = 0; // of the buffer
    int rows = 0;
    int windowTop = 0;
    int windowLeft = 0;
    int windowRows = 0;
    int windowColumns = 0;
    int cursorColumn = 0;
    int cursorRow = 0;
    unsigned attributes = 0; // of text to come: background x 16 + foreground
};
std::optional<ScreenFacts> ReadScreenFacts();

// `count` characters from a place of the buffer on, row after row; cut at the end of the buffer.
CString ReadScreenText(int row, int column, int count);
unsigned ReadScreenAttributes(int row, int column);

struct ConsoleFont {
    CString name;
    int width = 0; // pixels
    int height = 0;
    int weight = 0; // 400 as usual, 700 bold
};
std::optional<ConsoleFont> ReadConsoleFont();
// A width of 0 follows from the height. Windows takes another font for one that it does not have. False, too,
// for a console inside a terminal, which tells no height: the terminal has the font.
bool SetConsoleFont(const ConsoleFont& font);

// Colours of text to come.
bool SetTextAttributes(unsigned attributes);
// The same while this lives, then those of before; 0 changes nothing.
class PassingColors {
public:
    explicit PassingColors(unsigned attributes);
    ~PassingColors();
    PassingColors(const PassingColors&) = delete;
    PassingColors& operator=(const PassingColors&) = delete;

private:
    std::optional<unsigned> before;
};
// Colours of everything on the screen and of text to come.
bool PaintScreen(unsigned attributes);

enum class ScreenPart { Window, Buffer };
// Blanks the part and puts the cursor at its beginning.
bool ClearScreen(ScreenPart part);

CString ConsoleTitle();
bool ChangeConsoleTitle(const CString& title);

// Puts the modes back in which a typed line is read and text is written, whatever a program has left behind.
// `escapeSequences` tells whether text may hold them; answers whether the console understands them now.
bool ResetConsoleModes(bool escapeSequences);
