// FONT, RESOLUTION, SAVECONSOLE, STATUSBAR, TRANSIENT and VBEEP: how console and screen look, and small
// things about them.
#pragma once

#include "engine/tables.h"

int Font_Command(CString& arguments);
int Resolution_Command(CString& arguments);
int Saveconsole_Command(CString& arguments);
int Statusbar_Command(CString& arguments);
int Transient_Command(CString& arguments);
int Vbeep_Command(CString& arguments);

extern const CommandHelp fontHelp;
extern const CommandHelp resolutionHelp;
extern const CommandHelp saveconsoleHelp;
extern const CommandHelp statusbarHelp;
extern const CommandHelp transientHelp;
extern const CommandHelp vbeepHelp;
