// Creating, removing, renaming and describing files by name.
//
// Names may be relative and longer than 260 characters. Everything answers 0 or a Windows error number;
// nothing asks anybody.
#pragma once

#include <cstdint>
#include <string_view>

#include "text/cstring.h"

unsigned MakeDirectory(std::u16string_view name);
// And those above it that are missing, of which `made` is told the full names.
unsigned MakeDirectoryWithParents(std::u16string_view name, void (*made)(std::u16string_view) = nullptr);
// Only an empty one, or a link to a directory, which leaves what it leads to alone.
unsigned RemoveEmptyDirectory(std::u16string_view name);
unsigned EraseFile(std::u16string_view name);

// Renames a file or directory, on one volume only. Another file of the new name is an error unless `replace`.
unsigned RenameFile(std::u16string_view from, std::u16string_view to, bool replace);

unsigned ChangeAttributes(std::u16string_view name, std::uint32_t attributes);

// Times of a file in units of 100 nanoseconds since 1601 in UTC; 0 leaves one as it is.
struct NewFileTimes {
    std::uint64_t written = 0;
    std::uint64_t accessed = 0;
    std::uint64_t created = 0;
};
unsigned ChangeFileTimes(std::u16string_view name, const NewFileTimes& times);

// Another name for a file, on its volume; a name that is taken is an error.
unsigned MakeHardLink(std::u16string_view name, std::u16string_view existing);

// An empty file; one that exists is an error.
unsigned CreateEmptyFile(std::u16string_view name);

// Puts a file or a directory with all in it into the recycle bin. An error where there is none for its drive.
unsigned MoveToRecycleBin(std::u16string_view name);

// Writes over all bytes of a file, `passes` times, so that its contents cannot be read from the disk any
// more. `poll` is called between the blocks and may throw.
unsigned OverwriteContents(std::u16string_view name, int passes, void (*poll)());

// Tells the desktop's folder windows of a change.
enum class FolderChange {
    FileCreated,
    FileDeleted,
    FileRenamed,
    FileUpdated,
    DirectoryCreated,
    DirectoryDeleted
};
void NotifyFolders(FolderChange change, std::u16string_view name, std::u16string_view newName = {});
// The same of a change of file types.
void NotifyOfFileTypes();
