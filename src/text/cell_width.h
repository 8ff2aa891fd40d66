// How many cells of a console a character takes, and where characters begin as people see them: a character
// and the marks that combine with it are one.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

// 0 for marks that combine with the character before them, 2 for wide characters, else 1. Control characters
// count as 1.
int CellWidth(std::uint32_t code);
int TextWidth(std::u16string_view text);
// Rows of so many columns that a console takes for the text, one at least: a wide character is not parted,
// tabs go to every eighth column.
int RowsOnScreen(std::u16string_view text, int columns);
// Units of the words that a row of so many cells has room for, without the blanks behind them; at least one
// word.
std::size_t WordsThatFit(std::u16string_view text, int columns);

// Where the character behind the one at `at` begins, and the one before it; the ends of the text at its ends.
std::size_t NextCharacter(std::u16string_view text, std::size_t at);
std::size_t PreviousCharacter(std::u16string_view text, std::size_t at);
