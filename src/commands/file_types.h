// ASSOC, FTYPE and ASSOCIATE: which type a file's extension has, and which program opens files of a type.
#pragma once

#include "engine/tables.h"

int Assoc_Command(CString& arguments);
int Ftype_Command(CString& arguments);
int Associate_Command(CString& arguments);

extern const CommandHelp assocHelp;
extern const CommandHelp ftypeHelp;
extern const CommandHelp associateHelp;
