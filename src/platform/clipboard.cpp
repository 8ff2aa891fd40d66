#include "platform/clipboard.h"

#include <cstring>

#include <windows.h>

#include "platform/lazy_library.h"

namespace {

LazyFunction<decltype(OpenClipboard)> openClipboard(libraries::user32, "OpenClipboard");
LazyFunction<decltype(CloseClipboard)> closeClipboard(libraries::user32, "CloseClipboard");
LazyFunction<decltype(EmptyClipboard)> emptyClipboard(libraries::user32, "EmptyClipboard");
LazyFunction<decltype(GetClipboardData)> getClipboardData(libraries::user32, "GetClipboardData");
LazyFunction<decltype(SetClipboardData)> setClipboardData(libraries::user32, "SetClipboardData");

class OpenedClipboard {
public:
    OpenedClipboard()
    {
        for (int tries = 0; !opened && tries < 20; ++tries) {
            opened = openClipboard(nullptr) != 0;
            if (!opened)
                Sleep(50);
        }
    }
    OpenedClipboard(const OpenedClipboard&) = delete;
    OpenedClipboard& operator=(const OpenedClipboard&) = delete;
    ~OpenedClipboard()
    {
        if (opened)
            closeClipboard();
    }
    explicit operator bool() const { return opened; }

private:
    bool opened = false;
};

} // namespace

bool ReadClipboardText(CString& text)
{
    const OpenedClipboard clipboard;
    if (!clipboard)
        return false;
    const HANDLE data = getClipboardData(CF_UNICODETEXT);
    const auto* units = static_cast<const char16_t*>(data ? GlobalLock(data) : nullptr);
    if (!units) {
        SetLastError(ERROR_NOT_FOUND);
        return false;
    }
    const std::u16string_view whole(units, GlobalSize(data) / sizeof(char16_t));
    text = whole.substr(0, whole.find(u'\0'));
    GlobalUnlock(data);
    return true;
}

bool WriteClipboardText(std::u16string_view text)
{
    const OpenedClipboard clipboard;
    if (!clipboard || !emptyClipboard())
        return false;
    const HGLOBAL memory = GlobalAlloc(GMEM_MOVEABLE, (text.size() + 1) * sizeof(char16_t));
    auto* units = static_cast<char16_t*>(memory ? GlobalLock(memory) : nullptr);
    if (!units)
        return false;
    std::memcpy(units, text.data(), text.size() * sizeof(char16_t));
    units[text.size()] = u'\0';
    GlobalUnlock(memory);
    // From here on the memory is the clipboard's.
    return setClipboardData(CF_UNICODETEXT, memory) != nullptr || (GlobalFree(memory), false);
}
