#include "platform/whole_file.h"

#include <algorithm>

#include "platform/handle.h"
#include "text/format.h"

namespace {

bool WriteNewFile(const CString& name, std::string_view bytes)
{
    const OwnedHandle file(CreateFileW(name.w(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, 0, nullptr));
    if (!file)
        return false;
    while (!bytes.empty()) {
        constexpr std::size_t largestWrite = std::size_t{1} << 20;
        DWORD written = 0;
        const auto count = static_cast<DWORD>(std::min(bytes.size(), largestWrite));
        if (!WriteFile(file.Get(), bytes.data(), count, &written, nullptr) || written == 0)
            return false;
        bytes.remove_prefix(written);
    }
    return FlushFileBuffers(file.Get());
}

// Whether somebody holds the file so that it cannot give its name away. The system would find out only after
// it has begun.
bool IsHeld(const CString& name)
{
    constexpr DWORD anybody = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;
    return !OwnedHandle(CreateFileW(name.w(), DELETE, anybody, nullptr, OPEN_EXISTING, 0, nullptr));
}

bool TakePlaceOf(const CString& name, const CString& replacement)
{
    const DWORD attributes = GetFileAttributesW(name.w());
    if (attributes == INVALID_FILE_ATTRIBUTES)
        return MoveFileExW(replacement.w(), name.w(), MOVEFILE_WRITE_THROUGH);
    if ((attributes & FILE_ATTRIBUTE_READONLY) != 0) {
        SetLastError(ERROR_ACCESS_DENIED);
        return false;
    }
    if (IsHeld(name))
        return false;
    // Not every file system can hand the old file's rights on.
    return ReplaceFileW(name.w(), replacement.w(), nullptr, REPLACEFILE_IGNORE_MERGE_ERRORS, nullptr,
                        nullptr) ||
           MoveFileExW(replacement.w(), name.w(), MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH);
}

} // namespace

bool ReadWholeFile(const CString& name, std::string& bytes, std::size_t most)
{
    constexpr std::size_t blockSize = 16384;
    const OwnedHandle file(CreateFileW(name.w(), GENERIC_READ, FILE_SHARE_READ, nullptr, OPEN_EXISTING,
                                       FILE_FLAG_SEQUENTIAL_SCAN, nullptr));
    if (!file)
        return false;
    bytes.clear();
    while (bytes.size() < most) {
        const std::size_t start = bytes.size();
        bytes.resize(start + std::min(blockSize, most - start));
        DWORD read = 0;
        const bool done = !ReadFile(file.Get(), bytes.data() + start,
                                    static_cast<DWORD>(bytes.size() - start), &read, nullptr);
        bytes.resize(start + read);
        if (done)
            return false;
        if (read == 0)
            break;
    }
    return true;
}

bool ReplaceWholeFile(const CString& name, std::string_view bytes)
{
    const CString temporary = Format(u"%s.%x.tmp", name, GetCurrentProcessId());
    if (WriteNewFile(temporary, bytes) && TakePlaceOf(name, temporary))
        return true;
    const DWORD reason = GetLastError();
    DeleteFileW(temporary.w());
    SetLastError(reason);
    return false;
}

bool CreateNewFile(const CString& name)
{
    return static_cast<bool>(
        OwnedHandle(CreateFileW(name.w(), GENERIC_WRITE, 0, nullptr, CREATE_NEW, 0, nullptr)));
}
