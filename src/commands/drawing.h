// Commands that put text and lines on places of the screen: SCREEN, SCRPUT, VSCRPUT, DRAWBOX, DRAWHLINE and
// DRAWVLINE. Without a console they do nothing, which is no fault of the script.
#pragma once

#include "engine/tables.h"

int Screen_Command(CString& arguments);
int Scrput_Command(CString& arguments);
int Vscrput_Command(CString& arguments);
int Drawbox_Command(CString& arguments);
int Drawhline_Command(CString& arguments);
int Drawvline_Command(CString& arguments);

extern const CommandHelp screenHelp;
extern const CommandHelp scrputHelp;
extern const CommandHelp vscrputHelp;
extern const CommandHelp drawboxHelp;
extern const CommandHelp drawhlineHelp;
extern const CommandHelp drawvlineHelp;
