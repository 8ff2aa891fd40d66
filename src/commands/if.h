// IF and IFF: running a command, or opening a block of lines, by a condition.
//
// The words ELSE, ELSEIFF and ENDIFF that belong to IFF are no commands: the dispatcher acts on them
// (batch/blocks.cpp).
#pragma once

#include "engine/tables.h"

int If_Command(CString& arguments);
int Iff_Command(CString& arguments);

extern const CommandHelp ifHelp;
extern const CommandHelp iffHelp;
