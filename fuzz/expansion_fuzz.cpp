// Variable expansion of any text under any settings: it must end soon, keep within its limits and leave the
// thread's counters as they were.
#include <cstdint>
#include <cstdlib>

#include "engine/state.h"
#include "tests/unit/fake_expansion_world.h"
#include "text/encoding.h"

namespace {

void FillWorld(FakeExpansionWorld& world)
{
    world.environment = {
        {u"a", u"one"},
        {u"b", u"two words"},
        {u"abc", u"ABCDEF"},
        {u"q", u"\""},
        {u"self", u"%self%"},
        {u"grow", u"x%grow%"},
        {u"d", u"%e%%e%"},
        {u"e", u"%f%%f%"},
        {u"f", u"%g%%g%"},
        {u"g", u"%@body[$1$1|%d]"},
        {u"my var", u"spaced"},
        {u"l[1]", u"first"},
        {u"fn", u"%@double[%fn]"},
        {u"half", u"%@upper["},
        {u"pct", u"50%"},
        {u"back", u"`%a"},
        {u"arr", u"%arr[%arr[1]]"},
    };
    world.computed = {{u"?", u"7"}, {u"_date", u"%_date"}};
    world.aliases = {{u"ls", u"dir %a"}, {u"loop", u"%loop"}};
    world.loops = {{u'i', u"C:\\x\\y.z"}, {u'n', u"%%i"}};
    world.array = {u"zero", u"%arr[0]", u"%arr[1]"};
    world.files = {{u"C:\\x\\y.z", u"12"}};
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    if (size < 2)
        return 0;
    FakeExpansionWorld world;
    FillWorld(world);
    const unsigned bits = data[0];
    world.settings.cmdVariables = bits & 1;
    world.settings.delayedExpansion = bits & 2;
    world.settings.pseudoVariables = bits & 4;
    world.settings.syntax.openQuotes = bits & 8;
    world.settings.syntax.cmdDelimiters = bits & 8;
    world.settings.mask = (bits & 16 ? expansion_mask::valuesNotRescanned : 0u) |
                          (bits & 32 ? expansion_mask::noBracketRule : 0u);
    if (bits & 64) {
        world.batch = {u"C:\\b.cmd", u"one", u"\"two words\"", u"%1"};
        world.batchText = u"one \"two words\" %1";
        world.shift = data[1] % 6;
    }
    CString line = FromUtf8({reinterpret_cast<const char*>(data + 2), size - 2});
    const int code = VariableExpansion(line, bits & 128, world);
    const bool bounded = line.size() <= longestExpansion + size;
    const bool told = code == 0 || code == 5 || !world.reported.empty();
    if (!bounded || !told || world.progress.depth != 0 || world.progress.steps != 0 || world.endLocal)
        std::abort();
    return 0;
}
