// Writing settings into the INI file in use, for the commands that change them.
//
// The file is changed as ini_writer.h says and replaced as a whole, so that whoever reads it meanwhile sees
// the old or the new one.
#pragma once

#include <vector>

// What to write: indexes of directives and of key functions.
struct SettingIndexes {
    std::vector<int> directives;
    std::vector<int> keyFunctions;

    bool empty() const { return directives.empty() && keyFunctions.empty(); }
};

// How what is written is to stand in the file.
enum class IniSaving {
    Values, // as they are now
    Nothing // not at all: the default is to hold
};

// 0, or 2 when it was reported that there is no file or that it cannot be changed.
int SaveToIniFile(const SettingIndexes& what, IniSaving how);
