// The environment variables of the process.
//
// The system's block is where they live, and it is searched and copied as a whole for every change. What a
// script sets is therefore kept here until somebody else could see it: PublishEnvironment writes it down, and
// is called before a process starts, before code of other libraries runs (lazy_library.h, module.h) and when
// the host gets the control back. Whoever calls a system function that looks into the environment by another
// way calls it too. Variables that kernel32 itself uses (PATH, TMP, "=C:") are written at once.
//
// Names mind no case. Names that begin with "=" (the current directories of the drives) are variables like
// any other here. Rules about what may be set belong to expand/lists.h.
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

// Both answer false when the system refuses, with its reason in the thread's last error, and the variable is
// as it was; removing one that does not exist succeeds. A variable takes over the spelling of its new name.
bool WriteEnvironment(std::u16string_view name, std::u16string_view value);
bool RemoveEnvironment(std::u16string_view name);

// A copy of all variables as "name=value", in the system's order; with `prefix` only those whose names begin
// with it.
std::vector<CString> EnvironmentEntries(std::u16string_view prefix = {});

void PublishEnvironment() noexcept;
