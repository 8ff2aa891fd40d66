// What the functions about files and drives share: their subject, and their answers.
//
// Names and texts that come from a disk may hold anything: they are answered with answer::ForeignText, which
// is never scanned for references.
#pragma once

#include <cstdint>
#include <string_view>

#include "functions/answers.h"
#include "text/cstring.h"

// The file's name without blanks and quotes around it.
CString FileArgument(std::u16string_view piece);

// The codes of lang/messages.h as functions answer them.
inline int Refuse(unsigned code) { return static_cast<int>(code); }

// The thread's last error, for what the system refused; never 0, which would mean success.
int SystemError();
