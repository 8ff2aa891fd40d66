#include "files/description_changes.h"

#include <windows.h>

#include "engine/inifile.h"
#include "files/descriptions.h"

DescriptionList& DescriptionChanges::List()
{
    // Streams go along with their files by themselves.
    const bool inFile = aIniFile.Descriptions && !aIniFile.NTFSDescriptions;
    if (!list)
        list = inFile ? ReadDescriptions(directory) : DescriptionList();
    return *list;
}

void DescriptionChanges::Set(std::u16string_view name, std::u16string_view description)
{
    if (!aIniFile.Descriptions || aIniFile.NTFSDescriptions || List().Find(name) == description)
        return;
    List().Set(name, description);
    changed = true;
}

void DescriptionChanges::Remove(std::u16string_view name)
{
    if (List().Empty() || List().Find(name).empty())
        return;
    List().Set(name, u"");
    changed = true;
}

void DescriptionChanges::Rename(std::u16string_view name, std::u16string_view newName)
{
    if (List().Empty() || List().Find(name).empty())
        return;
    List().Rename(name, newName);
    changed = true;
}

void DescriptionChanges::MoveTo(std::u16string_view newDirectory, std::u16string_view name,
                                std::u16string_view newName)
{
    const CString description = List().Find(name);
    if (!description.empty() && SetDescription(newDirectory, newName, description))
        Remove(name);
}

unsigned DescriptionChanges::Write()
{
    if (!changed)
        return 0;
    changed = false;
    return WriteDescriptions(directory, *list) ? 0u : unsigned{GetLastError()};
}
