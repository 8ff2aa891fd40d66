#include "platform/environment.h"

#include <memory>

#include <windows.h>

namespace {

// Most values fit; longer ones are read straight into the string.
constexpr DWORD shortValue = 512;

std::u16string_view Units(const wchar_t* text) { return reinterpret_cast<const char16_t*>(text); }

struct FreeEnvironmentBlock {
    void operator()(wchar_t* block) const { FreeEnvironmentStringsW(block); }
};

} // namespace

bool ReadEnvironment(std::u16string_view name, CString& value)
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

bool IsInEnvironment(std::u16string_view name)
{
    SetLastError(ERROR_SUCCESS);
    return GetEnvironmentVariableW(CString(name).w(), nullptr, 0) != 0 || GetLastError() == ERROR_SUCCESS;
}

bool WriteEnvironment(std::u16string_view name, std::u16string_view value)
{
    return SetEnvironmentVariableW(CString(name).w(), CString(value).w()) != 0;
}

bool RemoveEnvironment(std::u16string_view name)
{
    return SetEnvironmentVariableW(CString(name).w(), nullptr) != 0 ||
           GetLastError() == ERROR_ENVVAR_NOT_FOUND;
}

std::vector<CString> EnvironmentEntries()
{
    std::vector<CString> entries;
    const std::unique_ptr<wchar_t, FreeEnvironmentBlock> block(GetEnvironmentStringsW());
    for (const wchar_t* entry = block.get(); entry && *entry; entry += entries.back().size() + 1)
        entries.emplace_back(Units(entry));
    return entries;
}
