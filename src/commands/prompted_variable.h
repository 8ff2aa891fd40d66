// The end of a command that asks for a value: "prompt %variable". The reference was doubled to get past the
// expansion that is behind us.
#pragma once

#include "text/cstring.h"

// A prompt in double quotes loses them; without quotes the blank behind it is part of it. 0, or the result of
// a reported error.
int TakePromptAndVariable(CString& text, CString& prompt, CString& variable);
