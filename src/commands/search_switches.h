// The switches with which file commands say which files they mean.
#pragma once

#include "files/attribute_masks.h"
#include "text/cstring.h"

// Takes the attribute switches (/A) out of the arguments. 0, or the result of a reported error.
int TakeAttributeSwitches(CString& arguments, AttributeMasks& masks);
