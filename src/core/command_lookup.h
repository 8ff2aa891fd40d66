// Finding internal commands and keeping what changes about them at run time: whether they are enabled and
// with which flags. The constant table stands in commands/rows.cpp.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

#include "engine/tables.h"

// The internal command that a line begins with: its index, or -1 when the line begins with something else or
// the command is disabled (disabled ones are found with `includeDisabled`). `nameEnd`, if given, receives the
// place behind the name.
int FindInternalCommand(std::u16string_view line, bool includeDisabled, const BUILTIN** row = nullptr,
                        std::size_t* nameEnd = nullptr);

// How often commands were switched on or off or given other flags: the same number, the same answers.
std::uint64_t CommandStateChanges();

// Flags of a row as they are now, private ones included.
unsigned CommandFlags(const BUILTIN& row);
bool IsCommandEnabled(const BUILTIN& row);

// By name, disabled commands included. Flags are 0 for an unknown name; the setters answer 2 for one.
int QueryIsCommandEnabled(std::u16string_view name);
unsigned QueryInternalCommandFlags(std::u16string_view name);
int SetInternalCommandFlags(std::u16string_view name, unsigned flags);
int EnableInternalCommand(std::u16string_view name); // every command when the name is empty
// All commands, or (with 0) just the basic set.
void SelectCommandSet(bool all);
