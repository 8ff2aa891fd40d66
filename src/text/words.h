// Cutting a command line into its words.
//
// Words are parted by delimiters outside double quotes, back-quotes and square brackets. Everything that
// speaks of "the nth argument" uses these, so that aliases, batch parameters and commands count alike.
#pragma once

#include <cstddef>
#include <string_view>
#include <vector>

#include "text/cstring.h"
#include "text/syntax.h"

// Blank, tab and comma, in .BAT and .CMD files also ';' and '='.
std::u16string_view Delimiters(const Syntax& syntax);
inline bool IsDelimiter(char16_t unit, const Syntax& syntax)
{
    return Delimiters(syntax).find(unit) != std::u16string_view::npos;
}

struct Word {
    std::size_t start = 0;
    std::size_t length = 0;
    std::size_t end() const { return start + length; }
};

// The word at or after `from`; its length is 0 at the end of the text, and only there.
Word NextWord(std::u16string_view text, std::size_t from, const Syntax& syntax);

// The same, parted by blanks and tabs outside double quotes alone: for texts in which every other delimiter
// may be a value.
Word NextBlankWord(std::u16string_view text, std::size_t from);

// Argument `n` (from 0) as it stands, quotes and all; empty when there are fewer. `start`, if given,
// receives its place, or npos when it is missing.
CString GetNthArgument(std::u16string_view text, int n, const Syntax& syntax, std::size_t* start = nullptr);

// Argument `n` and everything behind it to the end of the text.
std::u16string_view TailFromArgument(std::u16string_view text, int n, const Syntax& syntax);

int CountArguments(std::u16string_view text, const Syntax& syntax);

// All arguments. With `stripBackQuotes` (table bit 0x4) back-quotes around an argument are removed.
std::vector<CString> SplitArguments(std::u16string_view text, bool stripBackQuotes, const Syntax& syntax);

// Without the double quotes, wherever in the text they stand, or only those around the whole text.
CString WithoutQuotes(std::u16string_view text);
CString WithoutOuterQuotes(std::u16string_view text);
// In double quotes when it holds a character that would part it or end the command.
CString AddQuotes(std::u16string_view text);
bool NeedsQuotes(std::u16string_view text);
