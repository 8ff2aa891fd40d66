// A shell for the line editor, made up: histories, a completion that knows some names, one alias on a key.
#pragma once

#include <algorithm>
#include <vector>

#include "console/editor_world.h"
#include "text/compare.h"
#include "text/words.h"

class FakeEditorWorld : public EditorWorld, public CompletionSource {
public:
    std::vector<CString> history;
    std::vector<CString> directories;
    std::vector<CString> names = {u"alpha.txt", u"alps.txt", u"beta.txt"};
    std::optional<LinePick> pick;
    CString pickFilter;
    int pickColumn = -1; // of the cursor, when the window opened
    bool overstrike = false;
    KeyBindings bindings;

    const KeyBindings& Bindings() override { return bindings; }
    std::optional<KeyAlias> AliasOfKey(std::u16string_view key) override
    {
        if (key == u"Shift-F2")
            return KeyAlias{u"dir /w", false};
        if (key == u"Shift-F3")
            return KeyAlias{u"cls", true};
        return std::nullopt;
    }
    void NoteOverstrike(bool now) override { overstrike = now; }
    std::vector<CString> History(bool wantsDirectories) override
    {
        return wantsDirectories ? directories : history;
    }
    void SaveInHistory(std::u16string_view line) override { history.emplace_back(line); }
    void DeleteFromHistory(bool, std::u16string_view line) override
    {
        const auto found = std::find(history.rbegin(), history.rend(), line);
        if (found != history.rend())
            history.erase(std::next(found).base());
    }
    void ReplaceInHistory(bool, std::u16string_view line, std::u16string_view by) override
    {
        std::replace(history.begin(), history.end(), CString(line), CString(by));
    }
    void PrintHistory() override {}
    bool ExpandAliasesIn(CString& line) override
    {
        if (line.view().starts_with(u"ll"))
            line.Replace(0, 2, u"dir /q");
        return true;
    }
    bool ExpandVariablesIn(CString& line) override
    {
        if (const std::size_t at = line.Find(u"%x%"); at != CString::npos)
            line.Replace(at, 3, u"42");
        return true;
    }
    std::vector<CString> ArgumentsOf(std::u16string_view line) override
    {
        return SplitArguments(line, false, {});
    }
    CompletionSource& Completion() override { return *this; }
    CompletionOffer Offer(std::u16string_view line, std::size_t cursor, CompletionKind) override
    {
        CompletionOffer offer;
        const std::size_t blank = line.substr(0, cursor).rfind(u' ');
        offer.from = blank == line.npos ? 0 : blank + 1;
        offer.to = cursor;
        for (const CString& name : names)
            if (BeginsNoCase(name, line.substr(offer.from, cursor - offer.from)))
                offer.candidates.push_back({name, name, false, {}});
        return offer;
    }
    std::optional<LinePick> Pick(EditorConsole& console, const PickRequest& request) override
    {
        pickColumn = console.Cursor().column;
        pickFilter = request.filter;
        return pick;
    }
    std::optional<LinePick> PickExtended(EditorConsole&, std::u16string_view filter) override
    {
        pickFilter = filter;
        return pick;
    }
    CString Browse(bool directory) override { return directory ? u"C:\\d" : u"C:\\f"; }
    void ShowHelp(std::u16string_view, std::size_t) override {}
    void ReportUnbuilt(std::u16string_view, bool) override {}
    bool ChangeWindow(WindowChange) override { return true; }
    Syntax CommandSyntax() override { return {}; }
    std::uint8_t ColorsOf(LinePartKind kind) override { return static_cast<std::uint8_t>(kind); }
    LinePartKind KindOfCommand(std::u16string_view name) override
    {
        return name == u"echo" ? LinePartKind::Command : LinePartKind::Plain;
    }
};
