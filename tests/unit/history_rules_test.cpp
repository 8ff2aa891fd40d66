#include "console/history_rules.h"

#include <gtest/gtest.h>

#include <string>

namespace {

TEST(HistoryRules, DecideWhatIsKept)
{
    struct Row {
        const char16_t* line;
        HistoryRules rules;
        bool kept;
    };
    const Row rows[] = {
        {u"dir", {0, 1000, u""}, true},
        {u"", {0, 1000, u""}, false},
        {u"@dir", {0, 1000, u""}, false},
        {u"*@dir", {0, 1000, u""}, false},
        {u"*dir", {0, 1000, u""}, true},
        {u"dir@", {0, 1000, u""}, true},
        {u"exit", {5, 1000, u""}, false},
        {u"exit1", {5, 1000, u""}, true},
        {u"12345678", {0, 10, u""}, true},
        {u"123456789", {0, 10, u""}, false},
        {u"exit", {0, 1000, u"exit"}, false},
        {u"EXIT 3", {0, 1000, u"dir;exit"}, false},
        {u"exit 3", {0, 1000, u"dir exit"}, false},
        {u"exitus", {0, 1000, u"exit"}, true},
        {u"exit.btm", {0, 1000, u"ex*.btm"}, false},
        {u"echo exit", {0, 1000, u"exit"}, true},
        {u"\"C:\\my tool.exe\" x", {0, 1000, u"dir;\"c:\\my tool.exe\""}, false},
        {u"my", {0, 1000, u"\"my tool\""}, true},
        {u"pass1", {0, 1000, u" ;; pass[0-9]"}, false},
        {u"passx", {0, 1000, u" ;; pass[0-9]"}, true},
        {u"dir", {0, 1000, u";\"\" "}, true},
    };
    for (const Row& row : rows)
        EXPECT_EQ(IsKeptInHistory(row.line, row.rules, Syntax()), row.kept)
            << testing::PrintToString(std::u16string(row.line));
}

TEST(HistoryRules, CutsPatternsThatAreTooLong)
{
    const std::u16string name(511, u'n');
    EXPECT_FALSE(IsKeptInHistory(name, {0, 10000, std::u16string(600, u'n')}, Syntax()));
    EXPECT_TRUE(IsKeptInHistory(name + u"n", {0, 10000, std::u16string(600, u'n')}, Syntax()));
}

} // namespace
