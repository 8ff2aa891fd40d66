// Finding programs and batch files by name: current directory, PATH, the folder of scripts, application paths
// of the registry.
#pragma once

#include <string_view>
#include <vector>

#include "text/cstring.h"

// What counts as a match for a name without extension.
enum class SearchKind {
    Program, // anything that can be run
    Batch,   // .btm, .bat and .cmd
};

struct FoundProgram {
    CString file;       // full name
    CString extraPaths; // folders that the program wants in front of PATH; "" for none
};

// Looks for a program. Names with wildcards are never found.
bool SearchPaths(std::u16string_view name, FoundProgram& found, SearchKind kind = SearchKind::Program);
// The full name of what SearchPaths finds, "" for nothing.
CString SearchPaths(std::u16string_view name, SearchKind kind = SearchKind::Program);
// The same along a list of folders in place of the current directory and PATH, without the registry.
CString SearchAlong(std::u16string_view name, std::u16string_view list);
// Every match in the order of the search, the registry's last.
std::vector<CString> SearchAllPaths(std::u16string_view name);

// The folders in which programs are looked for by their bare names, the current directory left out.
std::vector<CString> ProgramFolders();

// The extensions that make a file a command, in the order of the search: PATHEXT with that setting, else the
// built-in list and the script languages that are switched on; then those of executable-extension variables.
std::vector<CString> ExecutableExtensions();
// Whether the extension (with its period) is one of PATHEXT's or of the built-in list.
bool IsExecutableExtension(std::u16string_view extension);
