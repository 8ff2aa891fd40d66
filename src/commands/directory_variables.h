// DIRENV: environment variables that hold while the current directory is, or lies below, a certain one.
//
// Which these are is kept in the user's part of the registry, never in the directories: no folder can set
// anything by itself.
#pragma once

#include <string_view>

#include "engine/tables.h"

int Direnv_Command(CString& arguments);

extern const CommandHelp direnvHelp;

// Takes back what holds in the directory that was left and sets what holds in this one.
void ApplyDirectoryVariables(std::u16string_view directory);
