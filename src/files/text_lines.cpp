#include "files/text_lines.h"

#include <windows.h>

// Drops what was handed out and reads on; false at the end of the file.
bool TextLines::Refill()
{
    text.Erase(0, at);
    at = 0;
    CString piece;
    if (!atEnd && !reader.Read(piece))
        failure = GetLastError();
    if (atEnd || piece.empty()) {
        atEnd = true;
        return false;
    }
    if (text.empty())
        text = std::move(piece);
    else
        text.Append(piece);
    return true;
}

bool TextLines::Next(std::u16string_view& line)
{
    std::size_t end = text.Find(u'\n', at);
    while (end == CString::npos) {
        const std::size_t searched = text.size() - at;
        if (!Refill())
            break;
        end = text.Find(u'\n', searched);
    }
    if (end == CString::npos && at >= text.size())
        return false;
    const std::size_t stop = end == CString::npos ? text.size() : end;
    line = text.view().substr(at, stop - at);
    at = end == CString::npos ? text.size() : end + 1;
    if (!line.empty() && line.back() == u'\r')
        line.remove_suffix(1);
    return true;
}
