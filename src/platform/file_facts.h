// Asking the system about files by name: whether they exist, what they are, what their full names are.
//
// Names may be relative and longer than 260 characters; no question ever opens a box or waits for a disk to
// be put in (the shell's error mode sees to that). A question that cannot be answered counts as "no".
#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

#include <windows.h>

#include "text/cstring.h"

struct FileFacts {
    std::uint32_t attributes = 0; // FILE_ATTRIBUTE_...
    std::uint64_t size = 0;       // bytes
    FILETIME written = {};
    FILETIME accessed = {};
    FILETIME created = {};

    bool IsDirectory() const { return (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0; }
};

// Nothing when the file does not exist or may not be seen; the reason is the thread's last error.
std::optional<FileFacts> ReadFileFacts(std::u16string_view name);
// The attributes alone, which is cheaper.
std::optional<std::uint32_t> ReadFileAttributes(std::u16string_view name);

// Sets the attributes that can be set this way. False with the reason in the thread's last error.
bool WriteFileAttributes(std::u16string_view name, std::uint32_t attributes);

// A file that is there: neither a directory nor a device.
bool QueryIsFile(std::u16string_view name);
bool QueryIsDirectory(std::u16string_view name);
// Whether this system takes the full name for a device, as some do with "C:\x\nul.txt".
bool IsReservedName(std::u16string_view name);

// The full name by the current directory, "." and ".." resolved; the name itself when it cannot be resolved.
CString FullPathName(std::u16string_view name);
// The name as it is spelled on the disk, short components made long; the name itself when it does not exist.
CString LongPathName(std::u16string_view name);
// With all components short where the disk keeps short names; the name itself when it does not exist.
CString ShortPathName(std::u16string_view name);
// Where the name leads to: links followed, substituted drives replaced. "" when it does not exist.
CString RealPathName(std::u16string_view name);
// The same for an open file or directory.
CString PathOfHandle(HANDLE file);
// The form that the system's file functions take at any length: a full name of 248 units and more gets the
// prefix "\\?\", and so does one that the system would change on the way (HasOddDirectory); anything else
// stays as it is. For calls only, never to be shown.
CString SystemPath(std::u16string_view name);

// The current directory, without a separator at its end unless it is a root.
CString CurrentDirectory();
