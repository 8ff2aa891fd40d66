// The environment variables of the process, as the system keeps them.
//
// Nothing is cached: the system's block is the only store, so that programs we start and code in our own
// process see every change at once. Names mind no case. Names that begin with "=" (the current directories
// of the drives) are variables like any other here. Rules about what may be set belong to expand/lists.h.
#pragma once

#include <string_view>
#include <vector>

#include "text/cstring.h"

// The place of the "=" that ends the name in "name=value", or npos; a leading "=" belongs to the name.
constexpr std::size_t EnvironmentNameEnd(std::u16string_view entry)
{
    return entry.empty() ? std::u16string_view::npos : entry.find(u'=', 1);
}

// False when there is no such variable; `value` is then left alone.
bool ReadEnvironment(std::u16string_view name, CString& value);
bool IsInEnvironment(std::u16string_view name);

// Both answer false when the system refuses, with its reason in the thread's last error; removing a variable
// that does not exist succeeds.
bool WriteEnvironment(std::u16string_view name, std::u16string_view value);
bool RemoveEnvironment(std::u16string_view name);

// A copy of all variables as "name=value", in the system's order.
std::vector<CString> EnvironmentEntries();
