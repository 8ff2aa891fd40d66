// Letter case and comparisons that mind no case, the same on every machine and in every locale.
//
// Names of commands, variables, settings and files are compared with these; sorting for people is the
// file commands' own matter. Only simple one-to-one case mappings of the basic plane are known.
#pragma once

#include <cstddef>
#include <string_view>

class CString;

char16_t UpperCase(char16_t unit) noexcept;
char16_t LowerCase(char16_t unit) noexcept;
void MakeUpper(CString& text);
void MakeLower(CString& text);

// Below, at or above 0 as `a` sorts before, with or after `b`, both folded to upper case.
int CompareNoCase(std::u16string_view a, std::u16string_view b) noexcept;
bool EqualNoCase(std::u16string_view a, std::u16string_view b) noexcept;
bool BeginsNoCase(std::u16string_view text, std::u16string_view prefix) noexcept;
bool EndsNoCase(std::u16string_view text, std::u16string_view suffix) noexcept;
// The first place of `what` in `text` at or after `from`, or npos; an empty `what` is found at `from`.
std::size_t FindNoCase(std::u16string_view text, std::u16string_view what, std::size_t from = 0) noexcept;

constexpr bool IsBlank(char16_t unit) noexcept { return unit == u' ' || unit == u'\t'; }
constexpr bool IsDigit(char16_t unit) noexcept { return unit >= u'0' && unit <= u'9'; }
constexpr bool IsAsciiLetter(char16_t unit) noexcept
{
    return (unit >= u'a' && unit <= u'z') || (unit >= u'A' && unit <= u'Z');
}
// 0 to 15; -1 for what is no hexadecimal digit.
constexpr int HexDigit(char16_t unit) noexcept
{
    const char16_t lower = unit | 0x20;
    return IsDigit(unit) ? unit - u'0' : lower >= u'a' && lower <= u'f' ? lower - u'a' + 10 : -1;
}
// Bases up to 16.
constexpr bool IsDigitOf(char16_t unit, int base) noexcept
{
    return HexDigit(unit) >= 0 && HexDigit(unit) < base;
}
// A letter of any script that has case or stands above ASCII as a letter usually does.
bool IsLetter(char16_t unit) noexcept;
inline bool IsLetterOrDigit(char16_t unit) noexcept { return IsDigit(unit) || IsLetter(unit); }

// For tables whose keys mind no case; both take views, so that looking up makes no string.
struct NoCaseHash {
    using is_transparent = void;
    std::size_t operator()(std::u16string_view text) const noexcept;
};
struct NoCaseEqual {
    using is_transparent = void;
    bool operator()(std::u16string_view a, std::u16string_view b) const noexcept { return EqualNoCase(a, b); }
};
