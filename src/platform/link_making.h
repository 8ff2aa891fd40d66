// Making symbolic links and junctions (MakeHardLink is in file_changes.h); the names of a file.
//
// Names may be relative and longer than 260 characters. Everything answers 0 or a Windows error number.
#pragma once

#include <string_view>
#include <vector>

#include "text/cstring.h"

// The target is kept as it is written, relative to the link's directory when it is relative; it need not
// exist. Without the right for it, systems in developer mode still allow it.
unsigned MakeSymbolicLink(std::u16string_view link, std::u16string_view target, bool toDirectory);
// A directory that leads to another one, of this computer. The target is made a full name; it need not exist.
unsigned MakeJunction(std::u16string_view link, std::u16string_view target);

// The full names of a file, its own among them. Empty where the file system cannot tell.
std::vector<CString> HardLinkNames(std::u16string_view name);
