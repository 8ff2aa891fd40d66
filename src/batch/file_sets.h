// The file names that a pattern of FOR or DO stands for, by the rules of files/file_search.h.
#pragma once

#include <functional>
#include <string_view>
#include <vector>

#include "text/cstring.h"

enum class MatchKind { Files, Directories };

// Appends the names that match, in their order, each with the directory as it stands in the pattern. Hidden
// and system files are left out, as are "." and "..". In quotes ";" and "=" are characters of a name.
void AppendMatches(std::u16string_view pattern, MatchKind kind, std::vector<CString>& names);

// Calls `visit` with the directory and every directory below it, each with a separator at its end, until it
// answers false.
bool WalkDirectories(std::u16string_view directory, const std::function<bool(const CString&)>& visit);
