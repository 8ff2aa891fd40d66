// Changing the current directory of the process and of each drive.
//
// Windows knows one current directory; the directories of the other drives live in environment variables
// named "=C:" and so on, which children inherit. Everything that changes directories goes through here, so
// that the two agree.
#pragma once

#include <string_view>
#include <vector>

#include "text/cstring.h"

// The directory that "d:" means now; the drive's root when it was never left in another. Asks no disk.
CString DirectoryOfDrive(char16_t letter);

// Makes the directory the process's and its drive's. The name is kept in the letter case of the disk.
// False with the system's reason in the last error.
bool MakeCurrent(std::u16string_view directory);

// Makes the directory its drive's without going there. False as above.
bool MakeDirectoryOfDrive(std::u16string_view directory);

bool DriveExists(char16_t letter); // sets the last error when it does not
std::vector<char16_t> AllDrives();

// The first directory, in the order of the file system, that matches the wildcards in the name's last
// component, as a full path; empty, with the reason in the last error, when there is none.
CString FirstMatchingDirectory(std::u16string_view pattern);
