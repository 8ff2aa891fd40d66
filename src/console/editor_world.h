// What the line editor asks of the shell around it. Pure; the real one stands in console/prompt_line.cpp,
// tests make one up.
#pragma once

#include <cstddef>
#include <optional>
#include <string_view>
#include <utility>
#include <vector>

#include "config/key_functions.h"
#include "console/completion_source.h"
#include "console/editor_console.h"
#include "core/alias_extras.h"
#include "text/cstring.h"
#include "text/syntax.h"

struct EditorSettings {
    bool overstrike = false;
    int cursorIns = 100; // percent
    int cursorOver = 15;
    bool copyPrompt = false;
    bool escResetHistory = false;
    bool histCase = false;
    bool histCopy = false;
    bool histMove = false;
    bool histWrap = true;
    bool maintainIndent = true;
    bool completionLoops = false;
    bool appendCommandLines = false;
    bool syntaxColors = false;   // and suggestions
    unsigned textColors = 0;     // 0: those of the screen
    unsigned selectedColors = 0; // 0: the text's, exchanged
    unsigned suggestionColors = 8;
    CString normalKeys; // keys that are not looked up, parted by blanks
};

// What the window can be asked to do.
enum class WindowChange { HeightMax, HeightMin, WidthMax, WidthMin, FontMax, FontMin, Up, Down, Left, Right };

enum class LinePartKind {
    Plain,
    Command,
    Alias,
    Comment,
    Label,
    Operator,
    LocalVariable,
    Environment,
    Internal,
    Text, // in quotes
    Regex,
    Error,
};

enum class PickFrom { Candidates, History, Directories };

struct PickRequest {
    PickFrom from = PickFrom::Candidates;
    std::vector<CString> lines;
    std::vector<CString> notes = {}; // beside the lines; none, or one for each
    std::size_t start = 0;
    CString filter = {}; // counts as typed in the window already
};

struct LinePick {
    std::size_t chosen = 0; // behind the last line when none was
    CString text;           // of the line, as it has been edited
    bool edits = false;     // the line is to be edited before it runs
    std::vector<std::size_t> deleted;
    std::vector<std::pair<std::size_t, CString>> changed;
};

class EditorWorld {
public:
    virtual ~EditorWorld() = default;

    virtual const KeyBindings& Bindings() = 0;
    virtual std::optional<KeyAlias> AliasOfKey(std::u16string_view key) = 0;
    virtual void NoteOverstrike(bool overstrike) = 0; // it was switched by a key

    // Oldest first.
    virtual std::vector<CString> History(bool directories) = 0;
    virtual void SaveInHistory(std::u16string_view line) = 0;
    virtual void DeleteFromHistory(bool directories, std::u16string_view line) = 0; // the newest equal one
    virtual void ReplaceInHistory(bool directories, std::u16string_view line, std::u16string_view by) = 0;
    virtual void PrintHistory() = 0;

    // Errors are reported on the screen; false then.
    virtual bool ExpandAliasesIn(CString& line) = 0;
    virtual bool ExpandVariablesIn(CString& line) = 0;
    virtual std::vector<CString> ArgumentsOf(std::u16string_view line) = 0;

    virtual CompletionSource& Completion() = 0;
    // Lets a person pick one of the lines in a window, where those of a history may be deleted and changed.
    virtual std::optional<LinePick> Pick(EditorConsole& console, const PickRequest& request) = 0;
    // The same with the extended history, which takes care of itself: nothing when it has no lines, and no
    // text when none was picked.
    virtual std::optional<LinePick> PickExtended(EditorConsole& console, std::u16string_view filter) = 0;
    // A file or directory from a dialog; empty when none was chosen.
    virtual CString Browse(bool directory) = 0;

    virtual void ShowHelp(std::u16string_view line, std::size_t cursor) = 0;
    // Says that what a key function opens cannot be opened.
    virtual void ReportUnbuilt(std::u16string_view keyFunction, bool isDialog) = 0;
    virtual bool ChangeWindow(WindowChange change) = 0; // false when it cannot be done

    virtual Syntax CommandSyntax() = 0;
    virtual std::uint8_t ColorsOf(LinePartKind kind) = 0; // 0 for none of its own
    virtual LinePartKind KindOfCommand(std::u16string_view name) = 0;
};
