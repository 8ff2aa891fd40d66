// What Tab costs in a folder of 20,000 files, apart from reading it: the time to the first candidate.
#include <algorithm>
#include <chrono>
#include <cstdio>
#include <string>
#include <vector>

#include "tests/unit/fake_completion_world.h"
#include "text/format.h"

namespace {

using Clock = std::chrono::steady_clock;

void Measure(const char* what, FakeCompletionWorld& world, std::u16string_view line)
{
    std::vector<double> took;
    std::size_t candidates = 0;
    for (int pass = 0; pass < 21; ++pass) {
        const auto before = Clock::now();
        candidates = Complete(line, line.size(), CompletionKind::Files, world).candidates.size();
        took.push_back(std::chrono::duration<double, std::milli>(Clock::now() - before).count());
    }
    std::sort(took.begin(), took.end());
    std::printf("%-40s %6zu candidates, median %6.2f ms, slowest %6.2f ms\n", what, candidates,
                took[took.size() / 2], took.back());
}

} // namespace

int main()
{
    constexpr unsigned count = 20'000;
    constexpr unsigned step = 7919; // prime to the count: names come in no order
    FakeCompletionWorld world;
    std::vector<std::u16string>& sorted = world.disk.folders[u"c:\\sorted\\"];
    for (unsigned i = 0; i < count; ++i)
        sorted.emplace_back(Format(u"Report of 2026 number %05u.txt", i).view());
    std::vector<std::u16string>& mixed = world.disk.folders[u"c:\\mixed\\"];
    for (unsigned i = 0; i < count; ++i)
        mixed.push_back(sorted[i * step % count]);
    Measure("all, as NTFS orders them", world, u"type c:\\sorted\\");
    Measure("all, in no order", world, u"type c:\\mixed\\");
    Measure("a beginning that ten have", world, u"type \"c:\\mixed\\report of 2026 number 1234");
    return 0;
}
