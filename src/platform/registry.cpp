#include "platform/registry.h"

#include "platform/lazy_library.h"

namespace {

constexpr LSTATUS missingFunction = ERROR_PROC_NOT_FOUND;
constinit LazyFunction<decltype(RegOpenKeyExW)> openKey(libraries::advapi32, "RegOpenKeyExW",
                                                        missingFunction);
constinit LazyFunction<decltype(RegCloseKey)> closeKey(libraries::advapi32, "RegCloseKey", missingFunction);
constinit LazyFunction<decltype(RegGetValueW)> getValue(libraries::advapi32, "RegGetValueW", missingFunction);
constinit LazyFunction<decltype(RegEnumKeyExW)> enumerateKey(libraries::advapi32, "RegEnumKeyExW",
                                                             missingFunction);

constinit LazyFunction<decltype(RegEnumValueW)> enumerateValue(libraries::advapi32, "RegEnumValueW",
                                                               missingFunction);

constexpr DWORD longestValueName = 16384; // units, the NUL included
constexpr DWORD longestKeyName = 256;     // units, the NUL included
constexpr DWORD longestText = 0x100000;   // units; longer values count as missing

HKEY RootKey(RegistryRoot root)
{
    switch (root) {
    case RegistryRoot::CurrentUser: return HKEY_CURRENT_USER;
    case RegistryRoot::LocalMachine: return HKEY_LOCAL_MACHINE;
    case RegistryRoot::ClassesRoot: return HKEY_CLASSES_ROOT;
    case RegistryRoot::Users: return HKEY_USERS;
    }
    return nullptr;
}

} // namespace

RegistryKey::RegistryKey(RegistryRoot root, std::u16string_view path)
{
    const CString name(path);
    if (openKey(RootKey(root), name.w(), 0, KEY_READ, &key) != ERROR_SUCCESS)
        key = nullptr;
}

RegistryKey::~RegistryKey()
{
    if (key)
        closeKey(key);
}

std::optional<CString> RegistryKey::Text(std::u16string_view name) const
{
    if (!key)
        return std::nullopt;
    const CString valueName(name);
    CString text;
    LSTATUS status = ERROR_MORE_DATA;
    // Expandable texts come as plain ones, their variables replaced.
    // The size that a refusal tells is that of the text before its variables are replaced: not to be relied
    // on.
    for (DWORD room = 260; status == ERROR_MORE_DATA && room <= longestText; room *= 4) {
        DWORD bytes = room * sizeof(char16_t);
        status = getValue(key, nullptr, valueName.w(), RRF_RT_REG_SZ, nullptr, text.Edit(room), &bytes);
    }
    if (status != ERROR_SUCCESS)
        return std::nullopt;
    text.SetLength(std::char_traits<char16_t>::length(text.c_str()));
    return text;
}

std::optional<std::uint32_t> RegistryKey::Number(std::u16string_view name) const
{
    if (!key)
        return std::nullopt;
    const CString valueName(name);
    DWORD number = 0;
    DWORD bytes = sizeof number;
    if (getValue(key, nullptr, valueName.w(), RRF_RT_REG_DWORD, nullptr, &number, &bytes) != ERROR_SUCCESS)
        return std::nullopt;
    return number;
}

std::vector<CString> RegistryKey::SubkeyNames() const
{
    std::vector<CString> names;
    if (!key)
        return names;
    for (DWORD index = 0;; ++index) {
        CString name;
        DWORD length = longestKeyName;
        wchar_t* units = reinterpret_cast<wchar_t*>(name.Edit(length));
        if (enumerateKey(key, index, units, &length, nullptr, nullptr, nullptr, nullptr) != ERROR_SUCCESS)
            return names;
        name.SetLength(length);
        names.push_back(std::move(name));
    }
}

std::vector<CString> RegistryKey::ValueNames() const
{
    std::vector<CString> names;
    CString name;
    for (DWORD index = 0; key; ++index) {
        DWORD length = longestValueName;
        wchar_t* units = reinterpret_cast<wchar_t*>(name.Edit(length));
        if (enumerateValue(key, index, units, &length, nullptr, nullptr, nullptr, nullptr) != ERROR_SUCCESS)
            break;
        names.push_back(std::u16string_view(name.c_str(), length));
    }
    return names;
}

std::optional<CString> ReadRegistryText(RegistryRoot root, std::u16string_view path, std::u16string_view name)
{
    return RegistryKey(root, path).Text(name);
}
