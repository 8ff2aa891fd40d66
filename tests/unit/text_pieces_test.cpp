#include "files/text_pieces.h"

#include <string>

#include <gtest/gtest.h>

using namespace std::string_literals;

namespace {

TEST(WholeLines, EndBehindTheLastLineFeed)
{
    EXPECT_EQ(WholeLines("ab\r\ncd\nef", TextEncoding::CodePage), 7u);
    EXPECT_EQ(WholeLines("abc", TextEncoding::Utf8), 0u);
    EXPECT_EQ(WholeLines("", TextEncoding::Utf16), 0u);
    EXPECT_EQ(WholeLines("a\0\n\0b\0c"s, TextEncoding::Utf16), 4u);
    // U+0A41 and U+410A hold the byte of a line feed and end no line.
    EXPECT_EQ(WholeLines("\x41\x0A\x0A\x41"s, TextEncoding::Utf16), 0u);
    EXPECT_EQ(WholeLines("a\0\n"s, TextEncoding::Utf16), 0u);
}

TEST(WholeCharacters, LeaveWhatIsCut)
{
    const struct {
        std::string block;
        TextEncoding encoding;
        std::size_t expected;
    } cases[] = {
        {"", TextEncoding::Utf8, 0},
        {"abc", TextEncoding::Utf8, 3},
        {"ab\xC3", TextEncoding::Utf8, 2},
        {"ab\xC3\xA4", TextEncoding::Utf8, 4},
        {"a\xE2\x82", TextEncoding::Utf8, 1},
        {"a\xE2\x82\xAC", TextEncoding::Utf8, 4},
        {"\xF0\x9F\x98", TextEncoding::Utf8, 0},
        {"\xF0\x9F\x98\x80", TextEncoding::Utf8, 4},
        {"\x80\x80\x80\x80\x80", TextEncoding::Utf8, 5}, // malformed: no lead to wait for
        {"\xFF", TextEncoding::CodePage, 1},
        {"a\0b"s, TextEncoding::Utf16, 2},
        {"a\0\x3D\xD8"s, TextEncoding::Utf16, 2},
        {"\x3D\xD8\x00\xDE"s, TextEncoding::Utf16, 4},
    };
    for (const auto& c : cases)
        EXPECT_EQ(WholeCharacters(c.block, c.encoding), c.expected) << testing::PrintToString(c.block);
}

} // namespace
