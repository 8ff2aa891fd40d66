// Descriptions in the two places that the settings know.
#include "files/descriptions.h"

#include <string>

#include <gtest/gtest.h>
#include <windows.h>

#include "core/pseudo_devices.h"
#include "engine/inifile.h"
#include "platform/file_facts.h"
#include "platform/whole_file.h"
#include "text/format.h"

TEST(Descriptions, AreKeptWhereTheSettingsWantThem)
{
    const CString folder =
        Format(u"%smova_described_%u\\", TemporaryFolder(), unsigned{GetCurrentProcessId()});
    ASSERT_TRUE(CreateDirectoryW(folder.w(), nullptr));
    ASSERT_TRUE(CreateNewFile(folder + u"a b.txt"));
    const CString list = folder + u"DESCRIPT.ION";
    aIniFile.DescriptionMax = 20;
    for (const SettingChoice inStreams : {0, 1}) {
        aIniFile.NTFSDescriptions = inStreams;
        auto description = [&] { return DirectoryDescriptions(folder).Of(u"A B.txt"); };
        EXPECT_EQ(description(), u"");
        EXPECT_TRUE(SetDescription(folder, u"a b.txt", u"für später, und noch viel mehr"));
        EXPECT_EQ(description(), u"für später, und noch");
        EXPECT_TRUE(SetDescription(folder, u"a b.txt", u"kürzer"));
        EXPECT_EQ(description(), u"kürzer");
        EXPECT_EQ(ReadFileAttributes(list).has_value(), inStreams == 0);
        EXPECT_TRUE(SetDescription(folder, u"a b.txt", u""));
        EXPECT_EQ(description(), u"");
        EXPECT_FALSE(ReadFileAttributes(list));
    }
    aIniFile.NTFSDescriptions = 0;
    // A file of which not all can be read is not replaced by what could be.
    ASSERT_TRUE(ReplaceWholeFile(list, "a.txt one\r\nb.txt " + std::string(std::size_t{16} << 20, 'x')));
    EXPECT_FALSE(SetDescription(folder, u"a b.txt", u"new"));
    EXPECT_GT(ReadFileFacts(list)->size, std::uint64_t{16} << 20);
    EXPECT_TRUE(DeleteFileW(list.w()));
    aIniFile.NTFSDescriptions = 1;
    EXPECT_FALSE(SetDescription(folder, u"gone.txt", u"x"));
    EXPECT_FALSE(ReadFileAttributes(folder + u"gone.txt"));
    aIniFile.NTFSDescriptions = 0;
    DeleteFileW((folder + u"a b.txt").w());
    EXPECT_TRUE(RemoveDirectoryW(folder.w()));
}
