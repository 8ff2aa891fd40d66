#include "platform/environment.h"

#include <algorithm>
#include <atomic>
#include <memory>
#include <optional>
#include <unordered_map>

#include <windows.h>

#include "text/compare.h"

namespace {

constexpr DWORD shortValue = 512;          // most values fit; longer ones are read straight into the string
constexpr std::size_t longestKept = 32000; // the system's own limit is near, and its verdict is wanted

std::u16string_view Units(const wchar_t* text) { return reinterpret_cast<const char16_t*>(text); }

struct FreeEnvironmentBlock {
    void operator()(wchar_t* block) const { FreeEnvironmentStringsW(block); }
};

// What is not written down yet; no value: the variable is to be removed.
using PendingVariables = std::unordered_map<CString, std::optional<CString>, NoCaseHash, NoCaseEqual>;

SRWLOCK pendingLock = SRWLOCK_INIT;
std::atomic<bool> anyPending{false};

PendingVariables& Pending()
{
    static PendingVariables variables;
    return variables;
}

struct PendingGuard {
    PendingGuard() { AcquireSRWLockExclusive(&pendingLock); }
    PendingGuard(const PendingGuard&) = delete;
    PendingGuard& operator=(const PendingGuard&) = delete;
    ~PendingGuard() { ReleaseSRWLockExclusive(&pendingLock); }
};

bool UsedByKernel(std::u16string_view name)
{
    static constexpr std::u16string_view names[] = {u"PATH", u"TMP", u"TEMP", u"USERPROFILE"};
    return std::any_of(std::begin(names), std::end(names),
                       [&](auto each) { return EqualNoCase(each, name); });
}

bool MayWait(std::u16string_view name, std::u16string_view value)
{
    return !name.empty() && name.size() < longestKept && value.size() < longestKept &&
           name.find(u'=') == std::u16string_view::npos && !UsedByKernel(name);
}

void Keep(std::u16string_view name, std::optional<std::u16string_view> value)
{
    PendingVariables& pending = Pending();
    auto place = pending.find(name);
    if (place == pending.end()) {
        place = pending.emplace(CString(name), std::nullopt).first;
    } else if (place->first != name) { // spelled otherwise
        auto node = pending.extract(place);
        node.key() = name;
        place = pending.insert(std::move(node)).position;
    }
    if (!value)
        place->second.reset();
    else if (place->second)
        *place->second = *value;
    else
        place->second.emplace(*value);
    anyPending.store(true, std::memory_order_release);
}

bool RemoveAtOnce(const CString& name)
{
    return SetEnvironmentVariableW(name.w(), nullptr) != 0 || GetLastError() == ERROR_ENVVAR_NOT_FOUND;
}

bool ReadFromSystem(std::u16string_view name, CString& value)
{
    const CString terminated(name);
    wchar_t buffer[shortValue];
    SetLastError(ERROR_SUCCESS);
    DWORD size = GetEnvironmentVariableW(terminated.w(), buffer, shortValue);
    if (size == 0 && GetLastError() != ERROR_SUCCESS)
        return false;
    if (size < shortValue) {
        value = std::u16string_view(reinterpret_cast<const char16_t*>(buffer), size);
        return true;
    }
    // Another thread may lengthen the value between two reads.
    CString text;
    for (DWORD room = size;; room = size) {
        wchar_t* target = reinterpret_cast<wchar_t*>(text.Edit(room));
        size = GetEnvironmentVariableW(terminated.w(), target, room);
        if (size < room)
            break;
    }
    text.SetLength(size);
    value = text;
    return true;
}

// A value that the system refuses must not cost the old one.
bool WriteAtOnce(std::u16string_view name, std::u16string_view value)
{
    const CString terminated(name);
    CString old;
    const bool existed = ReadFromSystem(name, old);
    // Replacing a value would keep the old spelling of the name.
    if (existed)
        RemoveAtOnce(terminated);
    if (SetEnvironmentVariableW(terminated.w(), CString(value).w()))
        return true;
    const DWORD reason = GetLastError();
    if (existed)
        SetEnvironmentVariableW(terminated.w(), old.w());
    SetLastError(reason);
    return false;
}

bool AnyPendingBegins(std::u16string_view prefix)
{
    const PendingGuard guard;
    return std::any_of(Pending().begin(), Pending().end(),
                       [&](const auto& each) { return BeginsNoCase(each.first, prefix); });
}

} // namespace

bool ReadEnvironment(std::u16string_view name, CString& value)
{
    if (anyPending.load(std::memory_order_acquire)) {
        const PendingGuard guard;
        const auto place = Pending().find(name);
        if (place != Pending().end()) {
            if (place->second)
                value = *place->second;
            return place->second.has_value();
        }
    }
    return ReadFromSystem(name, value);
}

bool IsInEnvironment(std::u16string_view name)
{
    CString value;
    return ReadEnvironment(name, value);
}

bool WriteEnvironment(std::u16string_view name, std::u16string_view value)
{
    const PendingGuard guard;
    if (MayWait(name, value)) {
        Keep(name, value);
        return true;
    }
    if (!WriteAtOnce(name, value))
        return false;
    if (const auto place = Pending().find(name); place != Pending().end())
        Pending().erase(place);
    return true;
}

bool RemoveEnvironment(std::u16string_view name)
{
    const PendingGuard guard;
    if (!MayWait(name, {}))
        return RemoveAtOnce(CString(name));
    Keep(name, std::nullopt);
    return true;
}

void PublishEnvironment() noexcept
{
    if (!anyPending.load(std::memory_order_acquire))
        return;
    const PendingGuard guard;
    const DWORD lastError = GetLastError();
    for (const auto& [name, value] : Pending()) {
        if (value)
            WriteAtOnce(name, *value);
        else
            RemoveAtOnce(name);
    }
    Pending().clear();
    anyPending.store(false, std::memory_order_release);
    SetLastError(lastError);
}

std::vector<CString> EnvironmentEntries(std::u16string_view prefix)
{
    if (AnyPendingBegins(prefix))
        PublishEnvironment();
    std::vector<CString> entries;
    const std::unique_ptr<wchar_t, FreeEnvironmentBlock> block(GetEnvironmentStringsW());
    for (const wchar_t* at = block.get(); at && *at;) {
        const std::u16string_view entry = Units(at);
        if (BeginsNoCase(entry, prefix))
            entries.emplace_back(entry);
        at += entry.size() + 1;
    }
    return entries;
}
