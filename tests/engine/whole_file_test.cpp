// Reading and replacing whole files on a real disk.
#include <gtest/gtest.h>

#include <windows.h>

#include "core/pseudo_devices.h"
#include "platform/handle.h"
#include "platform/streams.h"
#include "platform/whole_file.h"
#include "text/path_names.h"

namespace {

class WholeFile : public testing::Test {
protected:
    void SetUp() override
    {
        directory = JoinPath(TemporaryFolder(), u"whole_file_test");
        CreateDirectoryW(directory.w(), nullptr);
        name = JoinPath(directory, u"some.ini");
        ASSERT_TRUE(ReplaceWholeFile(name, "old")); // a file that is not there yet
    }
    void TearDown() override
    {
        SetFileAttributesW(name.w(), FILE_ATTRIBUTE_NORMAL);
        DeleteFileW(name.w());
        EXPECT_TRUE(RemoveDirectoryW(directory.w())) << "something was left beside the file";
    }
    std::string Contents() const
    {
        std::string bytes;
        EXPECT_TRUE(ReadWholeFile(name, bytes, 100));
        return bytes;
    }

    CString directory;
    CString name;
};

TEST_F(WholeFile, IsReplaced)
{
    EXPECT_TRUE(ReplaceWholeFile(name, "new"));
    EXPECT_EQ(Contents(), "new");
    EXPECT_TRUE(ReplaceWholeFile(name, ""));
    EXPECT_EQ(Contents(), "");
}

TEST_F(WholeFile, IsReadInPartOnlyWhereNothingReplacesIt)
{
    std::string bytes;
    EXPECT_TRUE(ReadWholeFile(name, bytes, 2));
    EXPECT_EQ(bytes, "ol");
    EXPECT_TRUE(ReadFileToReplace(name, bytes, 3));
    EXPECT_FALSE(ReadFileToReplace(name, bytes, 2));
    EXPECT_EQ(GetLastError(), DWORD{ERROR_FILE_TOO_LARGE});
}

TEST_F(WholeFile, StaysWhenItMustNotBeWritten)
{
    SetFileAttributesW(name.w(), FILE_ATTRIBUTE_READONLY);
    EXPECT_FALSE(ReplaceWholeFile(name, "new"));
    EXPECT_EQ(GetLastError(), DWORD{ERROR_ACCESS_DENIED});
    EXPECT_EQ(Contents(), "old");
}

TEST_F(WholeFile, IsReplacedByAStreamThatIsComplete)
{
    const CString source = JoinPath(directory, u"source");
    ASSERT_TRUE(ReplaceWholeFile(source, "from a stream"));
    EXPECT_EQ(CopyStream(source, name, {}), unsigned{ERROR_FILE_EXISTS});
    const auto givesUp = [] {
        static int polls = 0;
        if (++polls == 2)
            throw polls;
    };
    EXPECT_THROW(CopyStream(source, name, {true, false, givesUp}), int);
    EXPECT_EQ(Contents(), "old");
    EXPECT_EQ(CopyStream(source, name, {true, true}), 0u);
    EXPECT_EQ(Contents(), "from a stream");
    DeleteFileW(source.w());
}

TEST_F(WholeFile, StaysWhenSomebodyHoldsIt)
{
    {
        const OwnedHandle held(
            CreateFileW(name.w(), GENERIC_READ, FILE_SHARE_READ, nullptr, OPEN_EXISTING, 0, nullptr));
        EXPECT_FALSE(ReplaceWholeFile(name, "new"));
    }
    EXPECT_EQ(Contents(), "old");
}

} // namespace
