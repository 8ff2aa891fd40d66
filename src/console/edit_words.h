// Where words and arguments of a line begin and end, for the motions and deletions of the line editor. Pure.
//
// A word is a run of letters, digits and what is joined to them ("_", characters beyond ASCII); between words
// stand blanks and signs. An argument ends at a blank outside quotes.
#pragma once

#include <cstddef>
#include <string_view>

// The beginning of the word to the left of `at`, and the beginning of the next word to its right; the ends of
// the text when there is none.
std::size_t WordLeftOf(std::u16string_view text, std::size_t at);
std::size_t WordRightOf(std::u16string_view text, std::size_t at);
// The end of the word at or behind `at`.
std::size_t WordEndAt(std::u16string_view text, std::size_t at);

// The beginning of the argument that `at` is in or behind, and the end of the one that it is in or before.
std::size_t ArgumentLeftOf(std::u16string_view text, std::size_t at);
std::size_t ArgumentRightOf(std::u16string_view text, std::size_t at);

// The line of a text of several lines.
std::size_t LineBeginAt(std::u16string_view text, std::size_t at);
std::size_t LineEndAt(std::u16string_view text, std::size_t at);
// The place above or below `at`, as near as the other line allows; npos when there is no other line.
std::size_t PlaceInLineAbove(std::u16string_view text, std::size_t at);
std::size_t PlaceInLineBelow(std::u16string_view text, std::size_t at);
