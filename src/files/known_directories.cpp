#include "files/known_directories.h"

#include <algorithm>

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
    TextLines lines;
    if (!lines.Open(KnownDirectoriesFile()))
        return false;
    bool changed = false;
    for (std::u16string_view line; lines.Next(line);) {
        if (line.starts_with(u'-')) {
            RemoveBelow(directories, line.substr(1));
        } else if (line.starts_with(u'+')) {
            directories.emplace_back(line.substr(1));
            changed = true;
        } else if (!line.empty()) {
            directories.emplace_back(line);
        }
    }
    if (changed) {
        std::sort(directories.begin(), directories.end(), Before);
        directories.erase(std::unique(directories.begin(), directories.end(),
                                      [](const CString& a, const CString& b) { return EqualNoCase(a, b); }),
                          directories.end());
    }
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
