// The description file of a directory: reading and writing it.
//
// UTF-16, UTF-8 and the OEM code page are understood, and a file is written as it was found; text that the
// code page lacks makes it UTF-8. The file is replaced as a whole or not at all, and is hidden.
#pragma once

#include <string_view>

#include "files/description_list.h"

// DESCRIPT.ION, unless the setting DescriptionName says otherwise.
CString DescriptionFileName();

// Directories have a separator at the end, or are "" for the current one. No file means an empty list.
DescriptionList ReadDescriptions(std::u16string_view directory);
// An empty list removes the file. False with the reason in the thread's last error.
bool WriteDescriptions(std::u16string_view directory, const DescriptionList& list);

// Describes one file, in as many units as the setting DescriptionMax allows; "" takes the description away.
// False as above.
bool SetDescription(std::u16string_view directory, std::u16string_view name, std::u16string_view description);
