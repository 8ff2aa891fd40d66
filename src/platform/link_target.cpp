#include "platform/link_target.h"

#include <string>

#include <windows.h>

#include <winioctl.h>

#include "platform/file_facts.h"
#include "platform/handle.h"

LinkTarget ReadLinkTarget(std::u16string_view name)
{
    const auto attributes = ReadFileAttributes(name);
    if (!attributes || (*attributes & FILE_ATTRIBUTE_REPARSE_POINT) == 0)
        return {};
    const OwnedHandle file(
        CreateFileW(SystemPath(name).w(), 0, FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr,
                    OPEN_EXISTING, FILE_FLAG_OPEN_REPARSE_POINT | FILE_FLAG_BACKUP_SEMANTICS, nullptr));
    std::string record(MAXIMUM_REPARSE_DATA_BUFFER_SIZE, '\0');
    DWORD length = 0;
    if (!file || !DeviceIoControl(file.Get(), FSCTL_GET_REPARSE_POINT, nullptr, 0, record.data(),
                                  static_cast<DWORD>(record.size()), &length, nullptr))
        length = 0;
    record.resize(length);
    return ReadLinkRecord(record);
}
