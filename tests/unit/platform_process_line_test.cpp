#include <gtest/gtest.h>

#include <vector>

#include "platform/process_line.h"

namespace {

// The rules of the C run-time library by which programs cut their command line, for all but the program name.
std::vector<CString> CutAsProgramsDo(std::u16string_view line)
{
    std::vector<CString> arguments;
    std::size_t at = 0;
    while ((at = line.find_first_not_of(u" \t", at)) != std::u16string_view::npos) {
        CString argument;
        bool quoted = false;
        for (; at < line.size() && (quoted || (line[at] != u' ' && line[at] != u'\t')); ++at) {
            std::size_t backslashes = 0;
            while (at < line.size() && line[at] == u'\\')
                ++backslashes, ++at;
            const bool quote = at < line.size() && line[at] == u'"';
            argument.Append(CString(quote ? backslashes / 2 : backslashes, u'\\'));
            if (quote && backslashes % 2 == 0)
                quoted = !quoted;
            else if (at < line.size() && (quoted || (line[at] != u' ' && line[at] != u'\t')))
                argument.Append(line[at]);
            else
                --at;
        }
        arguments.push_back(argument);
    }
    return arguments;
}

TEST(ProcessLine, ArgumentsArriveUnchanged)
{
    const std::vector<CString> given = {u"plain",       u"",           u"two words", u"tab\there",
                                        u"quo\"te",     u"back\\",     u"a b\\",     u"\\\"",
                                        u"\\\\\\\"x y", u"C:\\a b\\c", u"\"",        u"end\\\\"};
    CString line;
    for (const CString& argument : given)
        AddProcessArgument(line, argument);
    EXPECT_EQ(CutAsProgramsDo(line), given);
}

TEST(ProcessLine, ArgumentTextStaysAsWritten)
{
    EXPECT_EQ(ProcessLine(u"C:\\a b\\p.exe", u"   x \"y  z\" "), u"\"C:\\a b\\p.exe\"   x \"y  z\" ");
    EXPECT_EQ(ProcessLine(u"C:\\p.exe", u"/x"), u"\"C:\\p.exe\" /x");
    EXPECT_EQ(ProcessLine(u"C:\\p.exe", u""), u"\"C:\\p.exe\"");
}

} // namespace
