#include "platform/streams.h"

#include <algorithm>
#include <vector>

#include <windows.h>

#include "platform/file_details.h"
#include "platform/file_facts.h"
#include "platform/handle.h"
#include "text/compare.h"
#include "text/format.h"
#include "text/path_names.h"

namespace {

constexpr DWORD blockSize = 1 << 18;

class Block {
public:
    Block() : bytes(blockSize) {}

    // False when it could not be read; a short block is the end.
    bool Read(HANDLE file)
    {
        length = 0;
        return ReadFile(file, bytes.data(), blockSize, &length, nullptr) ||
               GetLastError() == ERROR_HANDLE_EOF;
    }
    bool Write(HANDLE file) const
    {
        DWORD written = 0;
        return WriteFile(file, bytes.data(), length, &written, nullptr) && written == length;
    }
    bool Empty() const { return length == 0; }
    friend bool operator==(const Block& a, const Block& b)
    {
        return a.length == b.length &&
               std::equal(a.bytes.begin(), a.bytes.begin() + a.length, b.bytes.begin());
    }

private:
    std::vector<char> bytes;
    DWORD length = 0;
};

unsigned CopyBytes(HANDLE from, HANDLE to, void (*poll)())
{
    Block block;
    for (;;) {
        if (poll)
            poll();
        if (!block.Read(from))
            return GetLastError();
        if (block.Empty())
            return SetEndOfFile(to) ? 0u : unsigned{GetLastError()};
        if (!block.Write(to))
            return GetLastError();
    }
}

unsigned Compare(HANDLE from, HANDLE to, void (*poll)())
{
    if (!FlushFileBuffers(to) || !SetFilePointerEx(from, {}, nullptr, FILE_BEGIN) ||
        !SetFilePointerEx(to, {}, nullptr, FILE_BEGIN))
        return GetLastError();
    Block source;
    Block copy;
    do {
        if (poll)
            poll();
        if (!source.Read(from) || !copy.Read(to))
            return GetLastError();
        if (!(source == copy))
            return ERROR_CRC;
    } while (!source.Empty());
    return 0;
}

// Takes a target away that was made here, unless it is kept.
class Made {
public:
    explicit Made(CString which) : name(std::move(which)) {}
    Made(const Made&) = delete;
    Made& operator=(const Made&) = delete;
    ~Made()
    {
        file.Reset();
        if (unfinished)
            DeleteFileW(name.w());
    }
    void Keep() { unfinished = false; }

    OwnedHandle file;

private:
    CString name;
    bool unfinished = true;
};

// `name` is that of a stream with its file, `stream` the new one without. 0 or a Windows error number.
unsigned RenameStream(const CString& name, std::u16string_view stream)
{
    constexpr DWORD anybody = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;
    const OwnedHandle file(
        CreateFileW(name.w(), DELETE | SYNCHRONIZE, anybody, nullptr, OPEN_EXISTING, 0, nullptr));
    if (!file)
        return GetLastError();
    const CString target = Format(u":%s", stream);
    const std::size_t bytes = target.size() * sizeof(char16_t);
    std::vector<char> memory(sizeof(FILE_RENAME_INFO) + bytes);
    auto* request = reinterpret_cast<FILE_RENAME_INFO*>(memory.data());
    request->FileNameLength = static_cast<DWORD>(bytes);
    std::copy_n(reinterpret_cast<const char*>(target.view().data()), bytes,
                reinterpret_cast<char*>(request->FileName));
    return SetFileInformationByHandle(file.Get(), FileRenameInfo, request, static_cast<DWORD>(memory.size()))
               ? 0u
               : unsigned{GetLastError()};
}

// For file systems that cannot rename streams, as those of some servers.
unsigned WriteOver(const CString& name, const CString& fresh, void (*poll)())
{
    const OwnedHandle from(CreateFileW(fresh.w(), GENERIC_READ, 0, nullptr, OPEN_EXISTING, 0, nullptr));
    const OwnedHandle to(CreateFileW(name.w(), GENERIC_WRITE, 0, nullptr, OPEN_EXISTING, 0, nullptr));
    if (!from || !to)
        return GetLastError();
    return CopyBytes(from.Get(), to.Get(), poll);
}

bool CannotRename(unsigned failed)
{
    return failed == ERROR_INVALID_PARAMETER || failed == ERROR_NOT_SUPPORTED ||
           failed == ERROR_INVALID_FUNCTION || failed == ERROR_INVALID_NAME;
}

// The new stream stands beside the old one, both whole, until it has its name. Streams cannot be renamed onto
// one that holds anything.
unsigned ReplaceStream(const CString& name, const CString& fresh, void (*poll)())
{
    const std::size_t start = StreamColon(name) + 1;
    const CString stream = name.Substr(start);
    const CString old = Format(u"~mova-old-%x", GetCurrentProcessId());
    if (const unsigned failed = RenameStream(name, old)) {
        if (!CannotRename(failed))
            return failed;
        const unsigned refused = WriteOver(name, fresh, poll);
        if (!refused)
            DeleteFileW(fresh.w());
        return refused;
    }
    const CString kept = name.Substr(0, start) + old;
    if (const unsigned failed = RenameStream(fresh, stream)) {
        RenameStream(kept, stream);
        return failed;
    }
    DeleteFileW(kept.w());
    return 0;
}

// A file that has other streams keeps them, or stays as it is.
unsigned ReplaceData(const CString& name, const CString& fresh)
{
    const bool replaced =
        ReplaceFileW(name.w(), fresh.w(), nullptr, 0, nullptr, nullptr) ||
        (NamedStreams(name).empty() &&
         MoveFileExW(fresh.w(), name.w(), MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH));
    return replaced ? 0u : unsigned{GetLastError()};
}

} // namespace

unsigned CopyStream(std::u16string_view from, std::u16string_view to, const StreamCopy& how,
                    bool* sourceOpened)
{
    const OwnedHandle source(CreateFileW(SystemPath(from).w(), GENERIC_READ,
                                         FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr,
                                         OPEN_EXISTING, FILE_FLAG_SEQUENTIAL_SCAN, nullptr));
    const unsigned unreadable = source ? 0u : unsigned{GetLastError()};
    if (sourceOpened)
        *sourceOpened = unreadable == 0;
    if (unreadable)
        return unreadable;
    CString name = SystemPath(to);
    const std::size_t colon = StreamColon(name);
    const bool isStream = colon != CString::npos && colon + 1 < name.size() && name[colon + 1] != u':';
    if (!isStream)
        name = name.Substr(0, colon); // "file::$DATA"
    const bool replaces = ReadFileAttributes(name).has_value();
    if (replaces && !how.replace)
        return ERROR_FILE_EXISTS;
    CString written = name;
    if (replaces)
        written = isStream ? Format(u"%s~mova-%x", name.view().substr(0, colon + 1), GetCurrentProcessId())
                           : Format(u"%s.%x.tmp", name, GetCurrentProcessId());
    Made target(written);
    target.file = OwnedHandle(CreateFileW(written.w(), GENERIC_READ | GENERIC_WRITE, 0, nullptr, CREATE_NEW,
                                          FILE_ATTRIBUTE_NORMAL, nullptr));
    if (!target.file) {
        const unsigned failed = GetLastError();
        target.Keep(); // somebody else's
        return failed;
    }
    unsigned failed = CopyBytes(source.Get(), target.file.Get(), how.poll);
    if (!failed && how.verify)
        failed = Compare(source.Get(), target.file.Get(), how.poll);
    if (!failed && replaces) {
        target.file.Reset();
        failed = !isStream ? ReplaceData(name, written) : ReplaceStream(name, written, how.poll);
    }
    if (!failed)
        target.Keep();
    return failed;
}
