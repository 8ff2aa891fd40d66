#include "platform/file_facts.h"

#include <utility>

#include "platform/handle.h"
#include "text/path_names.h"

namespace {

// Directories must leave room for a short name within the classic limit of 260.
constexpr std::size_t classicLimit = 248;

// Runs a Win32 question of the form length(room, buffer) until the answer fits.
template <typename Question> CString ReadPath(Question question)
{
    CString path;
    std::size_t room = 260;
    for (int rounds = 0; rounds < 8; ++rounds) {
        wchar_t* units = reinterpret_cast<wchar_t*>(path.Edit(room));
        const DWORD length = question(static_cast<DWORD>(room), units);
        if (length == 0)
            break;
        if (length < room) {
            path.SetLength(length);
            return path;
        }
        room = length + 1;
    }
    return CString();
}

// What SystemPath put in front is taken off again.
CString WithoutPrefix(CString path)
{
    if (path.view().starts_with(u"\\\\?\\UNC\\"))
        path.Replace(0, 8, u"\\\\");
    else if (path.view().starts_with(u"\\\\?\\"))
        path.Erase(0, 4);
    return path;
}

} // namespace

std::optional<FileFacts> ReadFileFacts(std::u16string_view name)
{
    WIN32_FILE_ATTRIBUTE_DATA data;
    if (!GetFileAttributesExW(SystemPath(name).w(), GetFileExInfoStandard, &data))
        return std::nullopt;
    FileFacts facts;
    facts.attributes = data.dwFileAttributes;
    facts.size = (static_cast<std::uint64_t>(data.nFileSizeHigh) << 32) | data.nFileSizeLow;
    facts.written = data.ftLastWriteTime;
    facts.accessed = data.ftLastAccessTime;
    facts.created = data.ftCreationTime;
    return facts;
}

std::optional<std::uint32_t> ReadFileAttributes(std::u16string_view name)
{
    const DWORD attributes = GetFileAttributesW(SystemPath(name).w());
    if (attributes == INVALID_FILE_ATTRIBUTES)
        return std::nullopt;
    return attributes;
}

bool WriteFileAttributes(std::u16string_view name, std::uint32_t attributes)
{
    return SetFileAttributesW(SystemPath(name).w(), attributes ? attributes : FILE_ATTRIBUTE_NORMAL);
}

bool QueryIsFile(std::u16string_view name)
{
    const auto attributes = ReadFileAttributes(name);
    return attributes && (*attributes & FILE_ATTRIBUTE_DIRECTORY) == 0 && !IsDeviceName(name);
}

bool QueryIsDirectory(std::u16string_view name)
{
    const auto attributes = ReadFileAttributes(name);
    return attributes && (*attributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
}

bool IsReservedName(std::u16string_view name)
{
    return MayMeanDevice(name) && FullPathName(name).view().starts_with(u"\\\\.\\");
}

CString FullPathName(std::u16string_view name)
{
    const CString given(name);
    if (name.starts_with(u"\\\\?\\"))
        return given; // the system would take periods off its end
    CString full = ReadPath(
        [&](DWORD room, wchar_t* units) { return GetFullPathNameW(given.w(), room, units, nullptr); });
    return full.empty() ? given : full;
}

CString LongPathName(std::u16string_view name)
{
    const CString given = SystemPath(name);
    CString full =
        ReadPath([&](DWORD room, wchar_t* units) { return GetLongPathNameW(given.w(), units, room); });
    return full.empty() ? CString(name) : WithoutPrefix(std::move(full));
}

CString ShortPathName(std::u16string_view name)
{
    const CString given = SystemPath(name);
    CString full =
        ReadPath([&](DWORD room, wchar_t* units) { return GetShortPathNameW(given.w(), units, room); });
    return full.empty() ? CString(name) : WithoutPrefix(std::move(full));
}

CString RealPathName(std::u16string_view name)
{
    const OwnedHandle file(CreateFileW(SystemPath(name).w(), 0,
                                       FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr,
                                       OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS, nullptr));
    return file ? PathOfHandle(file.Get()) : CString();
}

CString PathOfHandle(HANDLE file)
{
    return WithoutPrefix(ReadPath([&](DWORD room, wchar_t* units) {
        return GetFinalPathNameByHandleW(file, units, room, FILE_NAME_NORMALIZED);
    }));
}

CString SystemPath(std::u16string_view name)
{
    const bool absolute = IsAbsolutePath(name);
    if (absolute && HasOddDirectory(name))
        return LiteralPath(name);
    const bool prefixed = name.starts_with(u"\\\\?\\") || name.starts_with(u"\\\\.\\");
    if (prefixed || (absolute && name.size() < classicLimit))
        return CString(name);
    const CString full = FullPathName(name);
    return full.size() < classicLimit ? CString(name) : LiteralPath(full);
}

CString CurrentDirectory()
{
    return ReadPath([](DWORD room, wchar_t* units) { return GetCurrentDirectoryW(room, units); });
}
