// The window's title. Between commands it is the standing title; while a command runs, that stands behind it.
#pragma once

#include "text/cstring.h"

// Makes `title` the standing title and shows it. False when there is no console, or it refuses.
bool SetStandingTitle(const CString& title);
