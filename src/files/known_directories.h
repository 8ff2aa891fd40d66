// The database of directories that CD searches by parts of their names.
//
// It is a text file in the folder that the setting TreePath names, else in that of the user's local data:
// UTF-8, one full name a line. Changes are added at its end ("+" and "-" in front of a name, with all that is
// below it) and worked in when it is read. While there is no file, nothing is kept.
#pragma once

#include <string_view>
#include <vector>

#include "text/cstring.h"

CString KnownDirectoriesFile();

// In the order of their names. False when there is no database, or with the reason in the last error when it
// cannot be read.
bool ReadKnownDirectories(std::vector<CString>& directories);
// The whole database. 0 or a Windows error number.
unsigned WriteKnownDirectories(const std::vector<CString>& directories);

// The directories from `root` down, itself included. Break is thrown when the person breaks it off.
std::vector<CString> DirectoriesBelow(std::u16string_view root);
// Takes `root` and all below it out.
void RemoveBelow(std::vector<CString>& directories, std::u16string_view root);

// For commands that change directories; the names are full.
void NoteNewDirectory(std::u16string_view name);
void NoteRemovedDirectory(std::u16string_view name);
// Moved or renamed, with all that is in it.
void NoteMovedDirectory(std::u16string_view from, std::u16string_view to);
