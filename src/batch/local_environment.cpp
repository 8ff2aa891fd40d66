#include "batch/local_environment.h"

#include <utility>
#include <vector>

#include <windows.h>

#include "engine/tables.h"
#include "expand/lists.h"
#include "platform/environment.h"
#include "platform/file_facts.h"
#include "text/compare.h"
#include "text/words.h"

namespace {

std::u16string_view NameOf(std::u16string_view entry) { return entry.substr(0, EnvironmentNameEnd(entry)); }
std::u16string_view ValueOf(std::u16string_view entry)
{
    const std::size_t end = EnvironmentNameEnd(entry);
    return end == entry.npos ? std::u16string_view() : entry.substr(end + 1);
}

// Watched variables take effect at once, here as when they are set.
void ChangeVariable(std::u16string_view name, std::u16string_view value)
{
    const int watched = FindRow(aWatchedVariables, nWatchedVariables, name);
    if (watched >= 0)
        aWatchedVariables[watched].changing(value);
    if (value.empty())
        RemoveEnvironment(name);
    else
        WriteEnvironment(name, value);
}

// The entry of the same name among those not yet paired; it is taken out.
const CString* TakeEntry(std::vector<const CString*>& entries, std::u16string_view name)
{
    for (const CString*& entry : entries)
        if (entry && EqualNoCase(NameOf(*entry), name))
            return std::exchange(entry, nullptr);
    return nullptr;
}

// Makes the environment what it was with the fewest writes. Most entries stand unchanged at their old
// places, so only what differs place by place is looked at by name.
void RestoreEnvironment(const std::vector<CString>& before)
{
    const std::vector<CString> now = EnvironmentEntries();
    std::vector<const CString*> changed;
    std::vector<const CString*> wanted;
    std::size_t at = 0;
    for (const CString& entry : now) {
        if (at < before.size() && before[at] == entry) {
            ++at;
        } else if (at + 1 < before.size() && before[at + 1] == entry) {
            wanted.push_back(&before[at]);
            at += 2;
        } else {
            changed.push_back(&entry);
            if (at < before.size() && EqualNoCase(NameOf(before[at]), NameOf(entry)))
                wanted.push_back(&before[at++]);
        }
    }
    for (; at < before.size(); ++at)
        wanted.push_back(&before[at]);
    for (const CString* entry : changed) {
        const CString* old = TakeEntry(wanted, NameOf(*entry));
        if (!old)
            ChangeVariable(NameOf(*entry), {});
        else if (!(*old == *entry))
            ChangeVariable(NameOf(*old), ValueOf(*old));
    }
    for (const CString* entry : wanted)
        if (entry)
            ChangeVariable(NameOf(*entry), ValueOf(*entry));
}

struct CarriedVariable {
    CString name;
    CString value; // empty when there is none
};

std::vector<CarriedVariable> ReadCarried(std::u16string_view names)
{
    std::vector<CarriedVariable> carried;
    for (const CString& name : SplitArguments(names, true, CurrentSyntax())) {
        CarriedVariable variable{name, CString()};
        ReadEnvironment(name, variable.value);
        carried.push_back(std::move(variable));
    }
    return carried;
}

} // namespace

LocalEnvironments& CurrentLocalEnvironments()
{
    TLS_VARIABLES& tls = Tls();
    BATCH_FRAME* frame = tls.Frame();
    return frame ? frame->localEnvironments : tls.promptEnvironments;
}

void BeginLocalEnvironment(LocalEnvironments& open)
{
    LocalEnvironment local;
    local.variables = EnvironmentEntries();
    local.directory = CurrentDirectory();
    local.keepsAliases = QueryListExists(VariableStore::LocalAliases);
    if (local.keepsAliases)
        local.aliases = SaveLocalList(ListKind::Aliases);
    local.delayedExpansion = aGlobals.delayedExpansion != 0;
    local.extensions = aGlobals.cmdExtensions != 0;
    open.push_back(std::move(local));
}

bool EndLocalEnvironment(LocalEnvironments& open, std::u16string_view carried)
{
    if (open.empty())
        return false;
    const std::vector<CarriedVariable> kept = ReadCarried(carried);
    const LocalEnvironment local = std::move(open.back());
    open.pop_back();
    if (!(CurrentDirectory() == local.directory))
        SetCurrentDirectoryW(local.directory.w());
    RestoreEnvironment(local.variables);
    for (const CarriedVariable& variable : kept)
        ChangeVariable(variable.name, variable.value);
    if (local.keepsAliases)
        RestoreLocalList(ListKind::Aliases, local.aliases);
    aGlobals.delayedExpansion = local.delayedExpansion ? 1 : 0;
    aGlobals.cmdExtensions = local.extensions ? 1 : 0;
    return true;
}

void EndAllLocalEnvironments(LocalEnvironments& open)
{
    while (EndLocalEnvironment(open, {})) {
    }
}

void SaveVariable(BATCH_FRAME& frame, std::u16string_view name)
{
    for (const CString& saved : frame.savedVariables)
        if (EqualNoCase(NameOf(saved), name))
            return;
    CString value;
    ReadEnvironment(name, value);
    frame.savedVariables.push_back(CString(name).Append(u'=').Append(value));
}

void RestoreSavedVariables(BATCH_FRAME& frame)
{
    for (const CString& saved : std::exchange(frame.savedVariables, {}))
        ChangeVariable(NameOf(saved), ValueOf(saved));
}
