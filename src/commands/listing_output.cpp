#include "commands/listing_output.h"

#include <windows.h>

#include "engine/output.h"

void ListingOutput::Line(std::u16string_view text)
{
    if (pauses) {
        Note(refused || pager.Line(text));
        return;
    }
    waiting.text.Append(text).Append(u"\r\n");
    FlushWhenFull();
}

void ListingOutput::Line(const PaintedText& text)
{
    if (pauses) {
        Note(refused || pager.Line(text));
        return;
    }
    waiting.Append(text).Append(u"\r\n");
    FlushWhenFull();
}

void ListingOutput::FlushWhenFull()
{
    constexpr std::size_t block = 16384; // units written at once
    if (waiting.text.size() >= block)
        Flush();
}

bool ListingOutput::Flush()
{
    if (!waiting.text.empty() && !refused)
        Note(Print(waiting));
    waiting.Clear();
    if (refused)
        SetLastError(reason);
    return !refused;
}

void ListingOutput::Note(bool written)
{
    if (written || refused)
        return;
    refused = true;
    reason = GetLastError();
}
