// NOTIFY, TOAST and OSD: texts on the desktop.
#pragma once

#include "engine/tables.h"

int Notify_Command(CString& arguments);
int Toast_Command(CString& arguments);
int Osd_Command(CString& arguments);

extern const CommandHelp notifyHelp;
extern const CommandHelp toastHelp;
extern const CommandHelp osdHelp;
