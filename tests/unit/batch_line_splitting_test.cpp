#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "batch/line_splitting.h"

namespace {

std::string Widened(const std::string& narrow)
{
    std::string wide;
    for (const char c : narrow)
        wide.append({c, '\0'});
    return wide;
}

std::string Narrowed(std::string_view wide)
{
    std::string narrow;
    for (std::size_t i = 0; i < wide.size(); i += 2)
        narrow.push_back(wide[i]);
    return narrow;
}

// Reads the text the way a batch file is read: the block grows by `step` bytes whenever the line is not
// complete.
std::vector<std::string> LinesOf(const std::string& text, std::size_t unitSize, LineEnds ends,
                                 std::size_t step)
{
    std::vector<std::string> lines;
    std::size_t from = 0;
    std::size_t known = 0;
    for (;;) {
        const bool last = known >= text.size();
        const std::string_view block =
            std::string_view(text).substr(from, std::min(known, text.size()) - from);
        const SplitLine split = SplitFirstLine(block, unitSize, ends, last);
        if (!split.complete) {
            known += step;
            continue;
        }
        if (split.consumed == 0)
            return lines;
        lines.emplace_back(block.substr(0, split.length));
        from += split.consumed;
    }
}

struct Case {
    const char* text;
    std::vector<std::string> inFile;
    std::vector<std::string> inMemory;
};

const std::vector<Case> cases = {
    {"", {}, {}},
    {"a", {"a"}, {"a"}},
    {"a\r\nb\r\n", {"a", "b"}, {"a", "b"}},
    {"a\nb\rc", {"a", "b", "c"}, {"a", "b", "c"}},
    {"\r\n\r\nx", {"", "", "x"}, {"", "", "x"}},
    {"a\r\r\nb", {"a", "b"}, {"a", "", "b"}},
    {"a\r\r\r\nb", {"a", "", "b"}, {"a", "", "", "b"}},
    {"a\r", {"a"}, {"a"}},
    {"a\r\r", {"a", ""}, {"a", ""}},
    {"a\n\nb", {"a", "", "b"}, {"a", "", "b"}},
    {"a\x1A"
     "b\r\n",
     {"a"},
     {"a"}},
    {"\x1A\r\nb", {}, {}},
    {"a\r\n\x1A", {"a"}, {"a"}},
};

TEST(LineSplitting, EveryEndingAtEveryCutPoint)
{
    for (const Case& one : cases) {
        const std::string text = one.text;
        for (const LineEnds ends : {LineEnds::File, LineEnds::Memory}) {
            const std::vector<std::string>& expected = ends == LineEnds::File ? one.inFile : one.inMemory;
            for (std::size_t step = 1; step <= text.size() + 1; ++step) {
                EXPECT_EQ(LinesOf(text, 1, ends, step), expected) << "step " << step << ": " << text;
                std::vector<std::string> wide;
                for (const std::string& line : LinesOf(Widened(text), 2, ends, step))
                    wide.push_back(Narrowed(line));
                EXPECT_EQ(wide, expected) << "wide, step " << step << ": " << text;
            }
        }
    }
}

TEST(LineSplitting, OddByteOfUtf16IsDropped)
{
    EXPECT_EQ(LinesOf(Widened("ab") + "\n", 2, LineEnds::File, 3), std::vector<std::string>{Widened("ab")});
    EXPECT_TRUE(LinesOf("x", 2, LineEnds::File, 1).empty());
}

TEST(LineSplitting, BytesOfWideUnitsAreNoLineEnds)
{
    // U+0A0D and U+1A0A hold the bytes of CR, LF and Ctrl-Z.
    const std::string text("\x0D\x0A\x0A\x1A", 4);
    EXPECT_EQ(LinesOf(text, 2, LineEnds::File, 1), std::vector<std::string>{text});
}

} // namespace
