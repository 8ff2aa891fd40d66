#include "commands/copy_arguments.h"

#include <gtest/gtest.h>

namespace {

// "source:t + source -> target:t", with "t" for text and "touch" for a time that is set.
CString Read(std::u16string_view original, std::u16string_view cleaned, std::u16string_view existing = u"")
{
    const CopyArguments read =
        ReadCopyArguments(original, cleaned, Syntax(), [&](const CString& name) { return name == existing; });
    CString text;
    const auto add = [&](const CString& name, Contents contents) {
        text.Append(name).Append(contents == Contents::Text ? u":t" : u"");
    };
    for (const CopySource& source : read.sources) {
        text.Append(text.empty() ? u"" : read.joins ? u" + " : u" ");
        add(source.text, source.contents);
    }
    text.Append(read.touches ? u" touch" : u"");
    if (!read.target.empty()) {
        text.Append(u" -> ");
        add(read.target, read.targetContents);
    }
    return text;
}

} // namespace

TEST(CopyArguments, SourcesTargetAndText)
{
    EXPECT_EQ(Read(u"a b", u"a b"), u"a -> b");
    EXPECT_EQ(Read(u"a", u"a"), u"a");
    EXPECT_EQ(Read(u"a+b c", u"a+b c"), u"a + b -> c");
    EXPECT_EQ(Read(u"a + b", u"a + b"), u"a + b");
    EXPECT_EQ(Read(u"a +b", u"a +b"), u"a + b");
    EXPECT_EQ(Read(u"a+,,", u"a+,,"), u"a touch");
    EXPECT_EQ(Read(u"x c++.txt", u"x c++.txt"), u"x -> c++.txt");
    EXPECT_EQ(Read(u"c+d x", u"c+d x", u"c+d"), u"c+d -> x");
    EXPECT_EQ(Read(u"\"c+d\" x", u"\"c+d\" x"), u"\"c+d\" -> x");
    EXPECT_EQ(Read(u"/a a b /b c", u"a b c"), u"a:t b -> c");
    EXPECT_EQ(Read(u"/y/a a+b c /b", u"a+b c"), u"a:t + b:t -> c");
}
