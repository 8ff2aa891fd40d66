#include "platform/registry_environment.h"

#include <utility>

#include "platform/lazy_library.h"

namespace {

constexpr LSTATUS missing = ERROR_PROC_NOT_FOUND;
constinit LazyFunction<decltype(RegCreateKeyExW)> createKey(libraries::advapi32, "RegCreateKeyExW", missing);
constinit LazyFunction<decltype(RegOpenKeyExW)> openKey(libraries::advapi32, "RegOpenKeyExW", missing);
constinit LazyFunction<decltype(RegCloseKey)> closeKey(libraries::advapi32, "RegCloseKey", missing);
constinit LazyFunction<decltype(RegEnumValueW)> enumerateValues(libraries::advapi32, "RegEnumValueW",
                                                                missing);
constinit LazyFunction<decltype(RegSetValueExW)> setValue(libraries::advapi32, "RegSetValueExW", missing);
constinit LazyFunction<decltype(RegDeleteValueW)> deleteValue(libraries::advapi32, "RegDeleteValueW",
                                                              missing);

constexpr DWORD longestName = 16384;  // units, the system's limit for a value's name with its NUL
constexpr DWORD longestValue = 65536; // bytes: 32767 units and a NUL

struct Place {
    HKEY root;
    const wchar_t* path;
};

Place PlaceOf(RegistryEnvironment place)
{
    switch (place) {
    case RegistryEnvironment::System:
        return {HKEY_LOCAL_MACHINE, L"SYSTEM\\CurrentControlSet\\Control\\Session Manager\\Environment"};
    case RegistryEnvironment::Volatile: return {HKEY_CURRENT_USER, L"Volatile Environment"};
    case RegistryEnvironment::Default: return {HKEY_USERS, L".DEFAULT\\Environment"};
    default: return {HKEY_CURRENT_USER, L"Environment"};
    }
}

class EnvironmentKey {
public:
    EnvironmentKey(RegistryEnvironment which, bool forWriting)
    {
        const Place place = PlaceOf(which);
        // What the system forgets at log-off must be created so.
        const DWORD options =
            which == RegistryEnvironment::Volatile ? REG_OPTION_VOLATILE : REG_OPTION_NON_VOLATILE;
        const LSTATUS status = forWriting ? createKey(place.root, place.path, 0, nullptr, options,
                                                      KEY_SET_VALUE, nullptr, &key, nullptr)
                                          : openKey(place.root, place.path, 0, KEY_QUERY_VALUE, &key);
        error = static_cast<unsigned>(status);
        if (error != ERROR_SUCCESS)
            key = nullptr;
    }
    EnvironmentKey(const EnvironmentKey&) = delete;
    EnvironmentKey& operator=(const EnvironmentKey&) = delete;
    ~EnvironmentKey()
    {
        if (key)
            closeKey(key);
    }

    HKEY key = nullptr;
    unsigned error = ERROR_SUCCESS;
};

} // namespace

std::vector<CString> RegistryVariables(RegistryEnvironment place)
{
    std::vector<CString> variables;
    const EnvironmentKey open(place, false);
    CString name;
    CString value;
    for (DWORD index = 0; open.key; ++index) {
        DWORD nameLength = longestName;
        DWORD bytes = longestValue;
        DWORD type = REG_NONE;
        const LSTATUS status =
            enumerateValues(open.key, index, reinterpret_cast<wchar_t*>(name.Edit(longestName)), &nameLength,
                            nullptr, &type, reinterpret_cast<BYTE*>(value.Edit(longestValue / 2)), &bytes);
        if (status != ERROR_SUCCESS && status != ERROR_MORE_DATA)
            break;
        if (status != ERROR_SUCCESS || nameLength == 0 || (type != REG_SZ && type != REG_EXPAND_SZ))
            continue;
        name.SetLength(nameLength);
        value.SetLength(bytes / sizeof(char16_t));
        value.TrimRight(std::u16string_view(u"\0", 1)); // stored with its NUL, or without
        CString entry(name);
        variables.push_back(entry.Append(u'=').Append(value));
    }
    return variables;
}

unsigned WriteRegistryVariable(RegistryEnvironment place, std::u16string_view name, std::u16string_view value)
{
    const EnvironmentKey open(place, true);
    if (!open.key)
        return open.error;
    const CString text(value);
    const DWORD type = text.Find(u'%') == CString::npos ? REG_SZ : REG_EXPAND_SZ;
    const auto bytes = static_cast<DWORD>((text.size() + 1) * sizeof(char16_t));
    return static_cast<unsigned>(
        setValue(open.key, CString(name).w(), 0, type, reinterpret_cast<const BYTE*>(text.c_str()), bytes));
}

unsigned RemoveRegistryVariable(RegistryEnvironment place, std::u16string_view name)
{
    const EnvironmentKey open(place, true);
    if (!open.key)
        return open.error;
    const LSTATUS status = deleteValue(open.key, CString(name).w());
    return status == ERROR_FILE_NOT_FOUND ? ERROR_SUCCESS : static_cast<unsigned>(status);
}
