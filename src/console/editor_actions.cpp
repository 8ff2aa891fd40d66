#include "console/editor_actions.h"

#include <array>

#include "engine/tables.h"

namespace {

struct ActionRow {
    const char16_t* name;
    EditorAction action;
};

// clang-format off
constexpr ActionRow actionRows[] = {
    {u"AddFile", AddFile},
    {u"AliasExpand", AliasExpand},
    {u"ArgLeft", ArgLeft},
    {u"ArgRight", ArgRight},
    {u"Argument0", Argument0},
    {u"Argument1", Argument1},
    {u"Argument2", Argument2},
    {u"Argument3", Argument3},
    {u"Argument4", Argument4},
    {u"Argument5", Argument5},
    {u"Argument6", Argument6},
    {u"Argument7", Argument7},
    {u"Argument8", Argument8},
    {u"Argument9", Argument9},
    {u"Backspace", Backspace},
    {u"BeginLine", BeginLine},
    {u"CommandDialog", CommandDialog},
    {u"CommandEscape", CommandEscape},
    {u"ConsoleHeightMax", ConsoleHeightMax},
    {u"ConsoleHeightMin", ConsoleHeightMin},
    {u"ConsoleWidthMax", ConsoleWidthMax},
    {u"ConsoleWidthMin", ConsoleWidthMin},
    {u"Copy", Copy},
    {u"Del", Del},
    {u"DelArgLeft", DelArgLeft},
    {u"DelArgRight", DelArgRight},
    {u"DelHistory", DelHistory},
    {u"DelToBeginning", DelToBeginning},
    {u"DelToEnd", DelToEnd},
    {u"DelWordLeft", DelWordLeft},
    {u"DelWordRight", DelWordRight},
    {u"DirectoryCompletion", DirectoryCompletion},
    {u"DirWinOpen", DirWinOpen},
    {u"EndHistory", EndHistory},
    {u"EndLine", EndLine},
    {u"EraseLine", EraseLine},
    {u"ExecLine", ExecLine},
    {u"FileBrowse", FileBrowse},
    {u"FolderBrowse", FolderBrowse},
    {u"FontMax", FontMax},
    {u"FontMin", FontMin},
    {u"HelpWord", HelpWord},
    {u"HistWinOpen", HistWinOpen},
    {u"Ins", Ins},
    {u"LastHistory", LastHistory},
    {u"Left", Left},
    {u"LFNToggle", LFNToggle},
    {u"LineToEnd", LineToEnd},
    {u"MoveConsoleDown", MoveConsoleDown},
    {u"MoveConsoleLeft", MoveConsoleLeft},
    {u"MoveConsoleRight", MoveConsoleRight},
    {u"MoveConsoleUp", MoveConsoleUp},
    {u"NextDirHistory", NextDirHistory},
    {u"NextFile", NextFile},
    {u"NextHistory", NextHistory},
    {u"OriginalFile", OriginalFile},
    {u"ParentDirectory", ParentDirectory},
    {u"Paste", Paste},
    {u"PATHCompletion", PATHCompletion},
    {u"PopFile", PopFile},
    {u"PrevArgument", PrevArgument},
    {u"PrevDirHistory", PrevDirHistory},
    {u"PrevFile", PrevFile},
    {u"PrevHistory", PrevHistory},
    {u"PrintHistory", PrintHistory},
    {u"Redo", Redo},
    {u"Regex", Regex},
    {u"RepeatArgument", RepeatArgument},
    {u"RepeatFile", RepeatFile},
    {u"Right", Right},
    {u"SaveHistory", SaveHistory},
    {u"SelectFromHome", SelectFromHome},
    {u"SelectLeft", SelectLeft},
    {u"SelectRight", SelectRight},
    {u"SelectToEnd", SelectToEnd},
    {u"SelectWordLeft", SelectWordLeft},
    {u"SelectWordRight", SelectWordRight},
    {u"SingleStep", SingleStep},
    {u"Undo", Undo},
    {u"VariableExpand", VariableExpand},
    {u"VariableExpandWord", VariableExpandWord},
    {u"WordLeft", WordLeft},
    {u"WordRight", WordRight},
    {u"XHistWinOpen", XHistWinOpen},
};
// clang-format on

constexpr int nActions = static_cast<int>(std::size(actionRows));
static_assert(IsSortedByName(actionRows, nActions));

using Actions = std::array<EditorAction, nKeyFunctions>;

Actions MatchActions()
{
    Actions actions{};
    for (std::size_t i = 0; i < nKeyFunctions; ++i)
        if (const int row = FindRow(actionRows, nActions, aKeyFunctions[i].name); row >= 0)
            actions[i] = actionRows[row].action;
    return actions;
}

} // namespace

EditorAction ActionOfKeyFunction(int function)
{
    static const Actions actions = MatchActions();
    return actions[static_cast<std::size_t>(function)];
}
