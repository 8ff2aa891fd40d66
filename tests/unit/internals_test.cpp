#include <gtest/gtest.h>

#include "internals/dos_name.h"
#include "text/encoding.h"

namespace {

TEST(Internals, NamesOfWindowsReleases)
{
    const struct {
        unsigned version;
        unsigned build;
        const char* workstation;
        const char* server;
    } cases[] = {
        {601, 7601, "", ""},
        {602, 9200, "", ""},
        {603, 9600, "WINDOWS81", "WIN2012R2"},
        {603, 10000, "WINDOWS10", "WIN2016"},
        {1000, 10240, "WINDOWS10", "WIN2016"},
        {1000, 17762, "WINDOWS10", "WIN2016"},
        {1000, 17763, "WINDOWS10", "WIN2019"},
        {1000, 21999, "WINDOWS10", "WIN2019"},
        {1000, 22000, "WINDOWS11", "WIN2022"},
        {1000, 26100, "WINDOWS11", "WIN2022"},
    };
    for (const auto& test : cases) {
        EXPECT_EQ(ToUtf8(DosName(test.version, test.build, false)), test.workstation) << test.build;
        EXPECT_EQ(ToUtf8(DosName(test.version, test.build, true)), test.server) << test.build;
    }
}

} // namespace
