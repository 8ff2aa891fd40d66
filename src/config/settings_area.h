// The settings as they stand in the memory section that child shells read.
//
// The record comes first, byte for byte, then the text of every string, path and password setting in the
// order of the table and the name of the INI file in use, each ended by a NUL. Nothing in the area is
// trusted: the reader is another process.
#pragma once

#include <cstddef>
#include <span>
#include <string_view>

#include "engine/inifile.h"
#include "text/cstring.h"

constexpr std::size_t settingsAreaBytes = 5792;

// A text for which no room is left is stored as "not set".
void WriteSettingsArea(const INIFILE& ini, std::u16string_view iniFile, std::span<std::byte> area);

// Fills `ini`, whose texts must be unset; false, and nothing is changed, when the area holds something else.
bool ReadSettingsArea(std::span<const std::byte> area, INIFILE& ini, CString& iniFile);
