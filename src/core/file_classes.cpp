#include "core/file_classes.h"

#include <algorithm>

#include <windows.h>

#include "platform/registry.h"
#include "platform/registry_editing.h"
#include "text/compare.h"
#include "text/format.h"

namespace {

constexpr std::u16string_view classesKey = u"Software\\Classes";

CString KeyOf(std::u16string_view name, ClassText which)
{
    CString key(name);
    if (which == ClassText::Command)
        key += u"\\shell\\open\\command";
    if (which == ClassText::Icon)
        key += u"\\DefaultIcon";
    return key;
}

RegistryName WrittenPlace(ClassesOf whose, std::u16string_view name, ClassText which)
{
    RegistryName place;
    place.root = whose == ClassesOf::User ? u"HKCU" : u"HKLM";
    place.key = Format(u"%s\\%s", classesKey, KeyOf(name, which));
    return place;
}

RegistryName ReadPlace(ClassesOf whose, std::u16string_view name, ClassText which)
{
    if (whose == ClassesOf::User)
        return WrittenPlace(whose, name, which);
    RegistryName place;
    place.root = u"HKCR";
    place.key = KeyOf(name, which);
    return place;
}

} // namespace

std::optional<CString> ReadClassText(ClassesOf whose, std::u16string_view name, ClassText which)
{
    RegistryData data;
    if (ReadRegistryValue(ReadPlace(whose, name, which), data) != 0 ||
        (data.type != REG_SZ && data.type != REG_EXPAND_SZ))
        return std::nullopt;
    return RegistryDataText(data);
}

unsigned WriteClassText(ClassesOf whose, std::u16string_view name, ClassText which, std::u16string_view text)
{
    RegistryData data;
    data.type = which == ClassText::Itself ? REG_SZ : REG_EXPAND_SZ;
    ReadRegistryData(text, data);
    return WriteRegistryValue(WrittenPlace(whose, name, which), data);
}

unsigned RemoveClassText(ClassesOf whose, std::u16string_view name, ClassText which)
{
    return DeleteRegistryValue(WrittenPlace(whose, name, which));
}

unsigned RemoveClass(ClassesOf whose, std::u16string_view name)
{
    return DeleteRegistryKey(WrittenPlace(whose, name, ClassText::Itself));
}

std::vector<CString> ClassNames(ClassesOf whose, ClassText which, bool extensions)
{
    const RegistryKey key = whose == ClassesOf::User ? RegistryKey(RegistryRoot::CurrentUser, classesKey)
                                                     : RegistryKey(RegistryRoot::ClassesRoot, {});
    std::vector<CString> names;
    for (CString& name : key.SubkeyNames())
        if (name.view().starts_with(u'.') == extensions && ReadClassText(whose, name, which))
            names.push_back(std::move(name));
    std::sort(names.begin(), names.end(),
              [](const CString& a, const CString& b) { return CompareNoCase(a, b) < 0; });
    return names;
}

CString ChosenClass(std::u16string_view extension)
{
    const CString key = Format(
        u"Software\\Microsoft\\Windows\\CurrentVersion\\Explorer\\FileExts\\%s\\UserChoice", extension);
    return ReadRegistryText(RegistryRoot::CurrentUser, key, u"ProgId").value_or(CString());
}
