#include "console/progress_line.h"

#include <gtest/gtest.h>

TEST(ProgressLine, AmountsHaveThreeDigits)
{
    EXPECT_EQ(ShortAmount(999), u"999");
    EXPECT_EQ(ShortAmount(1000), u"0.9 KB");
    EXPECT_EQ(ShortAmount(150 * 1024), u"150 KB");
    EXPECT_EQ(ShortAmount(std::uint64_t{9} << 29), u"4.5 GB");
    EXPECT_EQ(ShortAmount(UINT64_MAX), u"16 EB");
}

TEST(ProgressLine, TellsTheTimeThatIsLeft)
{
    constexpr std::uint64_t mega = 1 << 20;
    EXPECT_EQ(ProgressLine({3, 100 * mega, 12, 400 * mega, 20'000}, u"a.iso", 79),
              u" 25%  3/12  100 MB/400 MB  5.0 MB/s  1:00  a.iso");
    EXPECT_EQ(ProgressLine({3, 0, 0, 0, 3'723'000}, u"", 79), u"3  0  0/s  1:02:03");
    EXPECT_EQ(ProgressLine({1, 1, 0, 0, 0}, u"C:\\folder\\name.txt", 18), u"1  1  ...\\name.txt");
    EXPECT_EQ(ProgressLine({1, 1, 0, 0, 0}, u"name", 3), u"1  ");
}
