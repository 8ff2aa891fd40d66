// The descriptions of a directory's files: in its description file or, with the setting NTFSDescriptions,
// each in the stream "Comment" of the file that it describes, as UTF-8.
//
// Of description files UTF-16, UTF-8 and the OEM code page are understood, and a file is written as it was
// found; text that the code page lacks makes it UTF-8. The file is replaced as a whole or not at all, and is
// hidden.
#pragma once

#include <string_view>

#include "files/description_list.h"

// DESCRIPT.ION, unless the setting DescriptionName says otherwise.
CString DescriptionFileName();

// Directories have a separator at the end, or are "" for the current one.

// What the files of one directory are described by; a description file is read once.
class DirectoryDescriptions {
public:
    explicit DirectoryDescriptions(std::u16string_view directory);
    CString Of(std::u16string_view name) const; // "" when the file has none

private:
    CString directory;
    DescriptionList list;
    bool inStreams;
};

// The description file itself; no file means an empty list.
DescriptionList ReadDescriptions(std::u16string_view directory);
// An empty list removes the file. False with the reason in the thread's last error.
bool WriteDescriptions(std::u16string_view directory, const DescriptionList& list);

// Describes one file in the place that the settings want, in as many units as the setting DescriptionMax
// allows; "" takes the description away. False as above.
bool SetDescription(std::u16string_view directory, std::u16string_view name, std::u16string_view description);
