#include "platform/link_target.h"

#include <cstddef>
#include <cstring>
#include <vector>

#include <windows.h>

#include <winioctl.h>

#include "platform/file_facts.h"
#include "platform/handle.h"

namespace {

// The head of the system's record for both kinds of link; a symbolic link has one more word of flags in front
// of its names.
struct ReparseHead {
    std::uint32_t tag;
    std::uint16_t dataLength;
    std::uint16_t reserved;
    std::uint16_t substituteOffset; // in bytes, from the start of the names
    std::uint16_t substituteLength;
    std::uint16_t printOffset;
    std::uint16_t printLength;
};

CString NameAt(const std::vector<std::byte>& record, std::size_t start, std::size_t length)
{
    if (start + length > record.size())
        return {};
    CString name;
    std::memcpy(name.Edit(length / 2), record.data() + start, length / 2 * 2);
    name.SetLength(length / 2);
    return name;
}

// The name for people when there is one, else that for the system without its prefix.
CString TargetOf(const std::vector<std::byte>& record, const ReparseHead& head, std::size_t names)
{
    CString target = NameAt(record, names + head.printOffset, head.printLength);
    if (!target.empty())
        return target;
    target = NameAt(record, names + head.substituteOffset, head.substituteLength);
    if (target.view().starts_with(u"\\??\\"))
        target.Erase(0, 4);
    return target;
}

} // namespace

LinkTarget ReadLinkTarget(std::u16string_view name)
{
    const auto attributes = ReadFileAttributes(name);
    if (!attributes || (*attributes & FILE_ATTRIBUTE_REPARSE_POINT) == 0)
        return {};
    LinkTarget link{LinkKind::Other, {}};
    const OwnedHandle file(
        CreateFileW(SystemPath(name).w(), 0, FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr,
                    OPEN_EXISTING, FILE_FLAG_OPEN_REPARSE_POINT | FILE_FLAG_BACKUP_SEMANTICS, nullptr));
    std::vector<std::byte> record(MAXIMUM_REPARSE_DATA_BUFFER_SIZE);
    DWORD length = 0;
    ReparseHead head;
    if (!file ||
        !DeviceIoControl(file.Get(), FSCTL_GET_REPARSE_POINT, nullptr, 0, record.data(),
                         static_cast<DWORD>(record.size()), &length, nullptr) ||
        length < sizeof head)
        return link;
    record.resize(length);
    std::memcpy(&head, record.data(), sizeof head);
    if (head.tag == IO_REPARSE_TAG_MOUNT_POINT)
        link = {LinkKind::Junction, TargetOf(record, head, sizeof head)};
    else if (head.tag == IO_REPARSE_TAG_SYMLINK)
        link = {LinkKind::SymbolicLink, TargetOf(record, head, sizeof head + sizeof(std::uint32_t))};
    return link;
}
