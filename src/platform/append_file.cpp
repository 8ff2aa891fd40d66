#include "platform/append_file.h"

#include "platform/file_facts.h"
#include "platform/text_output.h"

namespace {

// Holds the byte until the end of the scope. Where locks are not known, writing goes on without.
class ByteLock {
public:
    explicit ByteLock(HANDLE lockedFile) : file(lockedFile)
    {
        place.Offset = 0;
        place.OffsetHigh = 0x7FFFFFFF;
        held = LockFileEx(file, LOCKFILE_EXCLUSIVE_LOCK, 0, 1, 0, &place);
    }
    ByteLock(const ByteLock&) = delete;
    ByteLock& operator=(const ByteLock&) = delete;
    ~ByteLock()
    {
        const DWORD code = GetLastError();
        if (held)
            UnlockFileEx(file, 0, 1, 0, &place);
        SetLastError(code);
    }

private:
    HANDLE file;
    OVERLAPPED place = {};
    BOOL held = FALSE;
};

} // namespace

bool AppendFile::Open(const CString& name)
{
    // Locking asks for the right to read or write.
    file = OwnedHandle(CreateFileW(SystemPath(name).w(), FILE_APPEND_DATA | FILE_READ_DATA,
                                   FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr,
                                   OPEN_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr));
    return IsOpen();
}

bool AppendFile::Append(std::string_view record)
{
    const ByteLock lock(file.Get());
    return WriteBytes(file.Get(), record);
}
