// The switches with which file commands say which files they mean, and the walk over these.
#pragma once

#include <functional>
#include <vector>

#include "files/attribute_masks.h"
#include "files/file_search.h"
#include "text/cstring.h"

// Takes the attribute switches (/A) out of the arguments. 0, or the result of a reported error.
int TakeAttributeSwitches(CString& arguments, AttributeMasks& masks);

// Takes the ranges and the attribute switches out. 0, or the result of a reported error.
int TakeSelection(CString& arguments, FILESEARCH& search);

// Takes the switches for subdirectories out: "/S" for all levels, "/S2" and "/S:2" for two. `deepest` stays
// as it is without one. 0, or the result of a reported error.
int TakeDepthSwitch(CString& arguments, int& deepest);

// Calls `visit` for each file that the search finds for each of the names. A name that nothing matches, and
// what could not be searched, are reported. 0, or the result of the last error.
int ForEachMatch(FILESEARCH& search, const std::vector<CString>& names, const std::function<void()>& visit);
