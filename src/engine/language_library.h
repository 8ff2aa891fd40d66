// The library that holds the shell's texts. String resources are read without the system's window library,
// whose loading would cost more than everything else at start-up.
//
// A text that the library of the setting LanguageDLL lacks is taken from English.dll beside the engine, and
// one that nobody has is empty: errors are then told by their number.
#pragma once

#include <vector>

#include "text/cstring.h"

// Takes the texts from another library; false (the last error says why) leaves the one in use. A library
// without texts of the shell is refused.
bool LoadLanguageLibrary(const CString& path);

// The library that the setting LanguageDLL names, or English while there is none. One that cannot be loaded
// is reported, in English.
void LoadLanguageOfSettings();

// The pages of the reference that the library in use holds, one after the other; English ones when it has
// none.
std::vector<CString> ReferencePages();
