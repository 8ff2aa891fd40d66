#include "commands/definition_stores.h"

#include <algorithm>

#include "core/alias_extras.h"
#include "engine/results.h"
#include "platform/environment.h"
#include "text/compare.h"

namespace {

// The directories of the drives, and the loop variables of FOR.
bool IsInternal(std::u16string_view entry) { return entry[0] == u'=' || entry[0] == u'\1'; }

bool FindByName(const std::vector<CString>& entries, std::u16string_view name, NameMatch match,
                CString& entry)
{
    const auto found = std::find_if(entries.begin(), entries.end(), [&](const CString& candidate) {
        return NameMatches(candidate, name, match);
    });
    if (found != entries.end())
        entry = *found;
    return found != entries.end();
}

CString Entry(std::u16string_view name, std::u16string_view value)
{
    CString entry(name);
    return entry.Append(u'=').Append(value);
}

// An element of an array that exists; anything else of that form is an ordinary variable.
bool IsElement(std::u16string_view entry)
{
    std::u16string_view name;
    std::u16string_view indexes;
    return SplitArrayElement(EntryName(entry), name, indexes) && QueryArrayVariable(name) >= 0;
}

} // namespace

bool ListStore::HoldsAliases() const
{
    return store == VariableStore::LocalAliases || store == VariableStore::GlobalAliases;
}

bool ListStore::Find(std::u16string_view name, NameMatch match, CString& entry) const
{
    const CString key = HoldsAliases() ? KeyAliasName(name) : CString();
    return FindByName(Entries(), key.empty() ? name : key.view(), HoldsAliases() ? match : NameMatch::Plain,
                      entry);
}

int ListStore::Define(CString& entry, std::u16string_view)
{
    if (!HoldsAliases() || !IsKeyAlias(entry) || !NormalizeEntry(entry, EntryKind::ListEntry))
        return AddVariableToList(entry, store);
    const std::size_t nameLength = NameLength(entry);
    const CString name = KeyAliasName(EntryName(entry));
    if (name.empty())
        return MVError(errors::invalidKey, EntryName(entry));
    entry.Replace(0, nameLength, name);
    return AddVariableToList(entry, store);
}

std::vector<CString> EnvironmentStore::Entries() const
{
    std::vector<CString> entries = EnvironmentEntries();
    std::erase_if(entries, [](const CString& entry) { return IsInternal(entry); });
    std::stable_sort(entries.begin(), entries.end(), [](const CString& a, const CString& b) {
        return CompareNoCase(EntryName(a), EntryName(b)) < 0;
    });
    return entries;
}

bool EnvironmentStore::Find(std::u16string_view name, NameMatch, CString& entry) const
{
    CString value;
    if (IsElement(name)) {
        std::u16string_view array;
        std::u16string_view indexes;
        SplitArrayElement(name, array, indexes);
        if (QueryArrayElement(array, indexes, value) != 0 || value.empty())
            return false;
        entry = Entry(name, value);
        return true;
    }
    return FindByName(EnvironmentEntries(), name, NameMatch::Plain, entry);
}

int EnvironmentStore::Define(CString& entry, std::u16string_view typeSpec)
{
    return AddVariableToList(
        entry, IsElement(entry) ? VariableStore::ArrayElement : VariableStore::Environment, typeSpec);
}

bool RegistryStore::Find(std::u16string_view name, NameMatch, CString& entry) const
{
    return FindByName(Entries(), name, NameMatch::Plain, entry);
}

int RegistryStore::Define(CString& entry, std::u16string_view)
{
    if (!NormalizeEntry(entry, EntryKind::Environment) || IsInternal(entry))
        return MVError(errors::syntax, entry);
    const std::u16string_view name = EntryName(entry);
    const std::u16string_view value = EntryValue(entry);
    const unsigned code =
        value.empty() ? RemoveRegistryVariable(place, name) : WriteRegistryVariable(place, name, value);
    changed = changed || code == 0;
    return code == 0 ? result::success : MVError(code, name);
}

RegistryStore::~RegistryStore()
{
    if (changed)
        AnnounceEnvironment(place == RegistryEnvironment::System ? EnvironmentLevel::System
                                                                 : EnvironmentLevel::User);
}
