#include <gtest/gtest.h>

#include <cstdint>
#include <limits>
#include <string>

#include "text/encoding.h"
#include "text/format.h"
#include "text/numbers.h"

namespace {

constexpr std::int64_t least = std::numeric_limits<std::int64_t>::min();
constexpr std::int64_t greatest = std::numeric_limits<std::int64_t>::max();

TEST(TextNumbers, ReadAsInC)
{
    const struct {
        const char16_t* text;
        bool valid;
        std::int64_t value;
        std::size_t used;
    } cases[] = {
        {u"12", true, 12, 2},
        {u"  -12abc", true, -12, 5},
        {u"+7", true, 7, 2},
        {u"0x1F", true, 31, 4},
        {u"0XfG", true, 15, 3},
        {u"-0x10", true, -16, 5},
        {u"0x", true, 0, 1}, // the zero alone
        {u"0xg", true, 0, 1},
        {u"017", true, 15, 3},
        {u"08", true, 0, 1},
        {u"0", true, 0, 1},
        {u"", false, 0, 0},
        {u"-", false, 0, 0},
        {u"abc", false, 0, 0},
        {u"- 5", false, 0, 0},
        {u"9223372036854775807", true, greatest, 19},
        {u"9223372036854775808", true, greatest, 19},
        {u"-9223372036854775807", true, least + 1, 20},
        {u"-9223372036854775808", true, least, 20},
        {u"-9223372036854775809", true, least, 20},
        {u"99999999999999999999999999", true, greatest, 26},
        {u"0xFFFFFFFFFFFFFFFF", true, greatest, 18},
    };
    for (const auto& test : cases) {
        std::size_t used = 0;
        const auto value = ReadInteger(test.text, &used);
        EXPECT_EQ(value.has_value(), test.valid) << ToUtf8(CString(test.text));
        EXPECT_EQ(value.value_or(0), test.value) << ToUtf8(CString(test.text));
        EXPECT_EQ(used, test.used) << ToUtf8(CString(test.text));
    }
}

TEST(TextNumbers, DecimalKnowsNoPrefix)
{
    std::size_t used = 0;
    EXPECT_EQ(ReadDecimal(u"010", &used), 10);
    EXPECT_EQ(ReadDecimal(u"08"), 8);
    EXPECT_EQ(ReadDecimal(u"0x10", &used), 0);
    EXPECT_EQ(used, 1u);
}

TEST(TextNumbers, WholeTexts)
{
    EXPECT_EQ(ParseInteger(u" 12 "), 12);
    EXPECT_FALSE(ParseInteger(u"12x"));
    EXPECT_FALSE(ParseInteger(u""));
    EXPECT_FALSE(ParseInteger(u"   "));
    EXPECT_FALSE(ParseInteger(u"1 2"));
}

TEST(TextFormat, Directives)
{
    const struct {
        CString made;
        const char* expected;
    } cases[] = {
        {Format(u"plain"), "plain"},
        {Format(u"%s and %s", u"a", CString(u"b")), "a and b"},
        {Format(u"%5s|%-5s|", u"ab", u"ab"), "   ab|ab   |"},
        {Format(u"%.2s", u"abcdef"), "ab"},
        {Format(u"%*s|%-*s|", 4, u"a", 3, u"b"), "   a|b  |"},
        {Format(u"%*s|", -4, u"a"), "a   |"},
        {Format(u"%.*s", 1, u"abc"), "a"},
        {Format(u"%.*s", -1, u"abc"), "abc"},
        {Format(u"%d %i %u", -5, 5, 5u), "-5 5 5"},
        {Format(u"%05d|%-5d|%+d", -42, 42, 42), "-0042|42   |+42"},
        {Format(u"%.3d", 7), "007"},
        {Format(u"%ld %lu %I64d %I64u", 1L, 2UL, least, ~std::uint64_t{0}),
         "1 2 -9223372036854775808 18446744073709551615"},
        {Format(u"%x %X %08x %o", 255, 255, 255, 8), "ff FF 000000ff 10"},
        {Format(u"%x", -1), "ffffffff"},
        {Format(u"%x", std::int64_t{-1}), "ffffffffffffffff"},
        {Format(u"%x", static_cast<short>(-1)), "ffff"},
        {Format(u"%c%c", u'x', 65), "xA"},
        {Format(u"100%%"), "100%"},
        {Format(u"%d%%", 50), "50%"},
        {Format(u"%"), "%"},
        {Format(u"%q %s", u"a"), "%q a"},
        {Format(u"%s %s", u"one"), "one %s"},
        {Format(u"%s", 12), "12"},
        {Format(u"%d", u"text"), "text"},
        {Format(u"%d", true), "1"},
        {Format(u"%s", static_cast<const char16_t*>(nullptr)), ""},
    };
    for (const auto& test : cases)
        EXPECT_EQ(ToUtf8(test.made), test.expected);
}

// Patterns and widths may come from users.
TEST(TextFormat, AbsurdWidthsAreLimited)
{
    EXPECT_LE(Format(u"%999999999999d", 1).size(), 100000u);
    EXPECT_LE(Format(u"%*d", 2000000000, 1).size(), 100000u);
    EXPECT_LE(Format(u"%*d", std::numeric_limits<int>::min(), 1).size(), 100000u);
    EXPECT_EQ(ToUtf8(Format(u"%.99999d", 1)).size(), 100u);
}

} // namespace
