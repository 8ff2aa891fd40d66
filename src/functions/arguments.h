// Taking a function's argument text apart.
//
// What a function takes is written as a pattern of letters, "|" before the first that may be missing:
//   s  the subject: any text, taken as it stands
//   t  a text; double quotes or back-quotes around it are taken off
//   q  the same, but it counts only in quotes (an optional text at the end of a free one)
//   n  a whole number
// The subject may hold commas: it takes what the other arguments leave over. The rules for users stand in
// docs/functions-conventions.md.
#pragma once

#include <array>
#include <cstdint>
#include <string_view>
#include <vector>

#include "engine/tables.h"
#include "text/cstring.h"
#include "text/syntax.h"

// The pieces of the text between commas. Commas in double quotes, back-quotes or behind the escape character
// part nothing; a quote that is never closed is an ordinary character.
std::vector<std::u16string_view> SplitFunctionArguments(std::u16string_view text, const Syntax& syntax);

// Without back-quotes or, else, double quotes around it.
std::u16string_view BareArgument(std::u16string_view piece);

// A whole number, decimal or 0x hexadecimal, blanks around it aside.
bool ReadNumberArgument(std::u16string_view piece, std::int64_t& number);

class FunctionArguments {
public:
    static constexpr std::size_t most = 8;

    // The arguments are views of the call's text.
    FunctionArguments(const FunctionCall& call, std::u16string_view pattern);

    // 0, or the code that the function is to answer when the arguments do not fit the pattern.
    int Error() const { return error; }
    bool Has(std::size_t n) const { return n < count; }
    std::u16string_view Text(std::size_t n) const { return n < count ? texts[n] : std::u16string_view(); }
    std::int64_t Number(std::size_t n, std::int64_t otherwise = 0) const
    {
        return n < count ? numbers[n] : otherwise;
    }

private:
    bool Take(const std::vector<std::u16string_view>& pieces, std::u16string_view letters,
              std::u16string_view text);

    std::array<std::u16string_view, most> texts;
    std::array<std::int64_t, most> numbers = {};
    std::size_t count = 0;
    int error = 0;
};
