// Calls variable functions as fast as it can.
//
//     functions_speed [PASSES]
//
// Prints for each call the nanoseconds that one takes, and what finding a function by its name takes in a
// table of as many rows as the engine's.
#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <vector>

#include "functions/families.h"

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

double Nanoseconds(std::chrono::steady_clock::duration taken, unsigned long count)
{
    return std::chrono::duration<double, std::nano>(taken).count() / static_cast<double>(count);
}

// Rows like the engine's: as many, with names of a usual length.
struct Row {
    std::u16string text;
    const char16_t* name;
};

void MeasureLookup(unsigned long passes)
{
    constexpr int count = 463;
    std::vector<Row> rows(count);
    for (int i = 0; i < count; ++i) {
        const int letters[] = {i / 26 / 26 % 26, i / 26 % 26, i % 26};
        for (const int letter : letters)
            rows[static_cast<std::size_t>(i)].text += static_cast<char16_t>(u'a' + letter);
        rows[static_cast<std::size_t>(i)].text += u"name";
    }
    for (Row& row : rows)
        row.name = row.text.c_str();
    const auto start = std::chrono::steady_clock::now();
    long found = 0;
    for (unsigned long pass = 0; pass < passes; ++pass)
        found += FindRow(rows.data(), count, rows[pass * 7 % count].name);
    const auto taken = std::chrono::steady_clock::now() - start;
    std::printf("%-16s %8.1f ns (%ld)\n", "look-up", Nanoseconds(taken, passes), found % 10);
}

} // namespace

int main(int count, char** arguments)
{
    const unsigned long passes = count > 1 ? std::strtoul(arguments[1], nullptr, 10) : 1'000'000;
    const Syntax syntax;
    for (const Job& job : jobs) {
        const auto start = std::chrono::steady_clock::now();
        for (unsigned long pass = 0; pass < passes; ++pass) {
            CString value;
            FunctionCall call{job.arguments, value, syntax};
            if (job.function(call) > 0)
                return 1;
        }
        std::printf("%-16s %8.1f ns\n", job.name,
                    Nanoseconds(std::chrono::steady_clock::now() - start, passes));
    }
    MeasureLookup(passes);
    return 0;
}
