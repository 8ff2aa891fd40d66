// Drives and the volumes in them.
//
// A drive is named by its root ("C:\", "\\server\share\"). No question opens a box: a drive without a medium
// has no facts.
#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

#include "text/cstring.h"

// The root of the drive or share that the name stands on ("c", "c:", any file name); "" means the current
// one.
CString DriveRoot(std::u16string_view name);

// The number that the system gives its kind: 0 unknown, 1 no such root, 2 removable, 3 fixed, 4 remote, 5
// optical, 6 memory.
unsigned DriveKind(const CString& root);

struct VolumeDetails {
    CString label;
    CString fileSystem;
    std::uint32_t serial = 0;
};
std::optional<VolumeDetails> ReadVolumeDetails(const CString& root);

struct DiskSpace {
    std::uint64_t total = 0;  // bytes
    std::uint64_t free = 0;   // for this user
    std::uint64_t unused = 0; // for anybody
};
std::optional<DiskSpace> ReadDiskSpace(const CString& root);

// What the device behind a drive letter says of itself.
struct StorageFacts {
    unsigned bus = 0; // as BusName knows it
    bool removable = false;
    CString serial;              // of the hardware
    std::optional<bool> rotates; // whether seeking costs time
};
std::optional<StorageFacts> ReadStorageFacts(char16_t letter);
// "USB", "SATA", "NVMe" ..., "" for numbers that have no name.
std::u16string_view BusName(unsigned bus);

// The folder that a substituted drive stands for, "" for other drives.
CString SubstitutedFolder(char16_t letter);
// The "\\server\share\..." name of a file on a connected drive, "" for any other.
CString UniversalName(std::u16string_view fullName);

// Whether a disk drive takes DVDs.
bool TakesDvds(char16_t letter);
