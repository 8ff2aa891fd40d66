// Calls variable functions as fast as it can.
//
//     functions_speed [PASSES]
//
// Prints for each call the nanoseconds that one takes, and what finding a function by its name takes in a
// table of as many rows as the engine's.
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <string>
#include <vector>

#include "engine/inifile.h"
#include "functions/families.h"
#include "tests/unit/fake_expansion_world.h"

INIFILE aIniFile = {}; // for the dialect of regular expressions

namespace {

using Function = int (*)(FunctionCall& call);

struct Job {
    const char* name;
    Function function;
    const char16_t* arguments;
};

constexpr Job jobs[] = {
    {"@upper[...]", Upper_Function, u"the quick brown fox jumps over the lazy dog"},
    {"@left[...]", Left_Function, u"the quick brown fox,5"},
    {"@replace[...]", Replace_Function, u"the quick brown fox,o,00"},
    {"@word[...]", Word_Function, u"the quick brown fox,2"},
    {"@index[...]", Index_Function, u"the quick brown fox,fox"},
    {"@regex[...]", Regex_Function, u"q.*f,the quick brown fox"},
    {"@urlencode[...]", Urlencode_Function, u"the quick brown fox"},
};

double Nanoseconds(std::clock_t taken, unsigned long count)
{
    return 1e9 * static_cast<double>(taken) / CLOCKS_PER_SEC / static_cast<double>(count);
}

// Rows like the engine's: as many, with names of a usual length, and "upper" in its place.
class Rows {
public:
    Rows() : texts(count), rows(count)
    {
        for (std::size_t i = 0; i < count; ++i) {
            for (const std::size_t letter : {i / 26, i % 26})
                texts[i] += static_cast<char16_t>(u'a' + letter);
            texts[i] += u"name";
        }
        texts[count - 1] = u"upper";
        for (std::size_t i = 0; i < count; ++i)
            rows[i] = {texts[i].c_str(), Upper_Function};
    }

    int Find(std::u16string_view name) const { return FindRow(rows.data(), static_cast<int>(count), name); }
    const VariableFunctionRow& operator[](std::size_t n) const { return rows[n]; }
    static constexpr std::size_t count = 463;

private:
    std::vector<std::u16string> texts;
    std::vector<VariableFunctionRow> rows;
};

class World : public FakeExpansionWorld {
public:
    int CallFunction(std::u16string_view name, std::u16string_view arguments, CString& value) override
    {
        const int row = rows.Find(name);
        FunctionCall call{arguments, value, settings.syntax};
        return rows[static_cast<std::size_t>(row)].function(call);
    }

    Rows rows;
};

void MeasureLookup(unsigned long passes)
{
    const Rows rows;
    const auto start = std::clock();
    long found = 0;
    for (unsigned long pass = 0; pass < passes; ++pass)
        found += rows.Find(rows[pass * 7 % Rows::count].name);
    const auto taken = std::clock() - start;
    std::printf("%-16s %8.1f ns (%ld)\n", "look-up", Nanoseconds(taken, passes), found % 10);
}

void MeasureExpansion(unsigned long passes)
{
    World world;
    const CString pattern(u"echo %@upper[the quick brown fox]");
    const auto start = std::clock();
    for (unsigned long pass = 0; pass < passes; ++pass) {
        CString line(pattern);
        if (VariableExpansion(line, false, world) != 0)
            std::abort();
    }
    const auto taken = std::clock() - start;
    std::printf("%-16s %8.1f ns\n", "expanded line", Nanoseconds(taken, passes));
}

} // namespace

int main(int count, char** arguments)
{
    const unsigned long passes = count > 1 ? std::strtoul(arguments[1], nullptr, 10) : 1'000'000;
    const Syntax syntax;
    for (const Job& job : jobs) {
        const auto start = std::clock();
        for (unsigned long pass = 0; pass < passes; ++pass) {
            CString value;
            FunctionCall call{job.arguments, value, syntax};
            if (job.function(call) > 0)
                return 1;
        }
        std::printf("%-16s %8.1f ns\n", job.name, Nanoseconds(std::clock() - start, passes));
    }
    MeasureLookup(passes);
    MeasureExpansion(passes);
    return 0;
}
