#include "files/descriptions.h"

#include <string>

#include <windows.h>

#include "engine/inifile.h"
#include "files/text_encoding.h"
#include "files/whole_text.h"
#include "platform/file_facts.h"
#include "platform/handle.h"
#include "platform/text_output.h"
#include "platform/whole_file.h"
#include "text/encoding.h"
#include "text/format.h"
#include "text/path_names.h"

namespace {

constexpr std::size_t largestFile = 16u << 20; // bytes; a longer one is left alone

// How the file is encoded now; a new one is in the code page as long as that will do.
RecognisedEncoding PresentEncoding(const CString& path)
{
    std::string bytes;
    return ReadWholeFile(path, bytes, largestFile) ? RecogniseTextFile(bytes) : RecognisedEncoding();
}

CString StreamOf(std::u16string_view directory, std::u16string_view name)
{
    return SystemPath(JoinPath(directory, name)) + u":Comment";
}

bool DescribeInStream(const CString& stream, std::u16string_view description)
{
    if (description.empty())
        return DeleteFileW(stream.w()) || GetLastError() == ERROR_FILE_NOT_FOUND;
    const OwnedHandle file(
        CreateFileW(stream.w(), GENERIC_WRITE, 0, nullptr, OPEN_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr));
    if (!file)
        return false;
    // The file itself has not changed: these times ask the system to leave its own alone.
    constexpr FILETIME asItIs = {0xFFFFFFFF, 0xFFFFFFFF};
    SetFileTime(file.Get(), nullptr, &asItIs, &asItIs);
    return WriteBytes(file.Get(), ToUtf8(description)) && SetEndOfFile(file.Get());
}

bool WriteNewFile(const CString& path, const std::string& bytes)
{
    const OwnedHandle file(
        CreateFileW(path.w(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, FILE_ATTRIBUTE_HIDDEN, nullptr));
    return file && WriteBytes(file.Get(), bytes);
}

} // namespace

CString DescriptionFileName()
{
    return aIniFile.DescriptionName ? CString(aIniFile.DescriptionName) : CString(u"DESCRIPT.ION");
}

DescriptionList ReadDescriptions(std::u16string_view directory)
{
    std::string bytes;
    const CString path = SystemPath(JoinPath(directory, DescriptionFileName()));
    if (!ReadFileAttributes(path))
        return {};
    if (!ReadFileToReplace(path, bytes, largestFile)) {
        DescriptionList unread;
        unread.failure = GetLastError();
        return unread;
    }
    return DescriptionList(DecodeWhole(bytes, RecogniseTextFile(bytes), GetOEMCP()));
}

bool WriteDescriptions(std::u16string_view directory, const DescriptionList& list)
{
    if (list.failure != 0) {
        // It holds the new ones alone: all that the file holds would be lost.
        SetLastError(list.failure);
        return false;
    }
    const CString path = SystemPath(JoinPath(directory, DescriptionFileName()));
    if (list.Empty())
        return DeleteFileW(path.w()) || GetLastError() == ERROR_FILE_NOT_FOUND;
    const CString fresh = Format(u"%s.%x", path, GetCurrentProcessId());
    const bool written = WriteNewFile(fresh, EncodeWhole(list.Text(), PresentEncoding(path), GetOEMCP())) &&
                         MoveFileExW(fresh.w(), path.w(), MOVEFILE_REPLACE_EXISTING);
    if (!written) {
        const DWORD reason = GetLastError();
        DeleteFileW(fresh.w());
        SetLastError(reason);
    }
    return written;
}

DirectoryDescriptions::DirectoryDescriptions(std::u16string_view of)
    : directory(of), inStreams(aIniFile.NTFSDescriptions != 0)
{
    if (!inStreams)
        list = ReadDescriptions(directory);
}

CString DirectoryDescriptions::Of(std::u16string_view name) const
{
    if (!inStreams)
        return list.Find(name);
    std::string bytes;
    constexpr std::size_t longest = 4096; // bytes
    return ReadWholeFile(StreamOf(directory, name), bytes, longest) ? FromUtf8(bytes) : CString();
}

bool SetDescription(std::u16string_view directory, std::u16string_view name, std::u16string_view description)
{
    // Opening a stream would make the file.
    if (aIniFile.NTFSDescriptions && !ReadFileAttributes(SystemPath(JoinPath(directory, name))))
        return false;
    if (aIniFile.NTFSDescriptions)
        return DescribeInStream(StreamOf(directory, name), description.substr(0, aIniFile.DescriptionMax));
    DescriptionList list = ReadDescriptions(directory);
    list.Set(name, description.substr(0, aIniFile.DescriptionMax));
    return WriteDescriptions(directory, list);
}
