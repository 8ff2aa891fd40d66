// The stack of directories: PUSHD, POPD and DIRS.
#pragma once

#include "engine/tables.h"

int Pushd_Command(CString& arguments);
int Popd_Command(CString& arguments);
int Dirs_Command(CString& arguments);

extern const CommandHelp pushdHelp;
extern const CommandHelp popdHelp;
extern const CommandHelp dirsHelp;

// Directories that PUSHD keeps at most.
constexpr std::size_t maximumDirectoryStack = 512;
