#include "files/descriptions.h"

#include <cstring>
#include <string>

#include <windows.h>

#include "engine/inifile.h"
#include "files/text_encoding.h"
#include "platform/codepage.h"
#include "platform/file_facts.h"
#include "platform/handle.h"
#include "platform/text_output.h"
#include "platform/whole_file.h"
#include "text/format.h"
#include "text/path_names.h"

namespace {

constexpr std::size_t largestFile = 16u << 20; // bytes; what lies behind is not read
constexpr std::string_view utf8Mark = "\xEF\xBB\xBF";
constexpr std::string_view utf16Mark = "\xFF\xFE";

CString Decode(std::string_view bytes, const RecognisedEncoding& found)
{
    bytes.remove_prefix(found.markLength);
    if (found.encoding == TextEncoding::Utf8)
        return FromUtf8(bytes);
    if (found.encoding == TextEncoding::CodePage)
        return FromCodePage(bytes, GetOEMCP());
    CString text;
    std::memcpy(text.Edit(bytes.size() / 2), bytes.data(), bytes.size() & ~std::size_t{1});
    text.SetLength(bytes.size() / 2);
    return text;
}

std::string Encode(const CString& text, const RecognisedEncoding& wanted)
{
    const bool marked = wanted.markLength > 0;
    if (wanted.encoding == TextEncoding::Utf16) {
        std::string bytes(marked ? utf16Mark : "");
        return bytes.append(reinterpret_cast<const char*>(text.c_str()), text.size() * sizeof(char16_t));
    }
    if (wanted.encoding == TextEncoding::CodePage) {
        const unsigned page = GetOEMCP();
        std::string bytes = ToCodePage(text, page);
        if (FromCodePage(bytes, page) == text)
            return bytes;
        return std::string(utf8Mark) + ToUtf8(text);
    }
    return std::string(marked ? utf8Mark : "") + ToUtf8(text);
}

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
    return DescriptionList(Decode(bytes, RecogniseTextFile(bytes)));
}

bool WriteDescriptions(std::u16string_view directory, const DescriptionList& list)
{
    const CString path = SystemPath(JoinPath(directory, DescriptionFileName()));
    if (list.Empty())
        return DeleteFileW(path.w()) || GetLastError() == ERROR_FILE_NOT_FOUND;
    const CString fresh = Format(u"%s.%x", path, GetCurrentProcessId());
    const bool written = WriteNewFile(fresh, Encode(list.Text(), PresentEncoding(path))) &&
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
