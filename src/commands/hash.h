// HASH: checksums of files and texts, printed and checked.
#pragma once

#include "engine/tables.h"

int Hash_Command(CString& arguments);

extern const CommandHelp hashHelp;
