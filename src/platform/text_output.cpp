#include "platform/text_output.h"

#include <algorithm>
#include <array>
#include <string>

#include "platform/codepage.h"
#include "text/encoding.h"

namespace {

bool WriteAscii(HANDLE file, std::u16string_view text)
{
    std::array<char, 4096> buffer;
    while (!text.empty()) {
        const std::size_t count = std::min(text.size(), buffer.size());
        std::transform(text.begin(), text.begin() + static_cast<std::ptrdiff_t>(count), buffer.begin(),
                       [](char16_t unit) { return static_cast<char>(unit); });
        if (!WriteBytes(file, {buffer.data(), count}))
            return false;
        text.remove_prefix(count);
    }
    return true;
}

} // namespace

bool WriteBytes(HANDLE file, std::string_view bytes)
{
    while (!bytes.empty()) {
        DWORD written = 0;
        const DWORD count = static_cast<DWORD>(std::min<std::size_t>(bytes.size(), 1u << 20));
        if (!WriteFile(file, bytes.data(), count, &written, nullptr))
            return false;
        if (written == 0) {
            SetLastError(ERROR_DISK_FULL);
            return false;
        }
        bytes.remove_prefix(written);
    }
    return true;
}

bool WriteTextToFile(HANDLE file, std::u16string_view text, OutputEncoding encoding)
{
    if (encoding == OutputEncoding::Utf16)
        return WriteBytes(file, {reinterpret_cast<const char*>(text.data()), text.size() * sizeof(char16_t)});
    if (IsAscii(text))
        return WriteAscii(file, text);
    const bool utf8 = encoding == OutputEncoding::Utf8;
    return WriteBytes(file, utf8 ? ToUtf8(text) : ToCodePage(text, OutputCodePage()));
}

bool WriteTextToConsole(HANDLE console, std::u16string_view text)
{
    // The console refuses very long writes.
    constexpr std::size_t longestWrite = 8192;
    while (!text.empty()) {
        DWORD written = 0;
        const DWORD count = static_cast<DWORD>(std::min(text.size(), longestWrite));
        if (!WriteConsoleW(console, text.data(), count, &written, nullptr))
            return false;
        text.remove_prefix(std::max<std::size_t>(written, 1));
    }
    return true;
}
