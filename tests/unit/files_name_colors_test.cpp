#include "files/name_colors.h"

#include <gtest/gtest.h>

TEST(NameColors, FirstRuleThatFits)
{
    const NameColors colors(u"exe c*:bright green;; dirs : red on black ; nothing:; x:grün;Make*.:7 on 0;"
                            u"dirs hidden:blue;[a-f]*.txt:9 x; *.txt:9");
    struct {
        const char16_t* name;
        std::uint32_t attributes;
        int color; // on a screen of yellow (14) on white (7); -1 for none
    } const cases[] = {
        {u"a.EXE", 0x20, 0x7A},    {u"a.com", 0, 0x7A},       {u"com", 0, -1},     {u"c.d", 0x10, 0x04},
        {u"Makefile", 0x22, 0x07}, {u"Makefile.in", 2, 0x71}, {u"a.txt", 0, 0x79}, {u"a.x", 0, -1},
        {u"a.nothing", 0, -1},     {u".exe", 0, 0x7A},
    };
    for (const auto& row : cases) {
        const auto color = colors.Of(row.name, row.attributes, 0x7E);
        EXPECT_EQ(color ? static_cast<int>(*color) : -1, row.color) << testing::PrintToString(row.name);
    }
    EXPECT_TRUE(NameColors(u"; :red on red; x").Empty());
}
