// The second table of internal variables: counters that commands set through SetResultCounter
// (engine/internal_entry.h).
#pragma once

#include <string_view>

#include "text/cstring.h"

// `name` without its leading "_"; false when no counter has it. A counter that was never set is 0.
bool ReadResultCounter(std::u16string_view name, CString& value);
