// A window of lines over the screen, of which a person picks one: histories, matching names, directories.
// Pure over EditorConsole; what the window has covered is put back in every case.
//
// Typing shows only the lines that hold all words typed so far, letter case aside; Backspace takes a letter
// back. Arrows, PgUp, PgDn, Home, End, Tab and the mouse move the bar, Left and Right the text of long lines.
// The keys of the functions PopupWin... and XHist... do what their names say, Esc leaves.
//
// In a search all lines are shown, and typing moves the bar upwards to a line that holds the words.
//
// A list with marks may answer many lines: Space and Ins change the mark of the line at the bar, "+" sets it
// and "-" takes it off, "*" changes the marks of all lines that are shown, "/" takes all off; the right
// button of the mouse marks, too.
#pragma once

#include <cstddef>
#include <functional>
#include <string_view>
#include <utility>
#include <vector>

#include "config/key_functions.h"
#include "console/editor_console.h"
#include "text/cstring.h"

struct PopupColors {
    unsigned text = 0x1F;
    unsigned frame = 0x1B;
    unsigned bar = 0x70;
};

// What stands in front of the lines and does not move sideways with them.
struct PopupLead {
    int cells = 0;
    std::function<CString(std::size_t line)> text; // asked for the lines in view only
};

struct PopupRequest {
    CString title;
    std::vector<CString> lines;
    std::vector<CString> notes; // shown in a column beside the lines; none, or one for each
    PopupLead lead;
    std::vector<CString> places; // looked through for what is typed, too; none, or one for each
    std::size_t chosen = 0;      // where the bar stands at first
    CString filter;              // as if it had been typed; left out when it fits no line
    bool names = false;          // the bar goes to a line that begins with what is typed
    unsigned keys = key_category::popup | key_category::consolePopup;
    bool mayDelete = false;
    bool mayEdit = false;   // on the command line
    bool mayChange = false; // in the window
    ScreenArea place;       // of the whole window in the console's; the largest that it may be
    PopupColors colors;
    CString plainKeys;  // keys that are taken for themselves, whatever is bound to them
    bool wheel = false; // the wheel of the mouse moves the bar
    bool marks = false;
    bool allMarked = false; // at first
    CString footer;         // shown at the foot while nothing is typed
};

enum class PopupAction {
    Cancelled,
    Selected,
    ToCommandLine, // for editing
};

struct PopupResult {
    PopupAction action = PopupAction::Cancelled;
    std::size_t line = 0;            // of the request
    CString text;                    // of the line, as edited
    std::vector<std::size_t> marked; // when something was picked: the marked lines, or the one at the bar
    std::vector<std::size_t> deleted;
    std::vector<std::pair<std::size_t, CString>> edited; // in the window
};

// Without lines, or without room for them, it answers at once that nothing was picked.
PopupResult RunPopupList(EditorConsole& console, PopupRequest request);

// How a text of unknown characters is shown in a number of cells: without the first `skipped` cells, cut and
// filled up with blanks; control characters become visible.
CString FitCells(std::u16string_view text, int cells, int skipped = 0);
