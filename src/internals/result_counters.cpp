// What the file commands counted when they last ended: %_copy_files and its like.
#include <iterator>

#include "engine/internal_entry.h"
#include "engine/state.h"
#include "engine/tables.h"
#include "internals/result_counters.h"
#include "text/format.h"

namespace {

struct CountingCommand {
    const char16_t* name; // in front of the "_"
};

// Commands of several names count under the shortest.
constexpr CountingCommand commands[] = {
    {u"7unzip"},  {u"7zip"},     {u"attrib"}, {u"bzip2"}, {u"copy"},    {u"copydir"}, {u"dedupe"},
    {u"del"},     {u"describe"}, {u"dir"},    {u"ffind"}, {u"fsearch"}, {u"global"},  {u"gzip"},
    {u"hash"},    {u"head"},     {u"jar"},    {u"list"},  {u"md"},      {u"mklink"},  {u"move"},
    {u"movedir"}, {u"pdir"},     {u"print"},  {u"rd"},    {u"recycle"}, {u"ren"},     {u"sreplace"},
    {u"sync"},    {u"tail"},     {u"tar"},    {u"touch"}, {u"tree"},    {u"type"},    {u"unbzip2"},
    {u"ungzip"},  {u"unjar"},    {u"untar"},  {u"unzip"}, {u"zip"},     {u"zipsfx"},
};
constexpr int commandCount = static_cast<int>(std::size(commands));
static_assert(IsSortedByName(commands, commandCount), "the rows stand in alphabetical order");

// What each of them counts.
constexpr std::u16string_view kinds[] = {u"files", u"dirs", u"errors"};

// The place of a counter in the thread's record, -1 when there is none of that name.
int CounterIndex(std::u16string_view name)
{
    const std::size_t bar = name.rfind(u'_');
    const int command = bar == name.npos ? -1 : FindRow(commands, commandCount, name.substr(0, bar));
    for (std::size_t kind = 0; command >= 0 && kind < std::size(kinds); ++kind)
        if (EqualNoCase(name.substr(bar + 1), kinds[kind]))
            return command * static_cast<int>(std::size(kinds)) + static_cast<int>(kind);
    return -1;
}

} // namespace

bool ReadResultCounter(std::u16string_view name, CString& value)
{
    const int index = CounterIndex(name);
    if (index < 0)
        return false;
    const std::vector<std::int64_t>& counters = Tls().resultCounters;
    const std::size_t at = static_cast<std::size_t>(index);
    value = Format(u"%I64d", at < counters.size() ? counters[at] : std::int64_t{0});
    return true;
}

void SetResultCounter(std::u16string_view name, std::int64_t count)
{
    const int index = CounterIndex(name);
    if (index < 0)
        return;
    std::vector<std::int64_t>& counters = Tls().resultCounters;
    counters.resize(std::size(commands) * std::size(kinds));
    counters[static_cast<std::size_t>(index)] = count;
}

void SetResultCounters(std::u16string_view command, const ResultCounts& counts)
{
    const CString stem = CString(command) + u"_";
    SetResultCounter(stem + kinds[0], counts.files);
    SetResultCounter(stem + kinds[1], counts.directories);
    SetResultCounter(stem + kinds[2], counts.errors);
}
