// The switches with which file commands say which files they mean.
#pragma once

#include "files/attribute_masks.h"
#include "text/cstring.h"

// Takes the attribute switches (/A) out of the arguments. 0, or the result of a reported error.
int TakeAttributeSwitches(CString& arguments, AttributeMasks& masks);

// Takes the switches for subdirectories out: "/S" for all levels, "/S2" and "/S:2" for two. `deepest` stays
// as it is without one. 0, or the result of a reported error.
int TakeDepthSwitch(CString& arguments, int& deepest);
