#include <gtest/gtest.h>

#include <algorithm>
#include <set>
#include <string>

#include "core/search_order.h"
#include "text/compare.h"
#include "text/path_names.h"

namespace {

// Files in memory; the current directory is C:\here. Counts what is asked.
class FakeWorld : public SearchWorld {
public:
    explicit FakeWorld(std::initializer_list<const char16_t*> names)
    {
        for (const char16_t* name : names)
            files.insert(Folded(name));
    }

    CString FullName(std::u16string_view name) override
    {
        return IsAbsolutePath(name) ? CString(name) : JoinPath(u"C:\\here", name);
    }
    bool IsFile(std::u16string_view fullName) override
    {
        ++questions;
        return files.contains(Folded(fullName));
    }
    void FindByStem(std::u16string_view folder, std::u16string_view stem,
                    std::vector<CString>& names) override
    {
        ++questions;
        const std::u16string prefix = Folded(JoinPath(folder, stem)) + u".";
        for (const std::u16string& file : files)
            if (file.starts_with(prefix) && file.find(u'\\', prefix.size()) == file.npos)
                names.emplace_back(FileNamePart(file));
    }

    int questions = 0;

private:
    static std::u16string Folded(std::u16string_view text)
    {
        CString folded(text);
        MakeLower(folded);
        return std::u16string(folded.view());
    }

    std::set<std::u16string> files;
};

SearchPlaces Places()
{
    SearchPlaces places;
    places.currentDirectory = u"C:\\here";
    places.list = u"C:\\one;;\"C:\\t;wo\" ;three";
    places.extensions = {u".com", u".exe", u".btm", u".p*"};
    return places;
}

TEST(SearchOrder, FindsTheFirstMatch)
{
    FakeWorld world{u"C:\\here\\a.exe",      u"C:\\one\\a.com",    u"C:\\one\\b.btm",
                    u"C:\\one\\b.com",       u"C:\\t;wo\\c.pl",    u"C:\\here\\x.txt",
                    u"C:\\one\\d.1",         u"C:\\t;wo\\d.1.exe", u"C:\\here\\three\\e.exe",
                    u"C:\\here\\sub\\f.exe", u"C:\\one\\g.doc",    u"C:\\one\\h"};
    struct Case {
        const char16_t* name;
        const char16_t* found;
    };
    const Case cases[] = {
        {u"a", u"C:\\here\\a.exe"},    // the current directory before the list
        {u"b", u"C:\\one\\b.com"},     // extensions in their order
        {u"B.BTM", u"C:\\one\\B.BTM"}, // the extension said
        {u"c", u"C:\\t;wo\\c.pl"},     // extension by wildcard; a quoted folder
        {u"\"c\"", u"C:\\t;wo\\c.pl"},
        {u"x.txt", u"C:\\here\\x.txt"}, // any extension when it is said
        {u"x", u""},                    // but not otherwise
        {u"d.1", u"C:\\one\\d.1"},
        {u"e", u"C:\\here\\three\\e.exe"}, // a relative folder of the list
        {u"sub\\f", u"C:\\here\\sub\\f.exe"},
        {u"f", u""},
        {u"sub\\a", u""}, // a folder said: nowhere else
        {u"h", u""},      // no extension at all
        {u"", u""},
        {u".", u""},
        {u"sub\\", u""},
    };
    for (const Case& c : cases)
        EXPECT_EQ(SearchInOrder(c.name, Places(), world), c.found)
            << testing::PrintToString(std::u16string(c.name));
}

TEST(SearchOrder, TellsAllMatchesInOrder)
{
    FakeWorld world{u"C:\\one\\a.exe", u"C:\\here\\a.btm", u"C:\\here\\a.com", u"C:\\t;wo\\a.txt"};
    SearchPlaces places = Places();
    places.list += u";C:\\ONE";
    const std::vector<CString> expected = {u"C:\\here\\a.com", u"C:\\here\\a.btm", u"C:\\one\\a.exe"};
    EXPECT_EQ(SearchAll(u"a", places, world), expected);
}

// Each question goes to the disk: one per folder is the budget for a plain name.
TEST(SearchOrder, AsksOncePerFolder)
{
    FakeWorld world{};
    SearchInOrder(u"nothing", Places(), world);
    EXPECT_EQ(world.questions, 4);
    world.questions = 0;
    SearchInOrder(u"nothing.exe", Places(), world);
    EXPECT_EQ(world.questions, 4);
}

} // namespace
