// The values that the variable of a DO loop takes, one after the other.
#pragma once

#include <functional>

#include "text/cstring.h"

struct DoHeader;

// Answers false when there are no more values.
using ValueSource = std::function<bool(CString&)>;

// The source for DO x = a TO b BY c and DO x IN ...; nothing after an error, which has been reported.
ValueSource OpenCounter(const DoHeader& header);
ValueSource OpenWalk(const DoHeader& header);

// A whole number, calculated when it is more than that; false after an error.
bool ReadNumber(CString text, std::int64_t& number);
