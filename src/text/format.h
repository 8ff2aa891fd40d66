// The one formatter: printf-like patterns over typed arguments, into UTF-16.
//
//   Format(u"%-*s %4d\r\n", width, name, count)
//
// Directives: %s text, %c one unit, %d %i %u %ld %lu %I64d %I64u numbers, %x %X hexadecimal, %o octal, %%.
// Flags '-', '0' and '+', a width and a precision (both may be '*') work as in C. The argument's own type
// decides, so a length letter is accepted and ignored, and a wrong pairing prints something readable
// instead of reading foreign memory. A directive without argument stays as it stands.
#pragma once

#include <concepts>
#include <cstdint>
#include <initializer_list>
#include <string_view>

#include "text/cstring.h"

class FormatArgument {
public:
    enum class Kind { Text, Signed, Unsigned, Unit };

    FormatArgument(std::u16string_view value) : kind(Kind::Text), text(value) {}
    FormatArgument(const CString& value) : kind(Kind::Text), text(value.view()) {}
    FormatArgument(const char16_t* value) : kind(Kind::Text), text(value ? value : u"") {}
    FormatArgument(char16_t value) : kind(Kind::Unit), number(value) {}
    FormatArgument(bool value) : kind(Kind::Signed), number(value ? 1 : 0) {}
    template <std::signed_integral T>
    FormatArgument(T value)
        : kind(Kind::Signed), number(static_cast<std::uint64_t>(static_cast<std::int64_t>(value))),
          bits(sizeof(T) * 8)
    {}
    template <std::unsigned_integral T>
    FormatArgument(T value) : kind(Kind::Unsigned), number(value), bits(sizeof(T) * 8)
    {}

    Kind kind;
    std::u16string_view text;
    std::uint64_t number = 0;
    unsigned bits = 64; // width of the number's own type: a negative number in hexadecimal keeps it
};

void FormatInto(CString& target, std::u16string_view pattern,
                std::initializer_list<FormatArgument> arguments);

template <typename... Arguments> CString Format(std::u16string_view pattern, const Arguments&... arguments)
{
    CString result;
    FormatInto(result, pattern, {FormatArgument(arguments)...});
    return result;
}
