#include "files/file_walk.h"

#include <algorithm>
#include <map>
#include <string>

#include <gtest/gtest.h>

#include "files/description_list.h"
#include "files/search_names.h"
#include "text/compare.h"
#include "text/encoding.h"

namespace {

constexpr std::uint32_t directory = file_attribute::directory;
constexpr std::uint32_t hidden = file_attribute::hidden;
constexpr std::uint32_t junctionTag = 0xA0000003;
constexpr std::uint32_t cloudTag = 0x9000001A;

// A file system in memory: directories by their full names with "\" at the end. A junction is a directory
// whose name leads to another one.
class FakeDisk : public DirectorySource {
public:
    FakeDisk() { entries[u"C:\\"]; }

    void Add(std::u16string_view path, std::uint32_t attributes = 0, std::uint64_t size = 0,
             std::uint32_t tag = 0)
    {
        const std::size_t start = path.rfind(u'\\') + 1;
        EntryFacts facts;
        facts.attributes = attributes;
        facts.size = size;
        facts.reparseTag = tag;
        entries[std::u16string(path.substr(0, start))].push_back({std::u16string(path.substr(start)), facts});
        if ((attributes & directory) != 0)
            entries[std::u16string(path) + u"\\"];
    }

    // A plain one does not show that it is one.
    void AddJunction(std::u16string_view path, std::u16string_view target, bool plain = false)
    {
        Add(path, directory | (plain ? 0 : file_attribute::reparsePoint), 0, plain ? 0 : junctionTag);
        entries.erase(std::u16string(path) + u"\\");
        junctions[std::u16string(path) + u"\\"] = target;
    }

    unsigned Read(std::u16string_view name, std::u16string_view pattern, EntrySink& sink) override
    {
        ++reads;
        const std::u16string real = Resolve(std::u16string(name));
        if (denied == real)
            return 5;
        const auto found = entries.find(real);
        if (found == entries.end())
            return 3;
        EntryFacts dots;
        dots.attributes = directory;
        dots.created = CreationOf(std::u16string(name));
        for (const char16_t* dot : {u".", u".."})
            if (pattern == u"*")
                sink.Take({dot, u"", dots});
        for (const auto& [entry, facts] : found->second)
            if (pattern == u"*" || EqualNoCase(pattern, entry)) {
                EntryFacts aged = facts;
                aged.created = CreationOf(std::u16string(name) + entry + u"\\");
                sink.Take({entry, u"", aged});
            }
        return 0;
    }

    std::optional<DirectoryIdentity> Identify(std::u16string_view name) override
    {
        const auto found = entries.find(Resolve(std::u16string(name)));
        if (found == entries.end())
            return std::nullopt;
        return DirectoryIdentity{1, static_cast<std::uint64_t>(std::distance(entries.begin(), found))};
    }

    std::uint64_t CompressedSize(std::u16string_view, std::u16string_view) override { return 0; }
    CString Owner(std::u16string_view, std::u16string_view) override { return {}; }
    CString Description(std::u16string_view, std::u16string_view name) override
    {
        return name == u"b.txt" ? CString(u"bee") : CString();
    }

    std::u16string denied;
    int reads = 0;
    bool dated = false;

private:
    std::uint64_t CreationOf(const std::u16string& name)
    {
        const auto identity = dated ? Identify(name) : std::nullopt;
        return identity ? identity->file + 1 : 0;
    }

    // The name with the first junction in it replaced by its target, as long as there is one.
    std::u16string Resolve(std::u16string name) const
    {
        for (int steps = 0; steps < 100; ++steps) {
            const auto junction = std::find_if(junctions.begin(), junctions.end(),
                                               [&](const auto& one) { return name.starts_with(one.first); });
            if (junction == junctions.end())
                return name;
            name = junction->second + name.substr(junction->first.size());
        }
        return name;
    }

    std::map<std::u16string, std::vector<std::pair<std::u16string, EntryFacts>>> entries;
    std::map<std::u16string, std::u16string> junctions;
};

class NoClock : public RangeClock {
public:
    std::uint64_t Now() override { return 0; }
    std::uint64_t ToLocal(std::uint64_t fileTime) override { return fileTime; }
};

WalkRequest Request(std::initializer_list<const char16_t*> patterns, int deepest = allLevels)
{
    WalkRequest request;
    request.directory = u"C:\\";
    for (const char16_t* pattern : patterns)
        request.patterns.push_back(std::make_shared<NamePattern>(pattern, RegexSyntax::Perl));
    request.deepest = deepest;
    return request;
}

// The names of what is picked, relative to C:\, parted by blanks; "!" and the number behind a failed
// directory.
std::string Walk(const WalkRequest& request, FakeDisk& disk)
{
    NoClock clock;
    FileWalk walk(request, disk, clock);
    WalkedDirectory found;
    std::string names;
    int directories = 0;
    while (walk.Next(found) && ++directories < 1000) {
        const std::string where = ToUtf8(found.name.view().substr(3));
        if (found.error != 0)
            names += where + "!" + std::to_string(found.error) + " ";
        for (const FoundFile& file : found.files)
            names += where + ToUtf8(file.name) + " ";
    }
    if (!names.empty())
        names.pop_back();
    return names;
}

FakeDisk SmallDisk()
{
    FakeDisk disk;
    disk.Add(u"C:\\b.txt", 0, 10);
    disk.Add(u"C:\\A.txt", 0, 20);
    disk.Add(u"C:\\c.bin", 0, 30);
    disk.Add(u"C:\\secret.txt", hidden);
    disk.Add(u"C:\\sub", directory);
    disk.Add(u"C:\\sub\\d.txt");
    disk.Add(u"C:\\sub\\deep", directory);
    disk.Add(u"C:\\sub\\deep\\e.txt");
    disk.Add(u"C:\\sub.old", directory);
    disk.Add(u"C:\\sub.old\\f.txt");
    disk.Add(u"C:\\hid", directory | hidden);
    disk.Add(u"C:\\hid\\g.txt");
    return disk;
}

} // namespace

TEST(FileWalk, NamesComeInOrderAndEachDirectoryOnce)
{
    FakeDisk disk = SmallDisk();
    EXPECT_EQ(Walk(Request({u"*"}, 0), disk), "A.txt b.txt c.bin sub sub.old");
    EXPECT_EQ(disk.reads, 1);
    disk.reads = 0;
    EXPECT_EQ(Walk(Request({u"*.txt", u"a*", u"*.bin"}), disk),
              "A.txt b.txt c.bin sub\\d.txt sub\\deep\\e.txt sub.old\\f.txt");
    EXPECT_EQ(disk.reads, 4);
    EXPECT_EQ(Walk(Request({u"*.txt"}, 1), disk), "A.txt b.txt sub\\d.txt sub.old\\f.txt");
    EXPECT_EQ(Walk(Request({u"[ab]*", u"::[ef]\\.t.t"}), disk),
              "A.txt b.txt sub\\deep\\e.txt sub.old\\f.txt");
    EXPECT_EQ(Walk(Request({u"nothing"}), disk), "");
}

TEST(FileWalk, AttributesAndRangesPick)
{
    FakeDisk disk = SmallDisk();
    WalkRequest request = Request({u"*"});
    request.attributes = AttributeMasks::Everything();
    request.attributes.forbidden = directory;
    EXPECT_EQ(Walk(request, disk), "A.txt b.txt c.bin secret.txt hid\\g.txt sub\\d.txt sub\\deep\\e.txt "
                                   "sub.old\\f.txt");
    request.attributes.forbidden = 0;
    request.attributes.required = hidden;
    EXPECT_EQ(Walk(request, disk), "hid secret.txt");

    request = Request({u"*"}, 0);
    RANGES ranges;
    ranges.sizes.push_back({15, 100, false, false});
    request.ranges = &ranges;
    EXPECT_EQ(Walk(request, disk), "A.txt c.bin");
    ranges.sizes.clear();
    ranges.descriptions.push_back({u"b*", nullptr, false});
    EXPECT_EQ(Walk(request, disk), "b.txt");
}

TEST(FileWalk, DotsAndSingleNames)
{
    FakeDisk disk = SmallDisk();
    WalkRequest request = Request({u"*.*"}, 0);
    request.dots = true;
    EXPECT_EQ(Walk(request, disk), ". .. A.txt b.txt c.bin sub sub.old");
    request = Request({u"*.txt"}, 0);
    request.dots = true;
    EXPECT_EQ(Walk(request, disk), "A.txt b.txt");
    request = Request({}, 0);
    request.literalName = u"a.TXT";
    EXPECT_EQ(Walk(request, disk), "A.txt");
    request.literalName = u"secret.txt";
    EXPECT_EQ(Walk(request, disk), "");
    request.directory = u"C:\\gone\\";
    EXPECT_EQ(Walk(request, disk), "gone\\!3");
}

TEST(FileWalk, WhatCannotBeReadIsTold)
{
    FakeDisk disk = SmallDisk();
    disk.denied = u"C:\\sub\\";
    EXPECT_EQ(Walk(Request({u"*.txt"}), disk), "A.txt b.txt sub\\!5 sub.old\\f.txt");
}

TEST(FileWalk, LinksAreEnteredOnceAndLoopsAreSeen)
{
    FakeDisk disk;
    disk.Add(u"C:\\a", directory);
    disk.Add(u"C:\\a\\1.txt");
    disk.AddJunction(u"C:\\a\\up", u"C:\\");
    disk.AddJunction(u"C:\\a\\self", u"C:\\a\\");
    disk.Add(u"C:\\b", directory);
    disk.Add(u"C:\\b\\2.txt");
    disk.AddJunction(u"C:\\b\\to_a", u"C:\\a\\");
    disk.AddJunction(u"C:\\b\\to_a_too", u"C:\\a\\");
    disk.AddJunction(u"C:\\gone", u"C:\\nowhere\\");
    disk.Add(u"C:\\cloud", directory | file_attribute::reparsePoint, 0, cloudTag);
    disk.Add(u"C:\\cloud\\3.txt");
    EXPECT_EQ(Walk(Request({u"*.txt"}), disk), "a\\1.txt b\\2.txt b\\to_a\\1.txt cloud\\3.txt");
    WalkRequest request = Request({u"*.txt"});
    request.followsLinks = false;
    EXPECT_EQ(Walk(request, disk), "a\\1.txt b\\2.txt cloud\\3.txt");
}

TEST(FileWalk, LoopsThatLookLikeDirectoriesEnd)
{
    FakeDisk disk;
    disk.Add(u"C:\\a", directory);
    disk.Add(u"C:\\a\\1.txt");
    disk.AddJunction(u"C:\\a\\me", u"C:\\a\\", true);
    disk.Add(u"C:\\a\\b", directory);
    disk.Add(u"C:\\a\\b\\a", directory); // the name alone says nothing
    disk.Add(u"C:\\a\\b\\a\\2.txt");
    EXPECT_EQ(Walk(Request({u"*.txt"}), disk), "a\\1.txt a\\b\\a\\2.txt a\\me\\1.txt a\\me\\b\\a\\2.txt");
    disk.dated = true;
    EXPECT_EQ(Walk(Request({u"*.txt"}), disk), "a\\1.txt a\\b\\a\\2.txt");
}

TEST(SearchNames, AreTakenApart)
{
    struct Row {
        const char16_t* argument;
        const char* expected; // directory:name,name|...
    };
    const Row rows[] = {
        {u"*.c", ":*.c"},
        {u"src\\*.c;*.h;doc\\*.txt;x", "src\\:*.c,*.h|doc\\:*.txt,x"},
        {u"a;;b;", ":a,b"},
        {u"src\\a;SRC\\b", "src\\:a,b"},
        {u"\"my dir\\a;b.txt\";c", "my dir\\:\"a;b.txt\",c"},
        {u"d:x", "d::x"},
        {u"d:", "d::*"},
        {u"...\\x", "..\\..\\:x"},
        {u"sub\\", "sub\\:*"},
        {u"\\\\server\\share\\*.*", "\\\\server\\share\\:*.*"},
        {u"::^a;b\\d+$", ":::^a;b\\d+$"},
        {u"\"src\\::a b\"", "src\\:::a b"},
        {u"\"\"", ""},
    };
    for (const Row& row : rows) {
        std::string shown;
        for (const SearchTarget& target : SplitSearchNames(row.argument)) {
            shown += (shown.empty() ? "" : "|") + ToUtf8(target.directory) + ":";
            for (std::size_t i = 0; i < target.names.size(); ++i)
                shown += (i > 0 ? "," : "") + ToUtf8(target.names[i].Pattern());
        }
        EXPECT_EQ(shown, row.expected) << ToUtf8(CString(row.argument));
    }
}

TEST(DescriptionList, LinesAreReadAndKept)
{
    const char16_t* text = u"b.txt Second file\r\n"
                           u"\"a b.txt\" With a blank \x04X123\n"
                           u"\r\n"
                           u"lonely\r\n"
                           u"B.TXT never seen";
    DescriptionList list(text);
    EXPECT_EQ(ToUtf8(list.Find(u"B.txt")), "Second file");
    EXPECT_EQ(ToUtf8(list.Find(u"a b.txt")), "With a blank");
    EXPECT_EQ(ToUtf8(list.Find(u"lonely")), "");
    EXPECT_EQ(ToUtf8(list.Find(u"c.txt")), "");

    list.Set(u"A B.txt", u"New\r\ntext");
    list.Set(u"c d", u" third ");
    list.Set(u"b.txt", u"");
    EXPECT_EQ(ToUtf8(list.Find(u"b.txt")), "");
    EXPECT_EQ(ToUtf8(list.Text()), "\"A B.txt\" New  text\x04X123\r\nlonely\r\n\"c d\" third\r\n");
    list.Rename(u"a b.txt", u"plain");
    list.Rename(u"missing", u"lonely");
    EXPECT_EQ(ToUtf8(list.Find(u"plain")), "New  text");
    EXPECT_EQ(ToUtf8(list.Find(u"a b.txt")), "");
    EXPECT_NE(list.Text().Find(u"plain New  text\x04X123\r\n"), CString::npos);

    DescriptionList empty(u"x y");
    EXPECT_FALSE(empty.Empty());
    empty.Set(u"X", u"");
    EXPECT_TRUE(empty.Empty());
    EXPECT_TRUE(empty.Text().empty());
}
