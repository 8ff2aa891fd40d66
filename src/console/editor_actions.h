// The key functions of the line editor, each by the name that it has in config/key_functions.h. Pure.
#pragma once

#include "console/line_editor.h"

// Motions and selections: editor_motions.cpp
void ArgLeft(LineEditor& editor);
void ArgRight(LineEditor& editor);
void BeginLine(LineEditor& editor);
void EndLine(LineEditor& editor);
void Left(LineEditor& editor);
void Right(LineEditor& editor);
void WordLeft(LineEditor& editor);
void WordRight(LineEditor& editor);
void SelectFromHome(LineEditor& editor);
void SelectLeft(LineEditor& editor);
void SelectRight(LineEditor& editor);
void SelectToEnd(LineEditor& editor);
void SelectWordLeft(LineEditor& editor);
void SelectWordRight(LineEditor& editor);

// Changes of the text: editor_changes.cpp
void Backspace(LineEditor& editor);
void Del(LineEditor& editor);
void DelArgLeft(LineEditor& editor);
void DelArgRight(LineEditor& editor);
void DelToBeginning(LineEditor& editor);
void DelToEnd(LineEditor& editor);
void DelWordLeft(LineEditor& editor);
void DelWordRight(LineEditor& editor);
void EraseLine(LineEditor& editor);
void Ins(LineEditor& editor);
void Undo(LineEditor& editor);
void Redo(LineEditor& editor);
void Copy(LineEditor& editor);
void Paste(LineEditor& editor);
void CommandEscape(LineEditor& editor);
void AliasExpand(LineEditor& editor);
void VariableExpand(LineEditor& editor);
void VariableExpandWord(LineEditor& editor);
void RepeatArgument(LineEditor& editor);

// The histories: editor_history.cpp
void DelHistory(LineEditor& editor);
void EndHistory(LineEditor& editor);
void HistWinOpen(LineEditor& editor);
void LastHistory(LineEditor& editor);
void LineToEnd(LineEditor& editor);
void NextHistory(LineEditor& editor);
void PrevHistory(LineEditor& editor);
void PrintHistory(LineEditor& editor);
void SaveHistory(LineEditor& editor);
void PrevArgument(LineEditor& editor);
void Argument0(LineEditor& editor);
void Argument1(LineEditor& editor);
void Argument2(LineEditor& editor);
void Argument3(LineEditor& editor);
void Argument4(LineEditor& editor);
void Argument5(LineEditor& editor);
void Argument6(LineEditor& editor);
void Argument7(LineEditor& editor);
void Argument8(LineEditor& editor);
void Argument9(LineEditor& editor);
void DirWinOpen(LineEditor& editor);
void XHistWinOpen(LineEditor& editor);
void NextDirHistory(LineEditor& editor);
void PrevDirHistory(LineEditor& editor);

// Completion: editor_completion.cpp
void AddFile(LineEditor& editor);
void DirectoryCompletion(LineEditor& editor);
void FileBrowse(LineEditor& editor);
void FolderBrowse(LineEditor& editor);
void LFNToggle(LineEditor& editor);
void NextFile(LineEditor& editor);
void OriginalFile(LineEditor& editor);
void ParentDirectory(LineEditor& editor);
void PATHCompletion(LineEditor& editor);
void PopFile(LineEditor& editor);
void PrevFile(LineEditor& editor);
void RepeatFile(LineEditor& editor);

// The window: editor_window.cpp
void ConsoleHeightMax(LineEditor& editor);
void ConsoleHeightMin(LineEditor& editor);
void ConsoleWidthMax(LineEditor& editor);
void ConsoleWidthMin(LineEditor& editor);
void FontMax(LineEditor& editor);
void FontMin(LineEditor& editor);
void MoveConsoleDown(LineEditor& editor);
void MoveConsoleLeft(LineEditor& editor);
void MoveConsoleRight(LineEditor& editor);
void MoveConsoleUp(LineEditor& editor);

// The line as a whole: editor_window.cpp
void HelpWord(LineEditor& editor);
void CommandDialog(LineEditor& editor);
void Regex(LineEditor& editor);
void SingleStep(LineEditor& editor);
