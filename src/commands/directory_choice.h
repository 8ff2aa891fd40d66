// Going to a directory by a part of its name: the search of CD in the database of known directories
// (files/known_directories.h), and the person's choice among several.
#pragma once

#include <string_view>

#include "text/cstring.h"

// What the setting FuzzyCD finds for the name. False when nothing matches or the search is off; true with
// "" in `directory` when the person chose none of several.
bool ChooseKnownDirectory(std::u16string_view name, CString& directory);

// CDD /S: notes the directories below each of the places, all that was known before is forgotten; without
// places those of all fixed drives. CDD /U renews what is below the places. 0, or the result of a reported
// error.
enum class NoteMode { Anew, Renew };
int NoteDirectories(std::u16string_view places, NoteMode mode);
