#include "console/extended_records.h"

#include <gtest/gtest.h>

using namespace std::string_view_literals;

TEST(ExtendedRecords, WhatWasWrittenIsRead)
{
    const ExtendedEntry entry{134086'000'000'000'000 + 1'230'000, 65'432, -1073741510, u"C:\\new\tdir",
                              u"echo a\\tb\tc\nsecond line \u00E4 \U0001F600"};
    const std::vector<ExtendedEntry> read = ReadExtendedRecords(WriteExtendedRecord(entry));
    ASSERT_EQ(read.size(), 1u);
    EXPECT_EQ(read[0].started, entry.started);
    EXPECT_EQ(read[0].milliseconds, entry.milliseconds);
    EXPECT_EQ(read[0].exitCode, entry.exitCode);
    EXPECT_EQ(read[0].directory, entry.directory);
    EXPECT_EQ(read[0].line, entry.line);
}

TEST(ExtendedRecords, RubbishIsPassedOver)
{
    const std::string_view bytes = "2026-11-21T16:10:17.123Z\t5\t0\tC:\\\tdir\r\n"
                                   "2026-11-21T16:10:17.12Z\t5\t0\tC:\\\ttime cut\n"
                                   "2026-13-21T16:10:17.123Z\t5\t0\tC:\\\tno such month\n"
                                   "2026-11-21T16:10:17.123Z\t5x\t0\tC:\\\tno number\n"
                                   "2026-11-21T16:10:17.123Z\t5\t0\tC:\\\t\n"
                                   "\xff\xfe\0\0rubbish\n"
                                   "2026-11-21T16:10:17.123Z\t5\t3\tC:\\\tcut off by the end"sv;
    const std::vector<ExtendedEntry> read = ReadExtendedRecords(bytes);
    ASSERT_EQ(read.size(), 2u);
    EXPECT_EQ(read[0].line, u"dir");
    EXPECT_EQ(read[0].started, 134'397'510'171'230'000u);
    EXPECT_EQ(read[1].exitCode, 3);
}

TEST(ExtendedRecords, TheNewestThatFit)
{
    EXPECT_EQ(NewestRecords("one\ntwo\nthree\n", 99), "one\ntwo\nthree\n");
    EXPECT_EQ(NewestRecords("one\ntwo\nthree\n", 10), "two\nthree\n");
    EXPECT_EQ(NewestRecords("one\ntwo\nthree\n", 9), "three\n");
    EXPECT_EQ(NewestRecords("one\ntwo\nthree\n", 3), "");
}
