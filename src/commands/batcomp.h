// BATCOMP: making packed batch files.
#pragma once

#include "engine/tables.h"

extern const CommandHelp batcompHelp;

int Batcomp_Command(CString& arguments);
