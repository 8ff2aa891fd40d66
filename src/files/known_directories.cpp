#include "files/known_directories.h"

#include <algorithm>
#include <unordered_map>

#include <windows.h>

#include "engine/data_folder.h"
#include "engine/inifile.h"
#include "files/file_search.h"
#include "files/text_lines.h"
#include "platform/append_file.h"
#include "platform/file_facts.h"
#include "platform/whole_file.h"
#include "text/compare.h"
#include "text/encoding.h"
#include "text/path_names.h"
#include "text/words.h"

namespace {

bool IsAtOrBelow(std::u16string_view name, std::u16string_view root)
{
    root = WithoutEndSeparators(root);
    return BeginsNoCase(name, root) &&
           (name.size() == root.size() || IsPathSeparator(root.back()) || IsPathSeparator(name[root.size()]));
}

// A directory comes before those in it, and "a b" behind what is in "a".
bool Before(const CString& a, const CString& b)
{
    const std::size_t shared = std::min(a.size(), b.size());
    for (std::size_t i = 0; i < shared; ++i) {
        const char16_t first = a[i] == u'\\' ? u'\x1' : UpperCase(a[i]);
        const char16_t second = b[i] == u'\\' ? u'\x1' : UpperCase(b[i]);
        if (first != second)
            return first < second;
    }
    return a.size() < b.size();
}

// Removals among directories that are added one by one. Each takes out only what was there before it; to look
// through all of them every time would be slow when there are many.
class Removals {
public:
    // `known` directories were there.
    void Add(std::u16string_view root, std::size_t known)
    {
        counts[CString(WithoutEndSeparators(root))] = known;
    }

    void Apply(std::vector<CString>& directories) const
    {
        if (counts.empty())
            return;
        std::size_t number = 0;
        std::erase_if(directories, [&](const CString& name) { return Takes(name, number++); });
    }

private:
    bool Takes(std::u16string_view name, std::size_t number) const
    {
        for (std::size_t end = 1; end <= name.size(); ++end) {
            if (end < name.size() && !IsPathSeparator(name[end - 1]))
                continue;
            const auto removal = counts.find(CString(WithoutEndSeparators(name.substr(0, end))));
            if (removal != counts.end() && number < removal->second)
                return true;
        }
        return false;
    }

    std::unordered_map<CString, std::size_t, NoCaseHash, NoCaseEqual> counts;
};

// Adds records to the database, if there is one.
void Note(const std::string& records)
{
    const CString file = KnownDirectoriesFile();
    AppendFile database;
    if (ReadFileAttributes(file) && database.Open(file))
        database.Append(records);
}

std::string Record(char mark, std::u16string_view name)
{
    return mark + ToUtf8(WithoutEndSeparators(name)) + "\r\n";
}

} // namespace

CString KnownDirectoriesFile()
{
    const CString folder = WithoutQuotes(aIniFile.TreePath ? aIniFile.TreePath : u"");
    return JoinPath(folder.empty() ? DataFolder() : folder, u"MovaDirs.lst");
}

bool ReadKnownDirectories(std::vector<CString>& directories)
{
    constexpr std::size_t mostChanges = 5000;
    TextLines lines;
    if (!lines.Open(KnownDirectoriesFile()))
        return false;
    Removals removals;
    std::size_t changes = 0;
    bool added = false;
    for (std::u16string_view line; lines.Next(line);) {
        if (line.starts_with(u'-'))
            removals.Add(line.substr(1), directories.size());
        else if (!line.empty())
            directories.emplace_back(line.substr(line.front() == u'+' ? 1 : 0));
        added = added || line.starts_with(u'+');
        changes += line.starts_with(u'+') || line.starts_with(u'-');
    }
    if (lines.Failure() != 0) {
        SetLastError(lines.Failure());
        return false;
    }
    removals.Apply(directories);
    if (added) {
        std::sort(directories.begin(), directories.end(), Before);
        directories.erase(std::unique(directories.begin(), directories.end(),
                                      [](const CString& a, const CString& b) { return EqualNoCase(a, b); }),
                          directories.end());
    }
    if (changes > mostChanges)
        WriteKnownDirectories(directories); // the file would grow for ever; it may stay as it is
    return true;
}

unsigned WriteKnownDirectories(const std::vector<CString>& directories)
{
    std::string text;
    for (const CString& directory : directories)
        text += ToUtf8(directory) + "\r\n";
    // The mark keeps names of ASCII letters alone from being taken for another encoding later.
    return ReplaceWholeFile(KnownDirectoriesFile(), "\xEF\xBB\xBF" + text) ? 0 : GetLastError();
}

std::vector<CString> DirectoriesBelow(std::u16string_view root)
{
    std::vector<CString> directories;
    FILESEARCH search;
    search.attributes = AttributeMasks::Everything();
    search.attributes.required = file_attribute::directory;
    search.deepest = allLevels;
    search.avoidsLinks = true;
    SearchedDirectory directory;
    for (StartSearch(search, AddQuotes(JoinPath(FullPathName(root), u"*")));
         NextDirectory(search, directory);)
        if (directory.found.error == 0)
            directories.emplace_back(WithoutEndSeparators(directory.found.name));
    std::sort(directories.begin(), directories.end(), Before);
    return directories;
}

void RemoveBelow(std::vector<CString>& directories, std::u16string_view root)
{
    std::erase_if(directories, [root](const CString& name) { return IsAtOrBelow(name, root); });
}

void NoteNewDirectory(std::u16string_view name) { Note(Record('+', name)); }

void NoteRemovedDirectory(std::u16string_view name) { Note(Record('-', name)); }

void NoteMovedDirectory(std::u16string_view from, std::u16string_view to)
{
    if (!ReadFileAttributes(KnownDirectoriesFile()))
        return;
    std::string records = Record('-', from);
    for (const CString& directory : DirectoriesBelow(to))
        records += Record('+', directory);
    Note(records);
}
