#include "platform/random_access_file.h"

#include <algorithm>

#include "platform/file_facts.h"

namespace {

constexpr std::size_t largestTransfer = std::size_t{1} << 24;

OVERLAPPED At(std::int64_t place)
{
    OVERLAPPED at = {};
    at.Offset = static_cast<DWORD>(place);
    at.OffsetHigh = static_cast<DWORD>(static_cast<std::uint64_t>(place) >> 32);
    return at;
}

DWORD Portion(std::size_t bytes) { return static_cast<DWORD>(std::min(bytes, largestTransfer)); }

} // namespace

bool RandomAccessFile::Open(std::u16string_view name, FileAccess access)
{
    const DWORD rights = access == FileAccess::Read    ? GENERIC_READ
                         : access == FileAccess::Write ? GENERIC_WRITE
                                                       : GENERIC_READ | GENERIC_WRITE;
    const DWORD disposition = access == FileAccess::Read    ? OPEN_EXISTING
                              : access == FileAccess::Write ? CREATE_ALWAYS
                                                            : OPEN_ALWAYS;
    handle = OwnedHandle(CreateFileW(SystemPath(name).w(), rights, FILE_SHARE_READ | FILE_SHARE_WRITE,
                                     nullptr, disposition, FILE_ATTRIBUTE_NORMAL, nullptr));
    return static_cast<bool>(handle);
}

std::optional<std::size_t> RandomAccessFile::Read(std::int64_t place, char* room, std::size_t count) const
{
    std::size_t done = 0;
    while (done < count) {
        OVERLAPPED at = At(place + static_cast<std::int64_t>(done));
        DWORD read = 0;
        const BOOL worked = ReadFile(handle.Get(), room + done, Portion(count - done), &read, &at);
        const DWORD code = worked ? ERROR_SUCCESS : GetLastError();
        if (!worked && code != ERROR_HANDLE_EOF && code != ERROR_BROKEN_PIPE)
            return std::nullopt;
        if (read == 0)
            break;
        done += read;
    }
    return done;
}

bool RandomAccessFile::Write(std::int64_t place, std::string_view bytes) const
{
    while (!bytes.empty()) {
        OVERLAPPED at = At(place);
        DWORD written = 0;
        if (!WriteFile(handle.Get(), bytes.data(), Portion(bytes.size()), &written, &at))
            return false;
        if (written == 0) {
            SetLastError(ERROR_DISK_FULL);
            return false;
        }
        place += written;
        bytes.remove_prefix(written);
    }
    return true;
}

std::int64_t RandomAccessFile::Size() const
{
    LARGE_INTEGER size;
    return GetFileSizeEx(handle.Get(), &size) ? size.QuadPart : -1;
}

bool RandomAccessFile::SetSize(std::int64_t size) const
{
    LARGE_INTEGER place;
    place.QuadPart = size;
    return SetFilePointerEx(handle.Get(), place, nullptr, FILE_BEGIN) && SetEndOfFile(handle.Get());
}
