// TITLE: the window's title.
#pragma once

#include "engine/tables.h"

int Title_Command(CString& arguments);
extern const CommandHelp titleHelp;
