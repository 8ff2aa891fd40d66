#include "config/key_functions.h"

#include <algorithm>

#include "engine/tables.h"
#include "text/compare.h"

namespace {

using namespace key_category;

constexpr unsigned popups = popup | consolePopup;

} // namespace

// clang-format off
constexpr std::array<KeyFunctionRow, nKeyFunctions> aKeyFunctions = {{
    {u"AddFile", u"Keep the completed file name and add the next match", completion, u"F10"},
    {u"AliasExpand", u"Replace the aliases of the line by their values", editing, u"Ctrl-W"},
    {u"ArgLeft", u"Move to the beginning of the argument", editing, u"Ctrl-Alt-Left"},
    {u"ArgRight", u"Move behind the end of the argument", editing, u"Ctrl-Alt-Right"},
    {u"Argument0", u"Insert the name of the previous command", editing, u"Ctrl-0"},
    {u"Argument1", u"Insert argument 1 of the previous command", editing, u"Ctrl-1"},
    {u"Argument2", u"Insert argument 2 of the previous command", editing, u"Ctrl-2"},
    {u"Argument3", u"Insert argument 3 of the previous command", editing, u"Ctrl-3"},
    {u"Argument4", u"Insert argument 4 of the previous command", editing, u"Ctrl-4"},
    {u"Argument5", u"Insert argument 5 of the previous command", editing, u"Ctrl-5"},
    {u"Argument6", u"Insert argument 6 of the previous command", editing, u"Ctrl-6"},
    {u"Argument7", u"Insert argument 7 of the previous command", editing, u"Ctrl-7"},
    {u"Argument8", u"Insert argument 8 of the previous command", editing, u"Ctrl-8"},
    {u"Argument9", u"Insert argument 9 of the previous command", editing, u"Ctrl-9"},
    {u"Backspace", u"Delete the character to the left", editing, u"Backspace Ctrl-H"},
    {u"BeginLine", u"Move to the beginning of the line", editing, u"Home"},
    {u"CommandDialog", u"Open the dialog of the command on the line", editing, u"Alt-F2"},
    {u"CommandEscape", u"Take the next key as a character", editing, u"Alt-255"},
    {u"ConsoleHeightMax", u"Make the window as high as the screen", editing, u"Alt-Shift-PgDn"},
    {u"ConsoleHeightMin", u"Make the window as low as it can be", editing, u"Alt-Shift-PgUp"},
    {u"ConsoleWidthMax", u"Make the window as wide as the screen", editing, u"Alt-Shift-End"},
    {u"ConsoleWidthMin", u"Make the window as narrow as it can be", editing, u"Alt-Shift-Home"},
    {u"Copy", u"Copy the selected text, or the line, to the clipboard", editing, u"Ctrl-Y Ctrl-Ins"},
    {u"Del", u"Delete the character at the cursor", editing, u"Del"},
    {u"DelArgLeft", u"Delete the argument to the left", editing, u"Ctrl-Shift-L"},
    {u"DelArgRight", u"Delete the argument to the right", editing, u"Ctrl-Shift-R"},
    {u"DelHistory", u"Delete the recalled line from the history", editing, u"Ctrl-D"},
    {u"DelToBeginning", u"Delete to the beginning of the line", editing, u"Ctrl-Home"},
    {u"DelToEnd", u"Delete to the end of the line", editing, u"Ctrl-End"},
    {u"DelWordLeft", u"Delete the word to the left", editing, u"Ctrl-L Ctrl-Backspace"},
    {u"DelWordRight", u"Delete the word to the right", editing, u"Ctrl-R Ctrl-Del"},
    {u"DirectoryCompletion", u"Complete the name of a directory", completion, u"Ctrl-Shift-D"},
    {u"DirWinOpen", u"Open the directory history window", editing, u"Ctrl-PgUp Ctrl-PgDn F6"},
    {u"EndHistory", u"Go behind the newest line of the history", editing, u"Ctrl-E"},
    {u"EndLine", u"Move to the end of the line", editing, u"End"},
    {u"EraseLine", u"Erase the line", editing, u"Esc"},
    {u"ExecLine", u"Run the line", editing, u"Enter Ctrl-M"},
    {u"FileBrowse", u"Choose a file in a dialog and insert its name", completion, u"Ctrl-Shift-F"},
    {u"FolderBrowse", u"Choose a directory in a dialog and insert its name", completion, u"Ctrl-Shift-O"},
    {u"FontMax", u"Make the font larger", editing, u"Ctrl-Shift-Up"},
    {u"FontMin", u"Make the font smaller", editing, u"Ctrl-Shift-Down"},
    {u"HelpWord", u"Show help for the word at the cursor", editing, u"F1 Ctrl-F1"},
    {u"HistWinOpen", u"Open the command history window", editing, u"PgUp PgDn"},
    {u"Ins", u"Switch between inserting and overstriking", editing, u"Ins"},
    {u"LastHistory", u"Recall the rest of the previous line", editing, u"F3"},
    {u"Left", u"Move one character to the left", editing, u"Left"},
    {u"LFNToggle", u"Switch between long and short file names", completion, u"Ctrl-A"},
    {u"LineToEnd", u"Move the line to the end of the history and run it", editing, u"Ctrl-Enter"},
    {u"ListBack", u"Go back to the previous place", list, u"Backspace"},
    {u"ListBottom", u"Go to the end of the file", list, u"End"},
    {u"ListClipboard", u"Copy the page to the clipboard", list, u"Ctrl-C"},
    {u"ListContinue", u"Go on to the next file", list, u"C Ctrl-PgDn"},
    {u"ListDelete", u"Delete the file", list, u"Del"},
    {u"ListEdit", u"Edit the file", list, u"E"},
    {u"ListExit", u"Leave the viewer", list, u"Esc Q"},
    {u"ListFind", u"Find a text", list, u"F"},
    {u"ListFindNext", u"Find the next match", list, u"N F3"},
    {u"ListFindRegex", u"Find a regular expression", list, u"R"},
    {u"ListFindRegexReverse", u"Find a regular expression backwards", list, u"Ctrl-R"},
    {u"ListFindReverse", u"Find a text backwards", list, u"Ctrl-F"},
    {u"ListGoto", u"Go to a line or an offset", list, u"G"},
    {u"ListHelp", u"Show help", list, u"F1"},
    {u"ListHex", u"Switch the hexadecimal view", list, u"X"},
    {u"ListHighBit", u"Clear the high bit of each character", list, u"H"},
    {u"ListInfo", u"Show facts about the file", list, u"I"},
    {u"ListLineDown", u"Move down one line", list, u"Down"},
    {u"ListLineNumbers", u"Switch line numbers", list, u"L"},
    {u"ListLineUp", u"Move up one line", list, u"Up"},
    {u"ListOpen", u"Open another file", list, u"O"},
    {u"ListPageDown", u"Move down one page", list, u"PgDn Space"},
    {u"ListPageUp", u"Move up one page", list, u"PgUp"},
    {u"ListPrevious", u"Go back to the previous file", list, u"B Ctrl-PgUp"},
    {u"ListPrint", u"Print the file", list, u"P"},
    {u"ListRefresh", u"Read the file again", list, u"F5"},
    {u"ListTop", u"Go to the beginning of the file", list, u"Home"},
    {u"ListUnicode", u"Read the file as UTF-16", list, u"U"},
    {u"ListWrap", u"Switch wrapping of long lines", list, u"W"},
    {u"MoveConsoleDown", u"Move the window down", editing, u"Alt-Shift-Down"},
    {u"MoveConsoleLeft", u"Move the window to the left", editing, u"Alt-Shift-Left"},
    {u"MoveConsoleRight", u"Move the window to the right", editing, u"Alt-Shift-Right"},
    {u"MoveConsoleUp", u"Move the window up", editing, u"Alt-Shift-Up"},
    {u"NextDirHistory", u"Insert the next directory of the directory history", editing, u"Ctrl-Down"},
    {u"NextFile", u"Complete with the next matching name", completion, u"Tab F9"},
    {u"NextHistory", u"Recall the next line of the history", editing, u"Down"},
    {u"OriginalFile", u"Put back what was typed before completion", completion, u"Ctrl-Shift-Tab"},
    {u"ParentDirectory", u"Go on completing in the parent directory", completion, u"Ctrl-Shift-Home"},
    {u"Paste", u"Insert the text of the clipboard", editing, u"Ctrl-V Shift-Ins"},
    {u"PATHCompletion", u"Complete with the next match in the search path", completion, u"Ctrl-F9"},
    {u"PopFile", u"Choose among the matching names in a window", completion, u"F7 Ctrl-Tab"},
    {u"PopupWinDel", u"Delete the line from the list", popups, u"Ctrl-D"},
    {u"PopupWinEdit", u"Take the line to the command line for editing", popups, u"Ctrl-Enter"},
    {u"PopupWinEditWin", u"Edit the line in the window", popups, u"F2"},
    {u"PopupWinSelect", u"Take the line and run it", popups, u"Enter"},
    {u"PrevArgument", u"Insert the last argument of the previous command", editing, u"Ctrl-B"},
    {u"PrevDirHistory", u"Insert the previous directory of the directory history", editing, u"Ctrl-Up"},
    {u"PrevFile", u"Complete with the previous matching name", completion, u"F8 Shift-Tab"},
    {u"PrevHistory", u"Recall the previous line of the history", editing, u"Up"},
    {u"PrintHistory", u"Print the history", editing, u"Ctrl-P"},
    {u"Redo", u"Do again what was undone", editing, u"Ctrl-Shift-Y"},
    {u"Regex", u"Open the regular-expression analyser", editing, u"Ctrl-F7"},
    {u"RepeatArgument", u"Repeat the argument to the left", editing, u"Ctrl-T"},
    {u"RepeatFile", u"Repeat the completed file name", completion, u"F12"},
    {u"Right", u"Move one character to the right", editing, u"Right"},
    {u"SaveHistory", u"Save the line in the history without running it", editing, u"Ctrl-K"},
    {u"SelectFromHome", u"Select to the beginning of the line", editing, u"Shift-Home"},
    {u"SelectLeft", u"Select the character to the left", editing, u"Shift-Left"},
    {u"SelectRight", u"Select the character to the right", editing, u"Shift-Right"},
    {u"SelectToEnd", u"Select to the end of the line", editing, u"Shift-End"},
    {u"SelectWordLeft", u"Select the word to the left", editing, u"Ctrl-Shift-Left"},
    {u"SelectWordRight", u"Select the word to the right", editing, u"Ctrl-Shift-Right"},
    {u"SingleStep", u"Run the batch file on the line step by step", editing, u"Ctrl-F5"},
    {u"Undo", u"Undo the last change", editing, u"Ctrl-Shift-Z"},
    {u"VariableExpand", u"Replace the variables of the line by their values", editing, u"Ctrl-X"},
    {u"VariableExpandWord", u"Replace the variable at the cursor by its value", editing, u"Ctrl-Shift-X"},
    {u"WordLeft", u"Move one word to the left", editing, u"Ctrl-Left"},
    {u"WordRight", u"Move one word to the right", editing, u"Ctrl-Right"},
    {u"XHistDelete", u"Delete the line from the history", extendedHistory, u"Ctrl-D Del"},
    {u"XHistEdit", u"Take the line to the command line for editing", extendedHistory, u"Ctrl-Enter"},
    {u"XHistSearch", u"Search the extended history", extendedHistory, u"Ctrl-F"},
    {u"XHistWinOpen", u"Open the extended history window", editing, u"Ctrl-Shift-PgUp"},
}};
// clang-format on

static_assert(IsSortedByName(aKeyFunctions.data(), static_cast<int>(nKeyFunctions)));

KeyBindings aKeyBindings;

namespace {

constexpr std::size_t Index(int function) { return static_cast<std::size_t>(function); }

bool HoldsKey(std::u16string_view keys, std::u16string_view key)
{
    for (std::size_t at = 0; at < keys.size();) {
        const std::size_t end = std::min(keys.find_first_of(u" \t", at), keys.size());
        if (end > at && EqualNoCase(keys.substr(at, end - at), key))
            return true;
        at = end + 1;
    }
    return false;
}

} // namespace

const char16_t* KeyCategoryName(unsigned category)
{
    switch (category) {
    case editing: return u"Editing";
    case completion: return u"Tab Completion";
    case popup: return u"Popup Windows";
    case consolePopup: return u"Console Popup";
    case extendedHistory: return u"Extended History";
    case list: return u"LIST";
    default: return nullptr;
    }
}

int KeyBindings::Find(std::u16string_view name)
{
    return FindRow(aKeyFunctions.data(), static_cast<int>(nKeyFunctions), name);
}

std::u16string_view KeyBindings::Keys(int function) const
{
    return changed[Index(function)] ? keys[Index(function)].view() : aKeyFunctions[Index(function)].keys;
}

void KeyBindings::SetKeys(int function, std::u16string_view newKeys)
{
    keys[Index(function)] = newKeys;
    changed[Index(function)] = true;
}

void KeyBindings::Reset()
{
    changed.fill(false);
    keys.fill(CString());
}

void KeyBindings::Reset(int function)
{
    changed[Index(function)] = false;
    keys[Index(function)] = CString();
}

int KeyBindings::FindKeyFunction(unsigned categories, std::u16string_view key) const
{
    for (int function = 0; function < static_cast<int>(nKeyFunctions); ++function)
        if ((aKeyFunctions[Index(function)].category & categories) != 0 && HoldsKey(Keys(function), key))
            return function;
    return -1;
}
