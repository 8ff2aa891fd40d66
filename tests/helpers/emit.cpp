// emit OUT ERR [CODE] writes OUT and ERR as lines to standard output and standard error and exits with CODE,
// which may have all 32 bits. An empty text writes nothing. emit /x HEX writes the bytes given in hexadecimal
// to standard output.
#include "helper_io.h"

#include <cwchar>

namespace {

std::string InOemCodePage(std::wstring_view text)
{
    const int units = static_cast<int>(text.size());
    std::string bytes(text.size() * 2, '\0');
    const int count = WideCharToMultiByte(CP_OEMCP, 0, text.data(), units, bytes.data(),
                                          static_cast<int>(bytes.size()), nullptr, nullptr);
    bytes.resize(static_cast<std::size_t>(count));
    return bytes;
}

void EmitLine(DWORD stream, std::wstring_view text)
{
    if (!text.empty())
        WriteBytes(stream, InOemCodePage(text) + "\r\n");
}

std::string FromHex(std::wstring_view digits)
{
    std::string bytes;
    for (; digits.size() >= 2; digits.remove_prefix(2))
        bytes += static_cast<char>(std::wcstoul(std::wstring(digits.substr(0, 2)).c_str(), nullptr, 16));
    return bytes;
}

} // namespace

int wmain(int count, wchar_t** values)
{
    if (count == 3 && std::wstring_view(values[1]) == L"/x")
        return WriteBytes(STD_OUTPUT_HANDLE, FromHex(values[2])) ? 0 : 1;
    if (count > 1)
        EmitLine(STD_OUTPUT_HANDLE, values[1]);
    if (count > 2)
        EmitLine(STD_ERROR_HANDLE, values[2]);
    return count > 3 ? static_cast<int>(std::wcstoul(values[3], nullptr, 0)) : 0;
}
