// PLAYSOUND and PLAYAVI: sounds and films.
#pragma once

#include "engine/tables.h"

int Playsound_Command(CString& arguments);
int Playavi_Command(CString& arguments);

extern const CommandHelp playsoundHelp;
extern const CommandHelp playaviHelp;
