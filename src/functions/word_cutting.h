// Cutting texts into words and fields.
//
// Words are parted by runs of separators, fields by each single one, so that fields may be empty. Text in
// double quotes is never parted.
#pragma once

#include <string_view>
#include <vector>

constexpr std::u16string_view usualSeparators = u" \t,";

std::vector<std::u16string_view> SplitFields(std::u16string_view text, std::u16string_view separators);
std::vector<std::u16string_view> SplitWords(std::u16string_view text, std::u16string_view separators);
