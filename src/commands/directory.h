// Changing and showing directories: CD, CDD, PUSHD, POPD, DIRS and PATH.
#pragma once

#include "engine/tables.h"

int Cd_Command(CString& arguments);
int Cdd_Command(CString& arguments);
int Pushd_Command(CString& arguments);
int Popd_Command(CString& arguments);
int Dirs_Command(CString& arguments);

extern const CommandHelp cdHelp;
extern const CommandHelp cddHelp;
extern const CommandHelp pushdHelp;
extern const CommandHelp popdHelp;
extern const CommandHelp dirsHelp;

// Directories that PUSHD keeps at most.
constexpr std::size_t maximumDirectoryStack = 512;
