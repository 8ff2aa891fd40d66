#include "commands/tree_removal.h"

#include <vector>

#include <windows.h>

#include "engine/break.h"
#include "files/descriptions.h"
#include "files/directory_source.h"
#include "lang/file_messages.h"
#include "platform/file_changes.h"
#include "platform/file_facts.h"
#include "text/compare.h"
#include "text/path_names.h"

namespace {

struct Entry {
    CString name; // full
    std::uint32_t attributes = 0;
    bool emptied = false;   // what is in the directory was dealt with
    bool describes = false; // the description file

    bool IsDirectory() const { return (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0; }
    bool IsLink() const { return (attributes & FILE_ATTRIBUTE_REPARSE_POINT) != 0; }
};

class Contents : public EntrySink {
public:
    Contents(std::u16string_view ofDirectory, std::vector<Entry>& receiver)
        : directory(ofDirectory), entries(receiver), first(receiver.size()),
          descriptionName(DescriptionFileName())
    {}
    void Take(const DirectoryEntry& entry) override
    {
        if (entry.name == u"." || entry.name == u"..")
            return;
        const bool describes = EqualNoCase(entry.name, descriptionName);
        Entry taken{PathOfEntry(directory, entry.name), entry.facts.attributes, false, describes};
        const auto place = entries.begin() + static_cast<std::ptrdiff_t>(first);
        entries.insert(describes ? place : entries.end(), std::move(taken)); // it is removed last
    }

private:
    std::u16string_view directory;
    std::vector<Entry>& entries;
    std::size_t first;
    CString descriptionName;
};

// The descriptions of what stays in a directory stay, too.
bool StaysWithOthers(const Entry& entry)
{
    if (!entry.describes)
        return false;
    SystemDirectories source(false);
    const CString directory(DirectoryPart(entry.name));
    std::vector<Entry> entries;
    Contents contents(directory, entries);
    return source.Read(directory, u"*", contents) == 0 && entries.size() > 1;
}

unsigned RemoveEntry(const Entry& entry, bool readOnlyToo)
{
    const bool isReadOnly = (entry.attributes & FILE_ATTRIBUTE_READONLY) != 0;
    if (isReadOnly && !readOnlyToo && !entry.IsDirectory()) // of directories the mark protects nothing
        return errors::targetProtected;
    if (isReadOnly)
        ChangeAttributes(entry.name, entry.attributes & ~std::uint32_t{FILE_ATTRIBUTE_READONLY});
    return entry.IsDirectory() ? RemoveEmptyDirectory(entry.name) : EraseFile(entry.name);
}

} // namespace

unsigned RemoveTree(const CString& directory, bool readOnlyToo,
                    const std::function<void(unsigned, const CString&)>& failed)
{
    SystemDirectories source(false);
    // What is still to be removed; a directory lies below its contents.
    std::vector<Entry> entries = {{FullPathName(directory), FILE_ATTRIBUTE_DIRECTORY}};
    unsigned left = 0;
    while (!entries.empty()) {
        ThrowIfBroken();
        if (Entry& last = entries.back(); last.IsDirectory() && !last.IsLink() && !last.emptied) {
            last.emptied = true;
            const CString inside = JoinPath(last.name, u"");
            Contents contents(inside, entries);
            if (const unsigned code = source.Read(inside, u"*", contents))
                failed(code, inside);
            continue;
        }
        const Entry entry = std::move(entries.back());
        entries.pop_back();
        if (StaysWithOthers(entry))
            continue;
        const unsigned code = RemoveEntry(entry, readOnlyToo);
        if (code == 0)
            continue;
        left = code;
        // Directories that are not empty for a reason told already need no line of their own.
        if (!entries.empty() && code != ERROR_DIR_NOT_EMPTY)
            failed(code, entry.name);
    }
    return left;
}

bool IsEmptyDirectory(const CString& directory)
{
    SystemDirectories source(false);
    const CString full = JoinPath(FullPathName(directory), u"");
    std::vector<Entry> entries;
    Contents contents(full, entries);
    return source.Read(full, u"*", contents) == 0 && entries.empty();
}
