// Conditions: declared here for every floor, defined in batch/.
#pragma once

#include "text/cstring.h"

enum class ConditionMode { Whole, If, Iff };

// Tests the condition at the start of the text and cuts its words out, so that the command is left.
// 1 true, 0 false, -1 syntax error (not reported).
int TestCondition(CString& text, ConditionMode mode);
