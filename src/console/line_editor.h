// The line editor: reads keys, performs the functions they are bound to, and shows the line. Pure.
//
// Each key function is a row of editor_actions.cpp with a function of its own; the functions stand in
// editor_*.cpp by what they do and work on a LineEditor.
#pragma once

#include <optional>
#include <string_view>
#include <vector>

#include "console/edit_text.h"
#include "console/editor_console.h"
#include "console/editor_world.h"
#include "console/history_recall.h"
#include "console/line_painter.h"

struct EditorRequest {
    CString prompt;                            // written at the cursor
    CString text;                              // to begin with
    std::size_t cursor = CString::npos;        // in it
    std::size_t longest = CString::npos;       // units
    std::vector<CString> accepted;             // characters; none means all
    std::optional<std::uint64_t> milliseconds; // until the first key; none waits for ever
    bool hidden = false;                       // stars are shown
    bool lineEnd = true;                       // the cursor goes to the next row at the end
    bool plainColors = false;                  // those of the screen
    bool command = true;                       // a line for the shell: it has a history
    bool clearsRow = true;                     // of a command: what is left over in the prompt's row goes
    std::size_t ranPlace = CString::npos;      // in the history, of the line before this one where it was
    CString ranLine;                           // recalled: Down goes on behind it
};

class LineEditor;
using EditorAction = void (*)(LineEditor&);
// What the row of aKeyFunctions does in the line editor; null when that is nothing.
EditorAction ActionOfKeyFunction(int function);
// Those that the line editor itself asks about.
void ExecLine(LineEditor& editor);

enum class EditorOutcome { Line, TimedOut, Ended, Break };

struct EditorAnswer {
    EditorOutcome outcome = EditorOutcome::Line;
    CString line;          // several ones are parted by line feeds
    bool recalled = false; // it stands in the history as it is, and is to be kept there where it is
    std::size_t place = CString::npos; // of a recalled line
    bool silent = false;               // the line of a key; what was edited is in `left`
    CString left;                      // to be edited next
    std::size_t leftCursor = 0;
};

class LineEditor {
public:
    LineEditor(EditorConsole& on, EditorWorld& around, const EditorSettings& with);

    // Reads a line. What Wait throws goes through, with the cursor behind the line.
    EditorAnswer Read(const EditorRequest& request);

    // For key functions.
    EditText text;
    EditorConsole& console;
    EditorWorld& world;
    EditorSettings settings;
    HistoryRecall recall;
    HistoryRecall directories;
    const EditorRequest* request = nullptr;

    void Finish(EditorOutcome outcome = EditorOutcome::Line);
    void Run(const CString& silentLine); // without touching what is edited
    void Beep() { console.Beep(); }
    void ShapeCursor();
    bool IsLast(EditorAction action) const { return lastAction == action; } // performed just before this one
    EditorAction Performing() const { return performing; }

    // For functions that write on the screen: the cursor goes to a fresh row; then the prompt and the line
    // come again.
    void LeaveLine();
    void ReturnToLine();
    void Redraw();
    // For those that open a window: keys that came together have been taken, but not shown.
    void Show(bool suggests = true);

    // What a completion is going through.
    struct Completing {
        CompletionOffer offer;
        CString original;
        std::size_t originalCursor = 0;
        std::size_t index = 0;
        std::size_t from = 0; // where the candidate stands in the line now
        std::size_t to = 0;
        std::size_t version = 0; // of the text behind the last step
        CompletionKind kind = CompletionKind::Files;
        bool shortNames = false;
        bool final = false; // the only candidate
    };
    std::optional<Completing> completing;
    CString lastCompleted;
    // The argument of an earlier line that PrevArgument has put in.
    struct PulledArgument {
        std::size_t back = 0; // lines
        std::size_t from = 0;
        std::size_t to = 0;
        std::size_t version = 0;
    };
    std::optional<PulledArgument> pulled;

    std::u16string_view Suggestion() const { return suggestion; }
    bool escapesNext = false; // the next key is taken as a character

private:
    void Take(const ConsoleEvent& event);
    void TakeKey(const KeyPress& key);
    void Perform(EditorAction action);
    bool TakeAlias(std::u16string_view key);
    void TypeUnit(char16_t unit);
    void TakeTyped();
    std::size_t LongestLine() const;
    bool Accepts(char16_t unit) const;
    bool IsNormalKey(std::u16string_view name) const;
    bool HasSeveralLines() const;
    bool IsInBurst(bool tab);
    bool EndsPasted(std::u16string_view key);
    void Suggest();
    void ShowFinished();

    LinePainter painter;
    LinePicture picture;
    CString suggestion;
    std::optional<EditorOutcome> outcome;
    EditorAnswer answer;
    EditorAction lastAction = nullptr;
    EditorAction performing = nullptr;
    CString unshown; // characters typed since the text was last brought up to date
    std::vector<ColorRun> colors;
    std::size_t coloredVersion = CString::npos; // of the text
    bool endedRow = false;                      // by a pasted Enter just now
    bool typedAhead = false;                    // the keys that come now were typed before the line began
    bool keptWaiting = false;                   // the same while a function was performed
    std::size_t burst = 0;                      // keys that came without a pause before them
};
