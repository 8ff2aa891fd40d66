// VOL and FREE: the labels of drives, and the room on them.
#pragma once

#include <string_view>
#include <vector>

#include "engine/tables.h"
#include "text/cstring.h"

// The lines that tell the label and the serial number of the volume that holds a directory, which has a
// separator at its end. None when the volume cannot be asked, the reason in the last error.
std::vector<CString> VolumeLines(std::u16string_view directory);

int Vol_Command(CString& arguments);
int Free_Command(CString& arguments);

extern const CommandHelp volHelp;
extern const CommandHelp freeHelp;
