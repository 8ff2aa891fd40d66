#include "platform/streams.h"

#include <algorithm>
#include <vector>

#include <windows.h>

#include "platform/file_facts.h"
#include "platform/handle.h"

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
    Made(CString which, bool isNew) : name(std::move(which)), unfinished(isNew) {}
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
    bool unfinished;
};

} // namespace

unsigned CopyStream(std::u16string_view from, std::u16string_view to, const StreamCopy& how)
{
    const OwnedHandle source(CreateFileW(SystemPath(from).w(), GENERIC_READ,
                                         FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr,
                                         OPEN_EXISTING, FILE_FLAG_SEQUENTIAL_SCAN, nullptr));
    if (!source)
        return GetLastError();
    const CString name = SystemPath(to);
    Made target(name, !ReadFileAttributes(name));
    target.file =
        OwnedHandle(CreateFileW(name.w(), GENERIC_READ | GENERIC_WRITE, 0, nullptr,
                                how.replace ? OPEN_ALWAYS : CREATE_NEW, FILE_ATTRIBUTE_NORMAL, nullptr));
    if (!target.file) {
        const unsigned failed = GetLastError();
        target.Keep(); // somebody else's
        return failed;
    }
    unsigned failed = CopyBytes(source.Get(), target.file.Get(), how.poll);
    if (!failed && how.verify)
        failed = Compare(source.Get(), target.file.Get(), how.poll);
    if (!failed)
        target.Keep();
    return failed;
}
