#include "platform/whole_file.h"

#include <algorithm>

#include "platform/byte_files.h"

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

bool ReadFileToReplace(const CString& name, std::string& bytes, std::size_t most)
{
    if (!ReadWholeFile(name, bytes, most + 1))
        return false;
    if (bytes.size() > most)
        SetLastError(ERROR_FILE_TOO_LARGE);
    return bytes.size() <= most;
}

bool ReplaceWholeFile(const CString& name, std::string_view bytes)
{
    ReplacedFile file;
    return file.Create(name) && file.Write(bytes) && file.Commit();
}

bool CreateNewFile(const CString& name)
{
    return static_cast<bool>(
        OwnedHandle(CreateFileW(name.w(), GENERIC_WRITE, 0, nullptr, CREATE_NEW, 0, nullptr)));
}
