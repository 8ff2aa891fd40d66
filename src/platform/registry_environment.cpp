#include "platform/registry_environment.h"

#include <cstring>

#include <windows.h>

#include "platform/registry.h"
#include "platform/registry_editing.h"

namespace {

struct Place {
    RegistryRoot root;
    const char16_t* rootName;
    const char16_t* path;
    bool isVolatile = false;
};

Place PlaceOf(RegistryEnvironment place)
{
    switch (place) {
    case RegistryEnvironment::System:
        return {RegistryRoot::LocalMachine, u"HKLM",
                u"SYSTEM\\CurrentControlSet\\Control\\Session Manager\\Environment"};
    case RegistryEnvironment::Volatile:
        return {RegistryRoot::CurrentUser, u"HKCU", u"Volatile Environment", true};
    case RegistryEnvironment::Default: return {RegistryRoot::Users, u"HKU", u".DEFAULT\\Environment"};
    default: return {RegistryRoot::CurrentUser, u"HKCU", u"Environment"};
    }
}

RegistryName NameOf(RegistryEnvironment which, std::u16string_view variable)
{
    const Place place = PlaceOf(which);
    return {{}, place.rootName, place.path, variable, place.isVolatile};
}

} // namespace

std::vector<CString> RegistryVariables(RegistryEnvironment which)
{
    std::vector<CString> variables;
    const Place place = PlaceOf(which);
    for (const CString& name : RegistryKey(place.root, place.path).ValueNames()) {
        RegistryData data;
        if (name.empty() || ReadRegistryValue(NameOf(which, name), data) != ERROR_SUCCESS ||
            (data.type != REG_SZ && data.type != REG_EXPAND_SZ))
            continue;
        CString entry(name);
        variables.push_back(entry.Append(u'=').Append(RegistryDataText(data)));
    }
    return variables;
}

unsigned WriteRegistryVariable(RegistryEnvironment place, std::u16string_view name, std::u16string_view value)
{
    const CString text(value);
    RegistryData data;
    data.type = text.Find(u'%') == CString::npos ? REG_SZ : REG_EXPAND_SZ;
    data.bytes.resize((text.size() + 1) * sizeof(char16_t));
    std::memcpy(data.bytes.data(), text.c_str(), data.bytes.size());
    return WriteRegistryValue(NameOf(place, name), data);
}

unsigned RemoveRegistryVariable(RegistryEnvironment place, std::u16string_view name)
{
    const unsigned error = DeleteRegistryValue(NameOf(place, name));
    return error == ERROR_FILE_NOT_FOUND ? unsigned{ERROR_SUCCESS} : error;
}
