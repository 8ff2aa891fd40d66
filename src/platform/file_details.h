// What the system tells about a file only when it is asked specially: owner, identity, compressed size,
// streams; and the local times of file times.
//
// Names are taken as in file_facts.h. File times are 100 nanoseconds since 1601.
#pragma once

#include <cstdint>
#include <optional>
#include <string_view>
#include <vector>

#include <windows.h>

#include "text/cstring.h"

constexpr std::uint64_t FileTimeNumber(const FILETIME& time)
{
    return (static_cast<std::uint64_t>(time.dwHighDateTime) << 32) | time.dwLowDateTime;
}

std::uint64_t FileTimeNow(); // UTC

// Turns file times into the user's local time, daylight saving of that very day included. Neighbouring times
// are cheap: an object keeps the difference that it found last.
class LocalFileTimes {
public:
    std::uint64_t Convert(std::uint64_t fileTime);

private:
    std::uint64_t slot = UINT64_MAX; // of a quarter of an hour, that the difference was found for
    std::int64_t difference = 0;
};

// "DOMAIN\name"; "" when it may not be asked or is not known.
CString FileOwner(std::u16string_view name);

// What the file takes on the disk; its size where the file system does not compress. Nothing when it is gone.
std::optional<std::uint64_t> CompressedFileSize(std::u16string_view name);

struct FileIdentity {
    std::uint64_t volume = 0;
    std::uint64_t file = 0;
    std::uint32_t links = 0; // names that the file has
};
// Of what the name leads to: links are followed.
std::optional<FileIdentity> IdentifyFile(std::u16string_view name);

// Whether both names lead to one file.
bool IsOneFile(std::u16string_view name, std::u16string_view other);

struct FileStream {
    CString name; // ":name:$DATA"
    std::uint64_t size = 0;
};
// The named streams, without the file's own data. Empty where the file system knows none.
std::vector<FileStream> NamedStreams(std::u16string_view name);

struct VolumeFacts {
    CString label;
    std::uint32_t serial = 0;
};
// Of the volume that holds the directory.
std::optional<VolumeFacts> ReadVolumeFacts(std::u16string_view directory);

// Bytes that the user may still write there.
std::optional<std::uint64_t> FreeBytes(std::u16string_view directory);
