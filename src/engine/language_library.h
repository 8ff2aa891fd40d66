// The library that holds the shell's texts. String resources are read without the system's window library,
// whose loading would cost more than everything else at start-up.
#pragma once

#include <vector>

#include "text/cstring.h"

// Loads another language library in place of the one in use; false (the last error says why) leaves the old
// one. Until the first call, or the first text, English.dll beside the engine is used.
bool LoadLanguageLibrary(const CString& path);
bool LoadEnglish();
// The library that the setting LanguageDLL names, or English while there is none. One that cannot be loaded
// is reported.
void LoadLanguageOfSettings();

// The pages of the reference that the library in use holds, one after the other; English ones when it has
// none.
std::vector<CString> ReferencePages();
