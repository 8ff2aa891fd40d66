// Input and output of the helper programs: whole standard streams as bytes, so that no run-time library
// translates line ends or code pages behind the back of a script that tests exactly that.
#pragma once

#include <windows.h>

#include <cstdio>
#include <string>
#include <string_view>
#include <vector>

// Writes all bytes to a standard stream; false when the other end has gone.
inline bool WriteBytes(DWORD stream, std::string_view bytes)
{
    const HANDLE out = GetStdHandle(stream);
    while (!bytes.empty()) {
        DWORD written = 0;
        if (!WriteFile(out, bytes.data(), static_cast<DWORD>(bytes.size()), &written, nullptr))
            return false;
        bytes.remove_prefix(written);
    }
    return true;
}

// Writes text in ASCII; every other unit is shown as <U+XXXX>, whatever the code page.
inline bool WriteText(DWORD stream, std::wstring_view text)
{
    std::string bytes;
    for (const wchar_t unit : text) {
        if (unit < 0x80) {
            bytes += static_cast<char>(unit);
            continue;
        }
        char shown[16];
        std::snprintf(shown, sizeof shown, "<U+%04X>", static_cast<unsigned>(unit));
        bytes += shown;
    }
    return WriteBytes(stream, bytes);
}

// All of standard input.
inline std::string ReadInput()
{
    const HANDLE in = GetStdHandle(STD_INPUT_HANDLE);
    std::string all;
    char block[65536];
    DWORD bytes = 0;
    while (ReadFile(in, block, sizeof block, &bytes, nullptr) && bytes != 0)
        all.append(block, bytes);
    return all;
}

// Lines without their ends, which may be CRLF or LF.
inline std::vector<std::string> SplitLines(std::string_view text)
{
    std::vector<std::string> lines;
    while (!text.empty()) {
        const std::size_t end = text.find('\n');
        std::string_view line = text.substr(0, end);
        text.remove_prefix(end == std::string_view::npos ? text.size() : end + 1);
        if (!line.empty() && line.back() == '\r')
            line.remove_suffix(1);
        lines.emplace_back(line);
    }
    return lines;
}
