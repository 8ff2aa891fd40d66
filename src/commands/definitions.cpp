#include "commands/definitions.h"

#include <algorithm>

#include "commands/definition_text.h"
#include "commands/pager.h"
#include "core/command_lookup.h"
#include "engine/break.h"
#include "engine/console_entry.h"
#include "engine/results.h"
#include "engine/state.h"
#include "files/text_reader.h"
#include "files/wildcards.h"
#include "text/compare.h"
#include "text/words.h"

namespace {

constexpr std::size_t npos = std::u16string_view::npos;

// A "*" in a name is its abbreviation mark only when the name is spelled just so; else it is a wildcard.
NameMatch MatchFor(std::u16string_view name, NameMatch plainNames)
{
    return HasNamePattern(name) ? NameMatch::Plain : plainNames;
}

// The names of aliases hold marks that a pattern does not know of.
bool MatchesPattern(std::u16string_view pattern, std::u16string_view name)
{
    if (WildcardComparison(pattern, name, false, true) == 0)
        return true;
    if (name.find(u'*') == npos)
        return false;
    CString plain;
    for (const char16_t unit : name)
        if (unit != u'*')
            plain.Append(unit);
    return WildcardComparison(pattern, plain, false, true) == 0;
}

std::vector<CString> MatchingEntries(const DefinitionStore& store, std::u16string_view pattern)
{
    std::vector<CString> entries = store.Entries();
    std::erase_if(entries, [&](const CString& entry) { return !MatchesPattern(pattern, EntryName(entry)); });
    return entries;
}

std::vector<CString> QueriedEntries(const DefinitionStore& store, std::u16string_view name, bool byPrefix)
{
    CString entry;
    if (store.Find(name, MatchFor(name, NameMatch::Abbreviated), entry) && !byPrefix)
        return {entry};
    std::vector<CString> entries;
    if (byPrefix) { // before the pattern: "set list[" is how scripts go through what they call an array
        entries = store.Entries();
        std::erase_if(entries, [&](const CString& each) { return !BeginsNoCase(EntryName(each), name); });
    }
    if (HasNamePattern(name) && entries.empty() && entry.empty())
        return MatchingEntries(store, name);
    if (entries.empty() && !entry.empty())
        entries.push_back(entry); // an array element, which no listing holds
    return entries;
}

int Show(std::u16string_view name, const DefinitionRequest& request)
{
    Pager pager(request.pauses);
    bool found = false;
    for (const auto& store : request.stores) {
        std::vector<CString> entries =
            name.empty() ? store->Entries() : QueriedEntries(*store, name, request.queryByPrefix);
        if (request.sorted)
            std::stable_sort(entries.begin(), entries.end(), [](const CString& a, const CString& b) {
                return CompareNoCase(EntryName(a), EntryName(b)) < 0;
            });
        found = found || !entries.empty();
        for (const CString& entry : entries)
            if (!pager.Line(entry))
                return MVError(0);
    }
    return found || name.empty() ? result::success : definition_result::notDefined;
}

// The name that a definition is for, as far as it can be told before its store looks at it.
CString DefinedName(std::u16string_view text, bool endsAtBlank)
{
    CString entry(text);
    const bool sound = NormalizeEntry(entry, endsAtBlank ? EntryKind::ListEntry : EntryKind::Environment);
    return sound ? CString(EntryName(entry)) : CString();
}

int Define(std::u16string_view text, const DefinitionRequest& request)
{
    int code = result::success;
    const CString name = DefinedName(text, request.nameEndsAtBlank);
    for (const auto& store : request.stores) {
        CString entry;
        if (!request.keepExisting || name.empty() || !store->Find(name, NameMatch::WholeName, entry)) {
            entry = text;
            const int answer = store->Define(entry, request.typeSpec);
            code = answer == protectedVariable ? result::error : answer;
        }
        if (code != result::success || !request.defineInAll)
            break;
    }
    return code;
}

template <typename Take> bool ReadFileLines(std::u16string_view name, Take take)
{
    TextReader reader;
    if (!reader.Open(name))
        return false;
    CString rest; // the beginning of a line that is longer than a piece
    CString piece;
    do {
        ThrowIfBroken();
        if (!reader.Read(piece))
            return false;
        std::u16string_view text(piece);
        for (std::size_t end = text.find(u'\n'); end != npos; end = text.find(u'\n')) {
            rest.Append(text.substr(0, end)).TrimRight(u"\r");
            take(rest);
            rest.Clear();
            text.remove_prefix(end + 1);
        }
        rest.Append(text);
    } while (!piece.empty());
    take(rest);
    return true;
}

template <typename Take> void ReadStandardInput(Take take)
{
    CString line;
    while (ReadConsoleLine(line, {}))
        take(line);
}

// Calls `act` with each definition that the named files hold, or standard input when none is named. Answers
// result::error when one of them could not be read or an act failed; the others are done all the same.
template <typename Act> int ForEachDefinition(std::u16string_view fileNames, Act act)
{
    const Syntax syntax = CurrentSyntax();
    int code = result::success;
    DefinitionLines lines(syntax.escapeChar);
    CString definition;
    auto take = [&](std::u16string_view line) {
        if (lines.Add(line, definition) && act(definition) != result::success)
            code = result::error;
    };
    auto finish = [&] {
        if (lines.Finish(definition) && act(definition) != result::success)
            code = result::error;
    };
    const std::vector<CString> names = SplitArguments(fileNames, true, syntax);
    if (names.empty()) {
        ReadStandardInput(take);
        finish();
    }
    for (const CString& each : names) {
        const CString name = WithoutQuotes(each);
        if (!ReadFileLines(name, take))
            code = MVError(0, name);
        finish();
    }
    return code;
}

bool RemoveEntry(DefinitionStore& store, std::u16string_view entry, int& code)
{
    CString deletion(EntryName(entry));
    const int answer = store.Define(deletion.Append(u'='), {});
    if (answer != result::success)
        code = result::error;
    return true;
}

// False when the store holds no such entry.
bool RemoveName(DefinitionStore& store, std::u16string_view name, int& code)
{
    CString entry;
    if (store.Find(name, MatchFor(name, NameMatch::WholeName), entry))
        return RemoveEntry(store, entry, code);
    bool found = false;
    if (HasNamePattern(name))
        for (const CString& each : MatchingEntries(store, name))
            found = RemoveEntry(store, each, code) || found;
    return found;
}

} // namespace

int RunDefinitions(CString& text, const DefinitionRequest& request)
{
    if (request.stores.empty())
        return definition_result::noStore;
    if (request.fromFiles)
        return ForEachDefinition(text, [&](CString& definition) {
            DropDefinitionQuotes(definition);
            return Define(definition, request);
        });
    DropDefinitionQuotes(text);
    switch (FormOf(text, request.nameEndsAtBlank)) {
    case DefinitionForm::All: return Show({}, request);
    case DefinitionForm::Query: return Show(text.Trim(), request);
    default: return Define(text, request);
    }
}

int RemoveDefinitions(CString& text, const RemovalRequest& request)
{
    if (request.stores.empty())
        return definition_result::noStore;
    int code = result::success;
    bool found = false;
    auto remove = [&](std::u16string_view name) {
        for (const auto& store : request.stores)
            found = RemoveName(*store, name, code) || found;
        return result::success;
    };
    if (request.fromFiles) {
        const int read = ForEachDefinition(text, [&](const CString& line) {
            CString name(EntryName(line));
            return remove(name.Trim());
        });
        return read != result::success ? read : code;
    }
    const std::vector<CString> names = SplitArguments(text, true, CurrentSyntax());
    if (names.empty())
        return definition_result::usage;
    for (const CString& name : names)
        remove(WithoutQuotes(name));
    return found ? code : definition_result::notDefined;
}

DefinitionStores ListStores(ListKind kind, bool onlyLocal, bool onlyGlobal)
{
    DefinitionStores stores;
    for (const ListScope scope : {ListScope::Local, ListScope::Global}) {
        const bool wanted = scope == ListScope::Local ? onlyLocal || !onlyGlobal : onlyGlobal || !onlyLocal;
        const VariableStore store = StoreOf(kind, scope);
        if (wanted && QueryListExists(store))
            stores.push_back(std::make_unique<ListStore>(store));
    }
    return stores;
}

bool RefuseDialog(std::u16string_view text, int& code)
{
    if (!AsksForDialog(text, CurrentSyntax().switchChar))
        return false;
    code = MVError(errors::unbuiltDialog, Tls().commandName);
    return true;
}
