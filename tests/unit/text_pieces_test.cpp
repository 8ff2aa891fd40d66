#include "files/text_pieces.h"

#include <algorithm>
#include <string>
#include <vector>

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

// Against the plain way, in texts long enough for whole lanes and stretches.
TEST(LineEnds, AreCountedAndFound)
{
    std::string text;
    std::vector<std::size_t> ends;
    for (std::size_t i = 0; text.size() < 20000; ++i) {
        text.append(i * 7 % 61, 'x').append("\n");
        ends.push_back(text.size());
    }
    for (const std::size_t size :
         {std::size_t{0}, std::size_t{1}, std::size_t{17}, std::size_t{4095}, text.size()}) {
        const auto block = std::string_view(text).substr(0, size);
        EXPECT_EQ(CountLineEnds(block, TextEncoding::Utf8), std::count(block.begin(), block.end(), '\n'));
    }
    for (std::size_t n = 1; n <= ends.size(); ++n)
        ASSERT_EQ(BehindLineEnd(text, TextEncoding::CodePage, n), ends[n - 1]) << n;
    EXPECT_EQ(BehindLineEnd(text, TextEncoding::CodePage, ends.size() + 1), std::string::npos);
}

TEST(LineEnds, OfUtf16StandAtEvenPlaces)
{
    const std::string text = "\x41\x0A\x0A\x41\n\0a\0\n\0b"s;
    EXPECT_EQ(CountLineEnds(text, TextEncoding::Utf16), 2u);
    EXPECT_EQ(BehindLineEnd(text, TextEncoding::Utf16, 2), 10u);
    EXPECT_TRUE(EndsWithLineEnd(text, TextEncoding::Utf16));
    EXPECT_FALSE(EndsWithLineEnd("\x41\x0A"s, TextEncoding::Utf16));
}

TEST(BytesOfCharacters, CutNone)
{
    const std::string text = "a\xC3\xA4\xE2\x82\xAC\xF0\x9F\x98\x80z";
    const std::size_t expected[] = {0, 1, 3, 6, 6, 10, 11, 11};
    for (std::size_t count = 0; count < std::size(expected); ++count)
        EXPECT_EQ(BytesOfCharacters(text, TextEncoding::Utf8, count), expected[count]) << count;
    EXPECT_EQ(BytesOfCharacters(text, TextEncoding::Utf16, 3), 6u);
}

} // namespace
