// Running a FOR command.
#pragma once

#include "text/cstring.h"

struct ForHeader;

// Runs the command for every entry of the set. Answers the last command's result, or at once one that ends
// the line.
int RunFor(ForHeader& header);
