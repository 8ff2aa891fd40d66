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
#include "text/format.h"
#include "text/path_names.h"

namespace {

constexpr std::size_t largestFile = 16u << 20; // bytes; what lies behind is not read

// How the file is encoded now; a new one is in the code page as long as that will do.
RecognisedEncoding PresentEncoding(const CString& path)
{
    std::string bytes;
    return ReadWholeFile(path, bytes, largestFile) ? RecogniseTextFile(bytes) : RecognisedEncoding();
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
    if (!ReadFileAttributes(path) || !ReadWholeFile(path, bytes, largestFile))
        return {};
    return DescriptionList(DecodeWhole(bytes, RecogniseTextFile(bytes), GetOEMCP()));
}

bool WriteDescriptions(std::u16string_view directory, const DescriptionList& list)
{
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

bool SetDescription(std::u16string_view directory, std::u16string_view name, std::u16string_view description)
{
    DescriptionList list = ReadDescriptions(directory);
    list.Set(name, description.substr(0, aIniFile.DescriptionMax));
    return WriteDescriptions(directory, list);
}
