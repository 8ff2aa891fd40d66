// Drive letters that stand for folders, until the user logs off. Which folder one stands for tells
// SubstitutedFolder of volumes.h. Both answer 0 or a Windows error number.
#pragma once

#include "text/cstring.h"

// ERROR_ALREADY_ASSIGNED when there is such a drive.
unsigned SubstituteDrive(char16_t letter, const CString& folder);
// ERROR_NOT_SUBSTED when the drive stands for no folder.
unsigned EndSubstitution(char16_t letter);
