// Conditions in the real world; TestCondition stands in engine/condition_entry.h.
#pragma once

#include "text/cstring.h"

// A condition whose references have been replaced already (SWITCH): the whole text counts. 1 true, 0 false,
// -1 syntax error.
int TestExpandedCondition(CString& text);
