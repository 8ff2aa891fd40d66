// MSGBOX, QUERYBOX and TASKDIALOG: boxes that ask a person.
#pragma once

#include "engine/tables.h"

int Msgbox_Command(CString& arguments);
int Querybox_Command(CString& arguments);
int Taskdialog_Command(CString& arguments);

extern const CommandHelp msgboxHelp;
extern const CommandHelp queryboxHelp;
extern const CommandHelp taskdialogHelp;
