// The current date and time as texts.
#pragma once

#include "text/cstring.h"

CString ShortDateText();    // as the user's settings write a short date
CString DetailedTimeText(); // " 9:05:00.12", hundredths of a second at the end
// What stopwatch 1 to 10 of TIMER shows now, "0:00:12.06"; "" when it does not run.
CString ElapsedTimeText(int timer);
