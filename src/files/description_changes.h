// Keeping the descriptions of a directory in step with its files while a command deletes or renames many of
// them: the description file is read at the first change and written once, at the latest when the object
// goes, so that a break in the middle loses nothing.
#pragma once

#include <optional>
#include <string_view>

#include "files/description_list.h"

// Does nothing while the setting Descriptions is off, when the directory has no description file, or when
// NTFSDescriptions keeps descriptions in the files themselves.
class DescriptionChanges {
public:
    // With a separator at the end, or "" for the current directory.
    explicit DescriptionChanges(std::u16string_view ofDirectory) : directory(ofDirectory) {}
    DescriptionChanges(const DescriptionChanges&) = delete;
    DescriptionChanges& operator=(const DescriptionChanges&) = delete;
    ~DescriptionChanges() { Write(); }

    CString Of(std::u16string_view name) { return List().Find(name); } // "" when it has none
    void Set(std::u16string_view name, std::u16string_view description);
    void Remove(std::u16string_view name);
    void Rename(std::u16string_view name, std::u16string_view newName);

    // To another directory, at once: the description that the new name has there is lost.
    void MoveTo(std::u16string_view newDirectory, std::u16string_view name, std::u16string_view newName);

    // 0, or the Windows error number that kept the file from being written.
    unsigned Write();

private:
    DescriptionList& List();

    CString directory;
    std::optional<DescriptionList> list;
    bool changed = false;
};
