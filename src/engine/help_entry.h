// Help for internal commands: declared here for the dispatcher, defined in commands/.
#pragma once

struct BUILTIN;

// Writes the row's help to standard output, as "/?" behind the command's name asks for it. Answers 0.
int NTInternalHelp(const BUILTIN& row);
