// ECHO and its kin: text to standard output or standard error, and the echo state.
//
// The text is what follows the name, from the first character behind one delimiter, exactly as written. The
// X forms receive the rest of the line before anything is expanded or cut.
#pragma once

#include "engine/tables.h"

int Echo_Command(CString& arguments);
int Echos_Command(CString& arguments);
int Echoerr_Command(CString& arguments);
int Echoserr_Command(CString& arguments);
int Echox_Command(CString& arguments);
int Echoxerr_Command(CString& arguments);

extern const CommandHelp echoHelp;
extern const CommandHelp echosHelp;
extern const CommandHelp echoerrHelp;
extern const CommandHelp echoserrHelp;
extern const CommandHelp echoxHelp;
extern const CommandHelp echoxerrHelp;
