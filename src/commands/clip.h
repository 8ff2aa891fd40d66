// CLIP: the texts of the clipboards.
#pragma once

#include "engine/tables.h"

int Clip_Command(CString& arguments);

extern const CommandHelp clipHelp;
