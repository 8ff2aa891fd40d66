// File names as the Linux subsystem of Windows spells them, and back.
//
// Drives stand there as "/mnt/c", and its own files are seen from Windows as "\\wsl.localhost\NAME\...",
// where NAME is the distribution.
#pragma once

#include <string_view>

#include "text/cstring.h"

// From a full Windows name; "" for a share that no Linux name leads to.
CString LinuxName(std::u16string_view fullName);
// From an absolute Linux name; files that stand on no drive are looked for in the distribution. "" when the
// name is not absolute, or there is no distribution and it would be needed.
CString WindowsName(std::u16string_view linuxName, std::u16string_view distribution);
