#include "platform/codepage.h"

#include <atomic>

#include <windows.h>

#include "text/encoding.h"

namespace {

// In force where there is no console to keep it; 0 until one is chosen.
std::atomic<unsigned> ownCodePage{0};

unsigned WithoutConsole()
{
    const unsigned chosen = ownCodePage;
    return chosen ? chosen : GetOEMCP();
}

} // namespace

unsigned OutputCodePage()
{
    const unsigned page = GetConsoleOutputCP();
    return page ? page : WithoutConsole();
}

unsigned InputCodePage()
{
    const unsigned page = GetConsoleCP();
    return page ? page : WithoutConsole();
}

bool SetCodePage(unsigned codePage)
{
    if (!IsValidCodePage(codePage)) {
        SetLastError(ERROR_INVALID_PARAMETER);
        return false;
    }
    if (GetConsoleCP() != 0)
        return SetConsoleCP(codePage) && SetConsoleOutputCP(codePage);
    ownCodePage = codePage;
    return true;
}

std::string ToCodePage(std::u16string_view text, unsigned codePage)
{
    if (codePage == CP_UTF8)
        return ToUtf8(text);
    const wchar_t* wide = reinterpret_cast<const wchar_t*>(text.data());
    const int units = static_cast<int>(text.size());
    const int bytes = WideCharToMultiByte(codePage, 0, wide, units, nullptr, 0, nullptr, nullptr);
    std::string result(static_cast<std::size_t>(bytes), '\0');
    WideCharToMultiByte(codePage, 0, wide, units, result.data(), bytes, nullptr, nullptr);
    return result;
}

CString FromCodePage(std::string_view bytes, unsigned codePage)
{
    if (codePage == CP_UTF8)
        return FromUtf8(bytes);
    const int count = static_cast<int>(bytes.size());
    const int units = MultiByteToWideChar(codePage, 0, bytes.data(), count, nullptr, 0);
    CString text;
    char16_t* target = text.Edit(static_cast<std::size_t>(units));
    MultiByteToWideChar(codePage, 0, bytes.data(), count, reinterpret_cast<wchar_t*>(target), units);
    text.SetLength(static_cast<std::size_t>(units));
    return text;
}
