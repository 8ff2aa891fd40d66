// Finding a character on a command line without being fooled by quotes, brackets and escapes.
//
// Everything that cuts lines (separators, redirections, references, blocks) goes through here, so that all
// of them agree about what is quoted. The scanner passes over the character behind the escape character,
// except inside quotes, where the escape character is literal.
#pragma once

#include <cstddef>
#include <limits>
#include <string_view>

#include "text/syntax.h"

// Ways of quoting that scan can be told to respect, in any combination.
namespace quotes {
constexpr std::u16string_view back = u"`";
constexpr std::u16string_view both = u"`\"";
constexpr std::u16string_view bothAndParentheses = u"`\"(";
constexpr std::u16string_view backAndParentheses = u"`(";
constexpr std::u16string_view backAndBrackets = u"`[";
} // namespace quotes

// The place of the first unit of `targets` at or after `from` that stands outside the quotes named in
// `quoting` (any of ` " ( [ ; the brackets nest). npos when there is none. A quote or bracket that is never
// closed hides the rest of the text and sets `*unclosed` to its opening character, which is left alone
// otherwise.
std::size_t scan(std::u16string_view text, std::u16string_view targets, std::u16string_view quoting,
                 const Syntax& syntax, std::size_t from = 0, char16_t* unclosed = nullptr);

// The place of the bracket that closes the one standing at `open` ('(', '[' or '{'), nested ones counted and
// quoted text (by `quoting`) passed over; npos when it is never closed or when more than `deepest` brackets
// stand inside each other.
std::size_t FindClosing(std::u16string_view text, std::size_t open, std::u16string_view quoting,
                        const Syntax& syntax, int deepest = std::numeric_limits<int>::max());
