// Evaluates expressions as fast as it can.
//
//     evaluator_speed PLACES PASSES < expressions
//
// Reads one expression a line, evaluates all of them PASSES times with at most PLACES places behind the
// decimal point, writes the values of the last pass to standard output and the seconds of all passes, which
// include reading the numbers and writing the values as text, to standard error.
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <iostream>
#include <string>
#include <vector>

#include "expand/evaluator.h"
#include "text/encoding.h"

int main(int count, char** arguments)
{
    EvaluatorSettings settings;
    settings.most = count > 1 ? std::strtoul(arguments[1], nullptr, 10) : 10;
    const unsigned long passes = count > 2 ? std::strtoul(arguments[2], nullptr, 10) : 1;

    std::vector<CString> expressions;
    for (std::string line; std::getline(std::cin, line);)
        expressions.push_back(FromUtf8(line));

    EvaluatorNames names;
    std::vector<CString> values(expressions.size());
    const auto start = std::chrono::steady_clock::now();
    for (unsigned long pass = 0; pass < passes; ++pass)
        for (std::size_t i = 0; i < expressions.size(); ++i) {
            values[i] = expressions[i];
            if (EvaluateDecimal(values[i], settings, names).code)
                values[i] = u"error";
        }
    const std::chrono::duration<double> took = std::chrono::steady_clock::now() - start;
    for (const CString& value : values)
        std::puts(ToUtf8(value).c_str());
    std::fprintf(stderr, "%.6f\n", took.count());
    return 0;
}
