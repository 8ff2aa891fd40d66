#include "core/clipboards.h"

#include <array>

#include <windows.h>

#include "engine/state.h"
#include "platform/clipboard.h"

struct OwnClipboards {
    std::array<CString, clipboardCount> texts; // the first stays empty
};

bool ReadClipboard(int number, CString& text)
{
    if (number == 0)
        return ReadClipboardText(text);
    if (!aRooms.clipboards || aRooms.clipboards->texts[static_cast<std::size_t>(number)].empty()) {
        SetLastError(ERROR_NOT_FOUND);
        return false;
    }
    text = aRooms.clipboards->texts[static_cast<std::size_t>(number)];
    return true;
}

bool WriteClipboard(int number, std::u16string_view text)
{
    if (number == 0)
        return WriteClipboardText(text);
    if (!aRooms.clipboards)
        aRooms.clipboards = std::make_shared<OwnClipboards>();
    aRooms.clipboards->texts[static_cast<std::size_t>(number)] = text;
    return true;
}
