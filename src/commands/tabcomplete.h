// TABCOMPLETE: the user's own completion files, and what completion offers for a line.
#pragma once

#include "engine/tables.h"

int Tabcomplete_Command(CString& arguments);

extern const CommandHelp tabcompleteHelp;
