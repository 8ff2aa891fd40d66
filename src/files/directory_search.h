// Finding directories by a part of their names among many known ones: what CD does with a name that is no
// directory. Pure.
#pragma once

#include <string_view>
#include <vector>

#include "text/cstring.h"

// How much of a name a person must tell; the values of the setting FuzzyCD.
enum class DirectoryMatch { None, Exact, Beginning, Anywhere };

// The directories, full names without separators at their ends, whose last components match those of `name`:
// "inc" finds "C:\src\include", and "s\inc" does so, too. Wildcards in a component match in their own way.
// Those that match exactly come first, then those that begin so, each in the given order.
std::vector<CString> MatchDirectories(const std::vector<CString>& directories, std::u16string_view name,
                                      DirectoryMatch match);
