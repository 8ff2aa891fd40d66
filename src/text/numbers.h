// Whole numbers in text, read the way the shell's commands read them.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>

// The whole number at the start of `text`, as C's "%i" reads it: optional sign, then 0x hexadecimal, a
// leading zero for octal, else decimal. Leading white space is passed over. `used`, if given, receives the
// units consumed. Nothing when there is no digit; a value out of range sticks at the nearest limit.
std::optional<std::int64_t> ReadInteger(std::u16string_view text, std::size_t* used = nullptr);

// The same in decimal only, a leading zero meaning nothing.
std::optional<std::int64_t> ReadDecimal(std::u16string_view text, std::size_t* used = nullptr);

// The whole text, blanks around it aside, as one "%i" number; nothing when anything else stands there.
std::optional<std::int64_t> ParseInteger(std::u16string_view text);

// A time, "12", "2.5" or ".5", in units of `scale` milliseconds; nothing for any other text or a huge one.
std::optional<std::uint64_t> ParseDuration(std::u16string_view text, std::uint64_t scale);
