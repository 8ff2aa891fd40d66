// Current directories and drives.
#include "internals/families.h"

#include <windows.h>

#include <winioctl.h>

#include "engine/state.h"
#include "internals/values.h"
#include "platform/directory.h"
#include "platform/file_facts.h"
#include "platform/volumes.h"

namespace {

// Without the drive; a share has no drive but its own name.
std::u16string_view WithoutDrive(std::u16string_view directory)
{
    return directory.size() >= 2 && directory[1] == u':' ? directory.substr(2) : directory;
}

bool AnswerWithSlash(CString& value, std::u16string_view directory)
{
    value = directory;
    if (value.back() != u'\\')
        value.Append(u'\\');
    return true;
}

unsigned KindOf(char16_t letter) { return DriveKind(DriveRoot(std::u16string_view(&letter, 1))); }

template <typename Wanted> bool AnswerDrives(CString& value, Wanted wanted)
{
    value.Clear();
    for (const char16_t letter : AllDrives()) {
        if (!wanted(letter))
            continue;
        if (!value.empty())
            value.Append(u' ');
        value.Append(letter).Append(u':');
    }
    return true;
}

} // namespace

// The current directory; with an "s" ended by a backslash, with "p" in the place of "d" without its drive.
bool Cwd_Variable(CString& value) { return AnswerText(value, CurrentDirectory()); }
bool Cwds_Variable(CString& value) { return AnswerWithSlash(value, CurrentDirectory()); }
bool Cwp_Variable(CString& value) { return AnswerText(value, WithoutDrive(CurrentDirectory())); }
bool Cwps_Variable(CString& value) { return AnswerWithSlash(value, WithoutDrive(CurrentDirectory())); }

// The letter of the current drive; empty on a share.
bool Disk_Variable(CString& value)
{
    const CString directory = CurrentDirectory();
    return AnswerText(value, directory[1] == u':' ? directory.view().substr(0, 1) : u"");
}

// The directory that "CD -" goes back to.
bool Lastdir_Variable(CString& value) { return AnswerText(value, aTexts.previousDirectory); }

// The letter of the last drive there is.
bool Lastdisk_Variable(CString& value)
{
    const std::vector<char16_t> drives = AllDrives();
    return AnswerText(value, drives.empty() ? u"" : std::u16string_view(&drives.back(), 1));
}

// All drives, parted by blanks.
bool Drives_Variable(CString& value)
{
    return AnswerDrives(value, [](char16_t) { return true; });
}

// Without those of the network.
bool Logicaldrives_Variable(CString& value)
{
    return AnswerDrives(value, [](char16_t letter) { return KindOf(letter) != DRIVE_REMOTE; });
}

bool Hdrives_Variable(CString& value)
{
    return AnswerDrives(value, [](char16_t letter) { return KindOf(letter) == DRIVE_FIXED; });
}

bool Cdroms_Variable(CString& value)
{
    return AnswerDrives(value, [](char16_t letter) { return KindOf(letter) == DRIVE_CDROM; });
}

bool Dvds_Variable(CString& value)
{
    return AnswerDrives(value,
                        [](char16_t letter) { return KindOf(letter) == DRIVE_CDROM && TakesDvds(letter); });
}

bool Usbs_Variable(CString& value)
{
    return AnswerDrives(value, [](char16_t letter) {
        const auto facts = ReadStorageFacts(letter);
        return facts && facts->bus == BusTypeUsb;
    });
}

// Those that hold a disk that can be read.
bool Ready_Variable(CString& value)
{
    return AnswerDrives(value, [](char16_t letter) {
        return ReadVolumeDetails(DriveRoot(std::u16string_view(&letter, 1))).has_value();
    });
}
