// MKLINK, MKLNK and LINKS: making links, and seeing where they lead.
#pragma once

#include "engine/tables.h"

int Mklink_Command(CString& arguments);
int Mklnk_Command(CString& arguments);
int Links_Command(CString& arguments);

extern const CommandHelp mklinkHelp;
extern const CommandHelp mklnkHelp;
extern const CommandHelp linksHelp;
