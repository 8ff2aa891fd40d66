// ATTRIB: showing and changing the attributes of files.
#pragma once

#include "engine/tables.h"

int Attrib_Command(CString& arguments);

extern const CommandHelp attribHelp;
