// The three standard handles of the process, by number: 0 input, 1 output, 2 error.
#pragma once

#include <windows.h>

#include "platform/handle.h"

HANDLE StandardHandle(int number);
void SetStandardHandle(int number, HANDLE handle);

// A copy of any handle; children inherit it only when asked to.
OwnedHandle DuplicateHandle(HANDLE handle, bool inheritable);

// What a handle leads to.
enum class HandleKind { None, File, Pipe, Console, Device };
HandleKind KindOfHandle(HANDLE handle);
