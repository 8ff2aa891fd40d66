// What the file commands counted when they last ended: %_copy_files and its like.
#include <iterator>

#include "engine/internal_entry.h"
#include "engine/state.h"
#include "engine/tables.h"
#include "internals/result_counters.h"
#include "text/format.h"

namespace {

struct ResultCounterRow {
    const char16_t* name; // without the leading "_"
};

constexpr ResultCounterRow resultCounters[] = {
    {u"7unzip_errors"}, {u"7unzip_files"}, {u"7zip_errors"}, {u"7zip_files"},  {u"attrib_dirs"},
    {u"attrib_errors"}, {u"attrib_files"}, {u"copy_dirs"},   {u"copy_errors"}, {u"copy_files"},
};

constexpr int resultCounterCount = static_cast<int>(std::size(resultCounters));
static_assert(IsSortedByName(resultCounters, resultCounterCount), "the rows stand in alphabetical order");

} // namespace

bool ReadResultCounter(std::u16string_view name, CString& value)
{
    const int row = FindRow(resultCounters, resultCounterCount, name);
    if (row < 0)
        return false;
    const std::vector<std::int64_t>& counters = Tls().resultCounters;
    const std::size_t index = static_cast<std::size_t>(row);
    value = Format(u"%I64d", index < counters.size() ? counters[index] : std::int64_t{0});
    return true;
}

void SetResultCounter(std::u16string_view name, std::int64_t count)
{
    const int row = FindRow(resultCounters, resultCounterCount, name);
    if (row < 0)
        return;
    std::vector<std::int64_t>& counters = Tls().resultCounters;
    counters.resize(static_cast<std::size_t>(resultCounterCount));
    counters[static_cast<std::size_t>(row)] = count;
}
