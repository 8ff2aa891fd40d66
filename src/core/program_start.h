// Starting one program whose file is known, waiting for it as the rules ask, and taking over its exit code.
#pragma once

#include <string_view>

#include "platform/process.h"
#include "text/cstring.h"

// Starts a program, or opens a document with its program, and waits unless it is a windowed one started from
// the prompt. The arguments go to it exactly as they stand. The exit code becomes the error level; answers a
// result of the command. `extraPaths` stands in front of PATH while the program is started.
int External(const CString& program, const CString& arguments, const CString& extraPaths = {});

// Opens a URL with the program that the user has chosen for it.
int GotoURL(std::u16string_view url);

// Opens a file or folder through the Windows shell; boxes only where somebody sits who can answer them. 0, or
// the Windows error.
unsigned OpenWithShell(const CString& file, const CString& arguments);

// Waits for a child whatever the rules say, makes its exit code the error level and answers the result. A
// break ends the waiting for a windowed program.
int WaitForProgram(ChildProcess& child, bool windowed, const CString& program);

// Whether the file may be run as far as the mark of its origin goes: the user was asked where the ZoneId
// setting wants it.
bool IsZoneAccepted(const CString& program);
