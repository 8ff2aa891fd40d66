// The variables whose change takes effect at once, and what it does. Variables that are read whenever they
// are used (PATH, PROMPT, HistoryExclude and most others) need no row.
#include <iterator>

#include <stdlib.h>
#include <time.h>

#include "engine/tables.h"
#include "expand/lists.h"

namespace {

// The C library keeps its own copy of the environment and reads the zone once.
int SetTimeZone(std::u16string_view value)
{
    _wputenv_s(L"TZ", CString(value).w());
    _tzset();
    return result::success;
}

} // namespace

constexpr WatchedVariable aWatchedVariables[] = {
    {u"TZ", SetTimeZone},
};
constexpr int nWatchedVariables = static_cast<int>(std::size(aWatchedVariables));
static_assert(IsSortedByName(aWatchedVariables, nWatchedVariables));
