// PROMPT: how the prompt looks.
#pragma once

#include "engine/tables.h"

int Prompt_Command(CString& arguments);

extern const CommandHelp promptHelp;
