// What ALIAS and FUNCTION have in common, and UNALIAS and UNFUNCTION: their switches and messages.
#pragma once

#include "expand/lists.h"
#include "text/cstring.h"

struct ListCommand {
    ListKind kind;
    unsigned noList; // message codes
    unsigned notDefined;
};

int DefineInList(CString& arguments, const ListCommand& command);
int RemoveFromList(CString& arguments, const ListCommand& command);
