// The current date and time as texts.
#pragma once

#include "text/cstring.h"

CString ShortDateText();    // as the user's settings write a short date
CString DetailedTimeText(); // " 9:05:00.12", hundredths of a second at the end
