// CLS: an empty screen.
#pragma once

#include "engine/tables.h"

int Cls_Command(CString& arguments);
extern const CommandHelp clsHelp;
