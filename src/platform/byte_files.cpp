#include "platform/byte_files.h"

#include <algorithm>

#include "platform/file_facts.h"
#include "text/format.h"

namespace {

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

std::uint64_t BytesToRead(HANDLE file)
{
    LARGE_INTEGER size;
    const bool known = GetFileType(file) == FILE_TYPE_DISK && GetFileSizeEx(file, &size) && size.QuadPart > 0;
    return known ? static_cast<std::uint64_t>(size.QuadPart) : UINT64_MAX;
}

bool InputFile::Open(std::u16string_view name)
{
    file = OwnedHandle(CreateFileW(SystemPath(name).w(), GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE,
                                   nullptr, OPEN_EXISTING, FILE_FLAG_SEQUENTIAL_SCAN, nullptr));
    return static_cast<bool>(file);
}

std::uint64_t InputFile::Size() const
{
    LARGE_INTEGER size = {};
    GetFileSizeEx(file.Get(), &size);
    return static_cast<std::uint64_t>(size.QuadPart);
}

bool InputFile::Seek(std::uint64_t place)
{
    LARGE_INTEGER wanted;
    wanted.QuadPart = static_cast<LONGLONG>(place);
    return SetFilePointerEx(file.Get(), wanted, nullptr, FILE_BEGIN);
}

bool InputFile::Read(char* bytes, std::size_t most, std::size_t& count)
{
    constexpr std::size_t largestRead = std::size_t{1} << 24;
    DWORD read = 0;
    const bool done =
        ReadFile(file.Get(), bytes, static_cast<DWORD>(std::min(most, largestRead)), &read, nullptr) ||
        GetLastError() == ERROR_BROKEN_PIPE;
    count = read;
    return done;
}

ReplacedFile::~ReplacedFile()
{
    if (temporary.empty())
        return;
    const DWORD reason = GetLastError();
    file.Reset();
    DeleteFileW(temporary.w());
    SetLastError(reason);
}

bool ReplacedFile::Create(std::u16string_view fileName)
{
    name = SystemPath(fileName);
    const CString unique = Format(u"%s.%x.tmp", name, GetCurrentProcessId());
    file = OwnedHandle(CreateFileW(unique.w(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, 0, nullptr));
    if (file)
        temporary = unique;
    return static_cast<bool>(file);
}

bool ReplacedFile::Write(std::string_view bytes)
{
    while (!bytes.empty()) {
        constexpr std::size_t largestWrite = std::size_t{1} << 20;
        DWORD written = 0;
        const auto count = static_cast<DWORD>(std::min(bytes.size(), largestWrite));
        if (!WriteFile(file.Get(), bytes.data(), count, &written, nullptr) || written == 0)
            return false;
        bytes.remove_prefix(written);
    }
    return true;
}

bool ReplacedFile::Commit()
{
    if (!FlushFileBuffers(file.Get()))
        return false;
    file.Reset();
    if (!TakePlaceOf(name, temporary))
        return false;
    temporary.Clear();
    return true;
}
