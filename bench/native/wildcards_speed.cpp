// How many names a second a wildcard pattern is compared with, for patterns as users write them, and how long
// the worst kind of pattern takes on a long name.
#include <cstdio>
#include <ctime>
#include <string>
#include <vector>

#include "files/wildcards.h"
#include "text/encoding.h"
#include "text/format.h"

namespace {

// Of this process, so that others at work do not count.
double SecondsSince(std::clock_t start) { return static_cast<double>(std::clock() - start) / CLOCKS_PER_SEC; }

void CompareWithMany(std::u16string_view pattern, const std::vector<CString>& names)
{
    constexpr int passes = 50;
    int matches = 0;
    const auto start = std::clock();
    for (int pass = 0; pass < passes; ++pass)
        for (const CString& name : names)
            matches += WildcardComparison(pattern, name, true, true) == 0;
    const double took = SecondsSince(start);
    std::printf("%-24s %6.2f million names a second, %llu%% of them match\n", ToUtf8(pattern).c_str(),
                passes * static_cast<double>(names.size()) / took / 1e6,
                matches * 100ull / (passes * names.size()));
}

} // namespace

int main()
{
    std::vector<CString> names;
    constexpr const char16_t* types[] = {u"cpp", u"h", u"txt", u"jpeg", u"obj"};
    for (int i = 0; i < 20000; ++i)
        names.push_back(Format(u"%s_%d report %d.%s", CString(i % 3 ? u"Holiday" : u"Backup"), i,
                               i * 7919 % 10007, CString(types[i % 5])));
    for (const std::u16string_view pattern :
         {u"*.txt", u"*report*.cpp", u"Holiday_??? *", u"[a-m]*_*[0-5].h", u"*"})
        CompareWithMany(pattern, names);

    const CString worst(5000, u'a');
    const auto start = std::clock();
    const int result = WildcardComparison(u"*a*a*a*a*b", worst, true, true);
    std::printf("*a*a*a*a*b on 5,000 letters %.3f ms (%s)\n", SecondsSince(start) * 1e3,
                result ? "no match" : "match");
    return 0;
}
