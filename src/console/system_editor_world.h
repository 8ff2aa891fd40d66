// The shell as the line editor sees it.
#pragma once

#include <map>
#include <string>

#include "console/editor_world.h"
#include "console/system_completion.h"

EditorSettings CurrentEditorSettings();

class SystemEditorWorld : public EditorWorld {
public:
    const KeyBindings& Bindings() override { return aKeyBindings; }
    std::optional<KeyAlias> AliasOfKey(std::u16string_view key) override;
    void NoteOverstrike(bool overstrike) override;
    std::vector<CString> History(bool directories) override;
    void SaveInHistory(std::u16string_view line) override;
    void DeleteFromHistory(bool directories, std::u16string_view line) override;
    void ReplaceInHistory(bool directories, std::u16string_view line, std::u16string_view by) override;
    void PrintHistory() override;
    bool ExpandAliasesIn(CString& line) override;
    bool ExpandVariablesIn(CString& line) override;
    std::vector<CString> ArgumentsOf(std::u16string_view line) override;
    CompletionSource& Completion() override;
    std::optional<LinePick> Pick(EditorConsole& console, const PickRequest& request) override;
    std::optional<LinePick> PickExtended(EditorConsole& console, std::u16string_view filter) override;
    CString Browse(bool directory) override;
    void ShowHelp(std::u16string_view line, std::size_t cursor) override;
    void ReportUnbuilt(std::u16string_view keyFunction, bool isDialog) override;
    bool ChangeWindow(WindowChange change) override;
    Syntax CommandSyntax() override;
    std::uint8_t ColorsOf(LinePartKind kind) override;
    LinePartKind KindOfCommand(std::u16string_view name) override;

private:
    SystemCompletion completion;
    std::map<std::u16string, LinePartKind> kinds; // of names that have been looked up
};
