#include <gtest/gtest.h>

#include "batch/labels.h"

namespace {

struct LineCase {
    const char16_t* line;
    bool isLabel;
    std::u16string_view label;
    std::u16string_view parameters;
};

TEST(Labels, LabelLines)
{
    const LineCase cases[] = {
        {u":start", true, u"start", u""},
        {u"  \t:start over", true, u"start", u""},
        {u": =\tstart", true, u"start", u""},
        {u":start:=", true, u"start", u""},
        {u"::comment", false, u"", u""},
        {u"echo :start", false, u"", u""},
        {u":", false, u"", u""},
        {u": :", false, u"", u""},
        {u"", false, u"", u""},
        {u":sub [a b]", true, u"sub", u"a b"},
        {u":sub[a, b ] ", true, u"sub", u"a, b"},
        {u":sub [ ]", true, u"sub", u""},
        {u":sub [a", true, u"sub", u"a"},
        {u":sub rest [a]", true, u"sub", u""},
        {u"#:mark", true, u"mark", u""},
    };
    for (const LineCase& one : cases) {
        LabelLine label;
        EXPECT_EQ(ReadLabelLine(one.line, true, Syntax(), label), one.isLabel);
        if (!one.isLabel)
            continue;
        EXPECT_EQ(label.label, one.label);
        EXPECT_EQ(label.parameters, one.parameters);
    }
    LabelLine label;
    EXPECT_FALSE(ReadLabelLine(u"#:mark", false, Syntax(), label));
}

TEST(Labels, WantedLabels)
{
    const std::u16string_view cases[][2] = {
        {u"start", u"start"},
        {u":start a b", u"start"},
        {u"@:start", u"start"},
        {u"start+", u"start"},
        {u"start:/=[", u"start"},
        {u"  :EOF", u"EOF"},
        {u"", u""},
        {u":", u""},
    };
    for (const auto& one : cases)
        EXPECT_EQ(WantedLabel(one[0], Syntax()), one[1]);
}

} // namespace
