// Changing drive and directory: declared here for the dispatcher ("d:", AutoCDD), defined in commands/.
// Both set the error level, as CDD does.
#pragma once

#include <string_view>

// Makes the drive current, in the directory it was left in. 0, or the result of an error that was reported.
int ChangeDrive(char16_t letter);

// Changes to the directory, and to its drive: what CDD does. The name may be quoted, hold wildcards or be
// "-" for the previous directory. 0, or the result of an error that was reported.
int ChangeDirectory(std::u16string_view name);
