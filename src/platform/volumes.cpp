#include "platform/volumes.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <iterator>
#include <vector>

#include <windows.h>

#include <winioctl.h>

#include <ntddcdrm.h>
#include <ntddmmc.h>
#include <winnetwk.h>

#include "platform/file_facts.h"
#include "platform/handle.h"
#include "platform/lazy_library.h"
#include "text/compare.h"
#include "text/encoding.h"
#include "text/format.h"

namespace {

constinit LazyFunction<decltype(WNetGetUniversalNameW)>
    getUniversalName(libraries::mpr, "WNetGetUniversalNameW", ERROR_PROC_NOT_FOUND);

CString TextAt(const std::vector<std::byte>& record, std::size_t offset)
{
    if (offset == 0 || offset >= record.size())
        return {};
    const char* text = reinterpret_cast<const char*>(record.data()) + offset;
    return FromAscii(std::string_view(text, strnlen(text, record.size() - offset))).Trim();
}

std::optional<bool> SeekPenalty(HANDLE device)
{
    STORAGE_PROPERTY_QUERY query = {};
    query.PropertyId = StorageDeviceSeekPenaltyProperty;
    query.QueryType = PropertyStandardQuery;
    DEVICE_SEEK_PENALTY_DESCRIPTOR answer = {};
    DWORD length = 0;
    if (!DeviceIoControl(device, IOCTL_STORAGE_QUERY_PROPERTY, &query, sizeof query, &answer, sizeof answer,
                         &length, nullptr) ||
        length < sizeof answer)
        return std::nullopt;
    return answer.IncursSeekPenalty != FALSE;
}

} // namespace

CString DriveRoot(std::u16string_view name)
{
    CString path(name);
    if (path.size() == 1 && IsAsciiLetter(path[0]))
        path.Append(u':');
    path = FullPathName(path.empty() ? CString(u".") : path);
    CString root;
    const std::size_t room = path.size() + MAX_PATH;
    wchar_t* units = reinterpret_cast<wchar_t*>(root.Edit(room));
    if (path[1] == u':')
        return CString(1, UpperCase(path[0])).Append(u":\\");
    if (!GetVolumePathNameW(path.w(), units, static_cast<DWORD>(room)))
        return {};
    root.SetLength(std::char_traits<wchar_t>::length(units));
    return root;
}

unsigned DriveKind(const CString& root) { return root.empty() ? DRIVE_NO_ROOT_DIR : GetDriveTypeW(root.w()); }

std::optional<VolumeDetails> ReadVolumeDetails(const CString& root)
{
    wchar_t label[MAX_PATH + 1] = L"";
    wchar_t fileSystem[MAX_PATH + 1] = L"";
    DWORD serial = 0;
    if (root.empty() || !GetVolumeInformationW(root.w(), label, MAX_PATH + 1, &serial, nullptr, nullptr,
                                               fileSystem, MAX_PATH + 1))
        return std::nullopt;
    return VolumeDetails{CString(reinterpret_cast<const char16_t*>(label)),
                         CString(reinterpret_cast<const char16_t*>(fileSystem)), serial};
}

std::optional<DiskSpace> ReadDiskSpace(const CString& root)
{
    ULARGE_INTEGER free;
    ULARGE_INTEGER total;
    ULARGE_INTEGER unused;
    if (root.empty() || !GetDiskFreeSpaceExW(root.w(), &free, &total, &unused))
        return std::nullopt;
    return DiskSpace{total.QuadPart, free.QuadPart, unused.QuadPart};
}

std::optional<StorageFacts> ReadStorageFacts(char16_t letter)
{
    const CString name = Format(u"\\\\.\\%c:", letter);
    const OwnedHandle device(
        CreateFileW(name.w(), 0, FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr, OPEN_EXISTING, 0, nullptr));
    if (!device)
        return std::nullopt;
    STORAGE_PROPERTY_QUERY query = {};
    query.PropertyId = StorageDeviceProperty;
    query.QueryType = PropertyStandardQuery;
    constexpr std::size_t largestRecord = 4096;
    std::vector<std::byte> record(largestRecord);
    DWORD length = 0;
    STORAGE_DEVICE_DESCRIPTOR found = {};
    if (!DeviceIoControl(device.Get(), IOCTL_STORAGE_QUERY_PROPERTY, &query, sizeof query, record.data(),
                         static_cast<DWORD>(record.size()), &length, nullptr) ||
        length < offsetof(STORAGE_DEVICE_DESCRIPTOR, RawDeviceProperties))
        return std::nullopt;
    record.resize(length);
    std::memcpy(&found, record.data(), offsetof(STORAGE_DEVICE_DESCRIPTOR, RawDeviceProperties));
    return StorageFacts{static_cast<unsigned>(found.BusType), found.RemovableMedia != FALSE,
                        TextAt(record, found.SerialNumberOffset), SeekPenalty(device.Get())};
}

std::u16string_view BusName(unsigned bus)
{
    constexpr std::u16string_view names[] = {
        u"",    u"SCSI", u"ATAPI", u"ATA", u"1394",    u"SSA",  u"Fibre",  u"USB",  u"RAID", u"iSCSI",
        u"SAS", u"SATA", u"SD",    u"MMC", u"Virtual", u"File", u"Spaces", u"NVMe", u"SCM",  u"UFS",
    };
    return bus < std::size(names) ? names[bus] : std::u16string_view();
}

CString SubstitutedFolder(char16_t letter)
{
    constexpr DWORD room = 32768;
    const CString drive = Format(u"%c:", UpperCase(letter));
    CString target;
    wchar_t* units = reinterpret_cast<wchar_t*>(target.Edit(room));
    if (!QueryDosDeviceW(drive.w(), units, room))
        return {};
    target.SetLength(std::char_traits<wchar_t>::length(units));
    if (!target.view().starts_with(u"\\??\\"))
        return {};
    target.Erase(0, 4);
    return target.view().starts_with(u"UNC\\") ? target.Replace(0, 3, u"\\") : target;
}

CString UniversalName(std::u16string_view fullName)
{
    if (fullName.starts_with(u"\\\\"))
        return CString(fullName);
    const CString name(fullName);
    std::vector<std::byte> record(1024);
    for (int rounds = 0; rounds < 2; ++rounds) {
        DWORD size = static_cast<DWORD>(record.size());
        const DWORD code = getUniversalName(name.w(), UNIVERSAL_NAME_INFO_LEVEL, record.data(), &size);
        if (code == NO_ERROR)
            return reinterpret_cast<const char16_t*>(
                reinterpret_cast<const UNIVERSAL_NAME_INFOW*>(record.data())->lpUniversalName);
        if (code != ERROR_MORE_DATA)
            break;
        record.resize(size);
    }
    return {};
}

bool TakesDvds(char16_t letter)
{
    const OwnedHandle device(CreateFileW(Format(u"\\\\.\\%c:", letter).w(), GENERIC_READ,
                                         FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr, OPEN_EXISTING, 0,
                                         nullptr));
    GET_CONFIGURATION_IOCTL_INPUT query = {};
    query.Feature = FeatureDvdRead;
    query.RequestType = SCSI_GET_CONFIGURATION_REQUEST_TYPE_ONE;
    std::array<std::uint8_t, 128> answer = {}; // the header, then the feature's own
    DWORD bytes = 0;
    if (!device || !DeviceIoControl(device.Get(), IOCTL_CDROM_GET_CONFIGURATION, &query, sizeof query,
                                    answer.data(), answer.size(), &bytes, nullptr))
        return false;
    constexpr std::size_t at = sizeof(GET_CONFIGURATION_HEADER);
    return bytes >= at + 2 && (answer[at] << 8 | answer[at + 1]) == FeatureDvdRead;
}
