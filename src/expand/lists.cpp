#include "expand/lists.h"

#include <algorithm>

#include "engine/expansion_entry.h"
#include "engine/inifile.h"
#include "engine/results.h"
#include "engine/state.h"
#include "engine/tables.h"
#include "expand/list_blocks.h"
#include "expand/typed_value.h"
#include "platform/environment.h"
#include "platform/setting_change.h"
#include "text/words.h"

namespace {

struct ListPlace {
    ListKind kind;
    ListScope scope;
};

bool IsList(VariableStore store) { return store >= VariableStore::LocalAliases; }

ListPlace PlaceOf(VariableStore store)
{
    switch (store) {
    case VariableStore::LocalAliases: return {ListKind::Aliases, ListScope::Local};
    case VariableStore::GlobalAliases: return {ListKind::Aliases, ListScope::Global};
    case VariableStore::LocalFunctions: return {ListKind::Functions, ListScope::Local};
    default: return {ListKind::Functions, ListScope::Global};
    }
}

ListBlock BlockOf(VariableStore store)
{
    const ListPlace place = PlaceOf(store);
    return QueryListBlock(place.kind, place.scope);
}

NameMatch MatchOf(ListKind kind, NameMatch forAliases)
{
    return kind == ListKind::Aliases ? forAliases : NameMatch::Plain;
}

bool FindInBlock(const ListBlock& block, NameMatch match, std::u16string_view name, CString& value)
{
    bool found = false;
    ReadList(block, [&](std::u16string_view list) {
        const std::size_t at = FindListEntry(list, name, match);
        found = at != std::u16string_view::npos;
        if (found)
            value = EntryValue(EntryAt(list, at));
    });
    return found;
}

bool FindInEither(ListKind kind, std::u16string_view name, CString& value, bool* isLocal)
{
    const NameMatch match = MatchOf(kind, NameMatch::Abbreviated);
    const bool local = FindInBlock(QueryListBlock(kind, ListScope::Local), match, name, value);
    if (isLocal)
        *isLocal = local;
    return local || FindInBlock(QueryListBlock(kind, ListScope::Global), match, name, value);
}

bool ChangeUnderLock(const ListPlace& place, std::u16string_view entry)
{
    const ListUpdate update;
    for (;;) {
        const ListBlock block = QueryListBlock(place.kind, place.scope);
        if (!block)
            return false;
        RepairIfNeeded(block);
        if (UpdateList(block, entry, MatchOf(place.kind, NameMatch::WholeName)))
            return true;
        if (place.scope == ListScope::Global || !GrowLocalList(place.kind))
            return false;
    }
}

int ChangeList(const ListPlace& place, std::u16string_view entry)
{
    if (ChangeUnderLock(place, entry))
        return 0;
    const bool isAlias = place.kind == ListKind::Aliases;
    return MVError(isAlias ? errors::aliasListFull : errors::functionListFull, EntryName(entry));
}

// "type" or "type:description", as a switch or a declaration hands it over.
int CheckType(std::u16string_view typeSpec, std::u16string_view entry)
{
    constexpr std::size_t longestType = 31;
    if (!typeSpec.empty() && (typeSpec[0] == u':' || typeSpec[0] == u'='))
        typeSpec.remove_prefix(1);
    const std::size_t end = std::min(typeSpec.find(u':'), typeSpec.size());
    const TypeCheck check = CheckValueType(typeSpec.substr(0, std::min(end, longestType)), EntryValue(entry));
    if (check == TypeCheck::UnknownType)
        return MVError(errors::syntax, typeSpec);
    if (check == TypeCheck::Fits)
        return 0;
    const CString description = WithoutQuotes(end < typeSpec.size() ? typeSpec.substr(end + 1) : typeSpec);
    return MVError(errors::valueType, description);
}

int AskWatcher(std::u16string_view name, std::u16string_view value)
{
    const int row = FindRow(aWatchedVariables, nWatchedVariables, name);
    return row < 0 ? 0 : aWatchedVariables[row].changing(value);
}

int ChangeEnvironment(std::u16string_view entry, std::u16string_view typeSpec)
{
    const std::u16string_view name = EntryName(entry);
    const std::u16string_view value = EntryValue(entry);
    if (name[0] == u'=') // the directories of the drives belong to the system
        return protectedVariable;
    int code = typeSpec.empty() || value.empty() ? 0 : CheckType(typeSpec, entry);
    if (code == 0)
        code = AskWatcher(name, value);
    if (code == 0 && !(value.empty() ? RemoveEnvironment(name) : WriteEnvironment(name, value)))
        code = MVError(0, name);
    if (code == 0)
        ++Lists().environmentChanges;
    return code;
}

int EvaluateIndex(CString& expression) { return EvaluateExpression(expression); }

int ChangeElement(std::u16string_view entry)
{
    std::u16string_view name = EntryName(entry);
    std::u16string_view indexText;
    if (!SplitArrayElement(EntryName(entry), name, indexText) && QueryArrayVariable(name) >= 0)
        return ReportArrayStatus(ArrayStatus::BadIndex, name);
    if (QueryArrayVariable(name) < 0)
        return ReportArrayStatus(ArrayStatus::NotAnArray, name);
    ArrayIndexes indexes;
    ArrayStatus status = ReadArrayIndexes(indexText, EvaluateIndex, CurrentSyntax(), indexes);
    if (status == ArrayStatus::Ok)
        status = ArrayVariables().Set(name, indexes, EntryValue(entry));
    return ReportArrayStatus(status, EntryName(entry));
}

EntryKind KindOf(VariableStore store)
{
    if (IsList(store))
        return EntryKind::ListEntry;
    return store == VariableStore::ArrayElement ? EntryKind::ArrayElement : EntryKind::Environment;
}

} // namespace

VariableStore StoreOf(ListKind kind, ListScope scope)
{
    if (kind == ListKind::Aliases)
        return scope == ListScope::Local ? VariableStore::LocalAliases : VariableStore::GlobalAliases;
    return scope == ListScope::Local ? VariableStore::LocalFunctions : VariableStore::GlobalFunctions;
}

bool GetAlias(std::u16string_view name, CString& value, bool* isLocal)
{
    return FindInEither(ListKind::Aliases, name, value, isLocal);
}

bool GetFunction(std::u16string_view name, CString& value, bool* isLocal)
{
    return FindInEither(ListKind::Functions, name, value, isLocal);
}

bool GetVariableList(std::u16string_view name, VariableStore store, CString& value)
{
    if (IsList(store))
        return FindInBlock(BlockOf(store), MatchOf(PlaceOf(store).kind, NameMatch::Abbreviated), name, value);
    return store == VariableStore::Environment && ReadEnvironment(EntryName(name), value);
}

int AddVariableToList(CString& entry, VariableStore store, std::u16string_view typeSpec)
{
    const CString written(entry);
    if (!NormalizeEntry(entry, KindOf(store)))
        return MVError(errors::syntax, written);
    if (IsList(store))
        return ChangeList(PlaceOf(store), entry);
    return store == VariableStore::ArrayElement ? ChangeElement(entry) : ChangeEnvironment(entry, typeSpec);
}

int SetEVariable(std::u16string_view entry)
{
    CString text(entry);
    return AddVariableToList(text, VariableStore::Environment);
}

bool QueryEnvironmentVariable(std::u16string_view name) { return IsInEnvironment(name); }

ArrayTable& ArrayVariables()
{
    if (!aRooms.arrays)
        aRooms.arrays = std::make_shared<ArrayTable>();
    return *aRooms.arrays;
}

int QueryArrayVariable(std::u16string_view name) { return aRooms.arrays ? aRooms.arrays->Find(name) : -1; }

int QueryArrayElement(std::u16string_view name, std::u16string_view indexText, CString& value)
{
    ArrayIndexes indexes;
    ArrayStatus status = ArrayStatus::NotAnArray;
    if (QueryArrayVariable(name) >= 0)
        status = ReadArrayIndexes(indexText, EvaluateIndex, CurrentSyntax(), indexes);
    if (status == ArrayStatus::Ok)
        status = ArrayVariables().Get(name, indexes, value);
    return ReportArrayStatus(status, name);
}

int ReportArrayStatus(ArrayStatus status, std::u16string_view element)
{
    switch (status) {
    case ArrayStatus::Ok: return 0;
    case ArrayStatus::NotAnArray: return MVError(errors::notAnArray, element);
    case ArrayStatus::BadIndex: return MVError(errors::arrayIndex, element);
    case ArrayStatus::TableFull: return MVError(errors::arrayTableFull, element);
    default: return result::error;
    }
}

std::vector<CString> ListEntries(VariableStore store)
{
    if (store == VariableStore::Environment)
        return EnvironmentEntries();
    std::vector<CString> entries;
    if (IsList(store))
        ReadList(BlockOf(store), [&](std::u16string_view list) {
            entries.clear();
            for (std::size_t at = 0; !EntryAt(list, at).empty(); at = NextListEntry(list, at))
                entries.emplace_back(EntryAt(list, at));
        });
    return entries;
}

bool QueryListExists(VariableStore store) { return !IsList(store) || static_cast<bool>(BlockOf(store)); }

CString SaveLocalList(ListKind kind)
{
    CString saved;
    ReadList(QueryListBlock(kind, ListScope::Local),
             [&](std::u16string_view list) { saved = list.substr(0, EndOfList(list)); });
    return saved;
}

void RestoreLocalList(ListKind kind, std::u16string_view saved)
{
    const ListUpdate update;
    ListBlock block = QueryListBlock(kind, ListScope::Local);
    while (block && !FillList(block, saved) && GrowLocalList(kind))
        block = QueryListBlock(kind, ListScope::Local);
}

void AnnounceEnvironment(EnvironmentLevel level)
{
    BroadcastEnvironmentChange(level == EnvironmentLevel::System);
}

void UpdateEnvironment()
{
    if (!aIniFile.SettingChange || Lists().environmentChanges.exchange(0) == 0)
        return;
    for (const auto level : {EnvironmentLevel::Process, EnvironmentLevel::System, EnvironmentLevel::User})
        AnnounceEnvironment(level);
}
