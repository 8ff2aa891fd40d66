#include "platform/drive_substitution.h"

#include <windows.h>

#include "platform/volumes.h"

namespace {

CString DeviceName(char16_t letter) { return CString(1, letter).Append(u':'); }

} // namespace

unsigned SubstituteDrive(char16_t letter, const CString& folder)
{
    if (DriveKind(DeviceName(letter).Append(u'\\')) != DRIVE_NO_ROOT_DIR)
        return ERROR_ALREADY_ASSIGNED;
    return DefineDosDeviceW(0, DeviceName(letter).w(), folder.w()) ? 0u : unsigned{GetLastError()};
}

unsigned EndSubstitution(char16_t letter)
{
    if (SubstitutedFolder(letter).empty())
        return ERROR_NOT_SUBSTED;
    return DefineDosDeviceW(DDD_REMOVE_DEFINITION, DeviceName(letter).w(), nullptr)
               ? 0u
               : unsigned{GetLastError()};
}
