#include "console/system_editor_world.h"

#include <algorithm>
#include <utility>

#include "console/extended_window.h"
#include "console/history.h"
#include "console/inner_commands.h"
#include "console/popup_style.h"
#include "core/command_lookup.h"
#include "core/separators.h"
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
#include "text/scanner.h"
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
    {LinePartKind::Regex, &INIFILE::SCRegex, 6},
};
constexpr std::uint8_t errorColors = 12;

// A higher or lower font, as far as the console has one that changes.
bool ScaleFont(int pixels)
{
    constexpr int lowest = 5;
    constexpr int highest = 72;
    std::optional<ConsoleFont> font = ReadConsoleFont();
    if (!font)
        return false;
    font->height = std::clamp(font->height + pixels, lowest, highest);
    font->width = 0; // follows
    return SetConsoleFont(*font);
}

// A "*" that keeps aliases away has to stay, or the line would mean something else.
bool ExpandCommandAliases(CString& command)
{
    bool& bypass = Tls().aliasBypass;
    const bool before = std::exchange(bypass, false);
    const int code = ExpandAliases(command);
    if (std::exchange(bypass, before))
        command.Insert(std::min(command.view().find_first_not_of(u" \t"), command.size()), u"*");
    return code == result::success;
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
    settings.maintainIndent = aIniFile.MaintainIndent;
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

void SystemEditorWorld::ReplaceInHistory(bool directories, std::u16string_view line, std::u16string_view by)
{
    ReplaceHistoryLine({directories ? ListKind::DirHistory : ListKind::History, {}}, line, by);
}

void SystemEditorWorld::PrintHistory() { Command_S(u"*history", 0); }

// The commands of the line and those inside them; what an alias stands for is not looked at again.
bool SystemEditorWorld::ExpandAliasesIn(CString& line)
{
    const Syntax syntax = CurrentSyntax();
    CString expanded;
    for (std::u16string_view rest = line; !rest.empty();) {
        const std::size_t begin = std::min(rest.find_first_not_of(u" \t()"), rest.size());
        const Separator stop = FindSeparator(rest, begin, CommandShape::Plain, syntax);
        const std::size_t closing = scan(rest, u")", quotes::bothAndParentheses, syntax, begin);
        const std::size_t end = std::min({stop.at, closing, rest.size()});
        CString command(rest.substr(begin, end - begin));
        if (!ExpandCommandAliases(command))
            return false;
        expanded.Append(rest.substr(0, begin));
        CommandStart taken;
        const CString whole = CString(rest.substr(0, end)) + u" "; // its last word does not touch the end
        if (command.view() == rest.substr(begin, end - begin) &&
            FindTakenCommand(whole, begin, syntax, taken)) {
            expanded.Append(rest.substr(begin, std::min(taken.at, end) - begin));
            rest.remove_prefix(std::min(taken.at, end));
            continue;
        }
        const std::size_t behind = end == stop.at ? stop.Behind() : end;
        expanded.Append(command).Append(rest.substr(end, behind - end));
        rest.remove_prefix(behind);
    }
    line = expanded;
    return true;
}

bool SystemEditorWorld::ExpandVariablesIn(CString& line)
{
    return VariableExpansion(line, true) == result::success;
}

std::vector<CString> SystemEditorWorld::ArgumentsOf(std::u16string_view line)
{
    return SplitArguments(line, false, CurrentSyntax());
}

CompletionSource& SystemEditorWorld::Completion() { return completion; }

std::optional<LinePick> SystemEditorWorld::Pick(EditorConsole& console, const PickRequest& request)
{
    PopupRequest popup = UsualPopup();
    popup.lines = request.lines;
    popup.notes = popup.places = request.notes;
    popup.chosen = request.start;
    popup.filter = request.filter;
    popup.names = request.from == PickFrom::Candidates;
    popup.mayDelete = popup.mayEdit = popup.mayChange = request.from != PickFrom::Candidates;
    PopupResult picked = RunPopupList(console, std::move(popup));
    LinePick pick;
    pick.chosen = picked.action == PopupAction::Cancelled ? request.lines.size() : picked.line;
    pick.edits = picked.action == PopupAction::ToCommandLine;
    pick.text = std::move(picked.text);
    pick.deleted = std::move(picked.deleted);
    pick.changed = std::move(picked.edited);
    return pick;
}

std::optional<LinePick> SystemEditorWorld::PickExtended(EditorConsole& console, std::u16string_view filter)
{
    return PickExtendedLine(console, filter);
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

void SystemEditorWorld::ReportUnbuilt(std::u16string_view keyFunction, bool isDialog)
{
    MVError(isDialog ? errors::unbuiltDialog : errors::unbuiltCommand, keyFunction);
}

bool SystemEditorWorld::ChangeWindow(WindowChange change)
{
    constexpr int shift = 16; // pixels
    constexpr int fontStep = 2;
    switch (change) {
    case WindowChange::HeightMax: ResizeConsoleWindow(0, largestWindow); break;
    case WindowChange::HeightMin: ResizeConsoleWindow(0, 1); break;
    case WindowChange::WidthMax: ResizeConsoleWindow(largestWindow, 0); break;
    case WindowChange::WidthMin: ResizeConsoleWindow(1, 0); break;
    case WindowChange::FontMax: return ScaleFont(fontStep);
    case WindowChange::FontMin: return ScaleFont(-fontStep);
    case WindowChange::Up: ShiftConsoleWindow(0, -shift); break;
    case WindowChange::Down: ShiftConsoleWindow(0, shift); break;
    case WindowChange::Left: ShiftConsoleWindow(-shift, 0); break;
    case WindowChange::Right: ShiftConsoleWindow(shift, 0); break;
    }
    return true;
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
