#include "files/attribute_masks.h"

#include <gtest/gtest.h>

#include "lang/errors.h"
#include "text/encoding.h"

namespace {

constexpr std::uint32_t r = 0x1, h = 0x2, s = 0x4, d = 0x10, a = 0x20, offline = 0x1000;

} // namespace

TEST(AttributeMasks, LettersBecomeMasks)
{
    struct Row {
        const char16_t* text;
        std::uint32_t required, forbidden, anyOf;
    };
    const Row rows[] = {
        {u"", 0, 0, 0},
        {u":", 0, 0, 0},
        {u":rhs", r | h | s, 0, 0},
        {u"RHS", r | h | s, 0, 0},
        {u":-d", 0, d, 0},
        {u"-rh", h, r, 0},
        {u"-r-h+a+d", 0, r | h, a | d},
        {u"_r_-_h", r | h, 0, 0},
        {u"jl", 0x400, 0, 0},
        {u"tfcoievxpu",
         0x100 | 0x200 | 0x800 | offline | 0x2000 | 0x4000 | 0x8000 | 0x20000 | 0x80000 | 0x100000, 0, 0},
        {u"n-n", 0, 0, 0},
        {u"+n", 0, 0, offline},
        {u"rq-h", r, 0, 0},
        {u":r:h", r, 0, 0},
    };
    for (const Row& row : rows) {
        AttributeMasks masks;
        EXPECT_EQ(GetSearchAttributes(row.text, masks), 0);
        EXPECT_EQ(masks.required, row.required) << ToUtf8(row.text);
        EXPECT_EQ(masks.forbidden, row.forbidden) << ToUtf8(row.text);
        EXPECT_EQ(masks.anyOf, row.anyOf) << ToUtf8(row.text);
        EXPECT_EQ(masks.included, 0x80017u) << ToUtf8(row.text);
    }
    AttributeMasks masks;
    EXPECT_EQ(GetSearchAttributes(u":=", masks), static_cast<int>(errors::unbuiltDialog));
}

TEST(AttributeMasks, FilesAreSelected)
{
    struct Row {
        const char16_t* text; // null: no switch
        std::uint32_t attributes;
        bool selected;
    };
    const Row rows[] = {
        {nullptr, a, true},         {nullptr, 0, true},      {nullptr, d, true},
        {nullptr, h, false},        {nullptr, r | s, false}, {nullptr, d | h, false},
        {u"", h | s, true},         {u"r", r | h, true},     {u"r", h, false},
        {u"rh", r, false},          {u"-r", h, true},        {u"-r", r | a, false},
        {u"+r+a", a, true},         {u"+r+a", r, true},      {u"+r+a", d, false},
        {u"+r+a-h", a | h, false},  {u"d", d | h, true},     {u"+n", a, false},
        {u"+n", a | offline, true}, {u"n", a | r | h, true},
    };
    for (const Row& row : rows) {
        AttributeMasks masks;
        if (row.text)
            GetSearchAttributes(row.text, masks);
        EXPECT_EQ(masks.Select(row.attributes), row.selected)
            << (row.text ? ToUtf8(row.text) : "none") << " of " << row.attributes;
    }
}
