// EXPR: calculates with its words and prints the answer.
#pragma once

#include "engine/tables.h"

int Expr_Command(CString& arguments);

extern const CommandHelp exprHelp;
