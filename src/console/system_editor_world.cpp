#include "console/system_editor_world.h"

#include <algorithm>
#include <utility>

#include "console/history.h"
#include "console/popup_style.h"
#include "core/command_lookup.h"
#include "engine/command_entry.h"
#include "engine/console_entry.h"
#include "engine/expansion_entry.h"
#include "engine/help_entry.h"
#include "engine/inifile.h"
#include "engine/results.h"
#include "engine/state.h"
#include "platform/console.h"
#include "platform/console_window.h"
#include "platform/dialogs.h"
#include "text/words.h"

namespace {

namespace editMode = choice::editMode;

bool IsInit(SettingChoice mode) { return mode == editMode::initInsert || mode == editMode::initOverstrike; }

// Where a setting gives no colour: bright names on the screen's own background.
struct PartColors {
    LinePartKind kind;
    SettingColor INIFILE::*setting;
    std::uint8_t usual; // foreground
};
constexpr PartColors partColors[] = {
    {LinePartKind::Command, &INIFILE::SCCommand, 14},
    {LinePartKind::Alias, &INIFILE::SCAlias, 10},
    {LinePartKind::Comment, &INIFILE::SCComment, 2},
    {LinePartKind::Label, &INIFILE::SCLabel, 13},
    {LinePartKind::Operator, &INIFILE::SCOperator, 12},
    {LinePartKind::LocalVariable, &INIFILE::SCLocalVar, 11},
    {LinePartKind::Environment, &INIFILE::SCEnvironment, 11},
    {LinePartKind::Internal, &INIFILE::SCInternalVar, 9},
    {LinePartKind::Text, &INIFILE::SCDefault, 3},
};
constexpr std::uint8_t errorColors = 12;

// A higher or lower font, as far as the console has one that changes.
void ScaleFont(int pixels)
{
    constexpr int lowest = 5;
    constexpr int highest = 72;
    std::optional<ConsoleFont> font = ReadConsoleFont();
    if (!font)
        return;
    font->height = std::clamp(font->height + pixels, lowest, highest);
    font->width = 0; // follows
    SetConsoleFont(*font);
}

} // namespace

EditorSettings CurrentEditorSettings()
{
    EditorSettings settings;
    settings.overstrike =
        aIniFile.EditMode == editMode::overstrike || aIniFile.EditMode == editMode::initOverstrike;
    settings.cursorIns = aIniFile.CursorIns;
    settings.cursorOver = aIniFile.CursorOver;
    settings.copyPrompt = aIniFile.CopyPrompt;
    settings.escResetHistory = aIniFile.EscResetHistory;
    settings.histCase = aIniFile.HistCase;
    settings.histCopy = aIniFile.HistCopy;
    settings.histMove = aIniFile.HistMove;
    settings.histWrap = aIniFile.HistWrap;
    settings.completionLoops = aIniFile.FileCompletionLooping;
    settings.appendCommandLines = aIniFile.AppendCommandLines;
    settings.syntaxColors = aIniFile.SyntaxColors;
    settings.textColors =
        aIniFile.SyntaxColors && aIniFile.SCDefault ? aIniFile.SCDefault : aIniFile.InputColors;
    settings.selectedColors = aIniFile.SelectedColors;
    settings.normalKeys = CString(aIniFile.NormalKey);
    return settings;
}

std::optional<KeyAlias> SystemEditorWorld::AliasOfKey(std::u16string_view key) { return FindKeyAlias(key); }

// A mode that is not just one to begin with stays for the lines to come.
void SystemEditorWorld::NoteOverstrike(bool overstrike)
{
    if (!IsInit(aIniFile.EditMode))
        aIniFile.EditMode = overstrike ? editMode::overstrike : editMode::insert;
}

std::vector<CString> SystemEditorWorld::History(bool directories)
{
    return HistoryLines({directories ? ListKind::DirHistory : ListKind::History, {}});
}

void SystemEditorWorld::SaveInHistory(std::u16string_view line)
{
    CString saved(line);
    AddToHistory(saved, true);
}

void SystemEditorWorld::DeleteFromHistory(bool directories, std::u16string_view line)
{
    DeleteHistoryLine({directories ? ListKind::DirHistory : ListKind::History, {}}, line);
}

void SystemEditorWorld::PrintHistory() { Command_S(u"*history", 0); }

bool SystemEditorWorld::ExpandAliasesIn(CString& line) { return ExpandAliases(line) == result::success; }

bool SystemEditorWorld::ExpandVariablesIn(CString& line)
{
    return VariableExpansion(line, true) == result::success;
}

std::vector<CString> SystemEditorWorld::ArgumentsOf(std::u16string_view line)
{
    return SplitArguments(line, false, CurrentSyntax());
}

CompletionSource& SystemEditorWorld::Completion() { return completion; }

std::optional<LinePick> SystemEditorWorld::Pick(EditorConsole& console, const std::vector<CString>& lines,
                                                std::size_t start, bool history)
{
    PopupRequest popup = UsualPopup();
    popup.lines = lines;
    popup.chosen = start;
    popup.mayDelete = popup.mayEdit = history;
    PopupResult picked = RunPopupList(console, std::move(popup));
    LinePick pick;
    pick.chosen = picked.action == PopupAction::Cancelled ? lines.size() : picked.line;
    pick.edits = picked.action == PopupAction::ToCommandLine;
    pick.text = std::move(picked.text);
    pick.deleted = std::move(picked.deleted);
    return pick;
}

CString SystemEditorWorld::Browse(bool directory)
{
    const CString picked = directory ? PickFolder({}, {}) : PickFile({}, u"*");
    return picked.empty() ? picked : AddQuotes(picked);
}

void SystemEditorWorld::ShowHelp(std::u16string_view line, std::size_t cursor)
{
    ShowHelpForPlace(line, cursor);
}

void SystemEditorWorld::ChangeWindow(WindowChange change)
{
    constexpr int shift = 16; // pixels
    constexpr int fontStep = 2;
    switch (change) {
    case WindowChange::HeightMax: ResizeConsoleWindow(0, largestWindow); break;
    case WindowChange::HeightMin: ResizeConsoleWindow(0, 1); break;
    case WindowChange::WidthMax: ResizeConsoleWindow(largestWindow, 0); break;
    case WindowChange::WidthMin: ResizeConsoleWindow(1, 0); break;
    case WindowChange::FontMax: ScaleFont(fontStep); break;
    case WindowChange::FontMin: ScaleFont(-fontStep); break;
    case WindowChange::Up: ShiftConsoleWindow(0, -shift); break;
    case WindowChange::Down: ShiftConsoleWindow(0, shift); break;
    case WindowChange::Left: ShiftConsoleWindow(-shift, 0); break;
    case WindowChange::Right: ShiftConsoleWindow(shift, 0); break;
    }
}

Syntax SystemEditorWorld::CommandSyntax() { return CurrentSyntax(); }

std::uint8_t SystemEditorWorld::ColorsOf(LinePartKind kind)
{
    for (const PartColors& part : partColors)
        if (part.kind == kind) {
            const SettingColor set = aIniFile.*part.setting;
            return static_cast<std::uint8_t>(set ? set : part.usual);
        }
    return kind == LinePartKind::Error ? errorColors : 0;
}

LinePartKind SystemEditorWorld::KindOfCommand(std::u16string_view name)
{
    const auto [known, isNew] = kinds.try_emplace(std::u16string(name), LinePartKind::Plain);
    if (!isNew)
        return known->second;
    CString value;
    if (GetAlias(name, value))
        known->second = LinePartKind::Alias;
    else if (std::size_t end = 0; FindInternalCommand(name, false, nullptr, &end) >= 0 && end == name.size())
        known->second = LinePartKind::Command;
    return known->second;
}
