#include "engine/painted_text.h"

#include "engine/output.h"
#include "platform/console.h"

PaintedText& PaintedText::Append(std::u16string_view more, std::optional<unsigned> attributes)
{
    if (attributes)
        spans.push_back({text.size(), more.size(), *attributes});
    text.Append(more);
    return *this;
}

PaintedText& PaintedText::Append(const PaintedText& more)
{
    for (const Span& span : more.spans)
        spans.push_back({text.size() + span.start, span.length, span.attributes});
    text.Append(more.text);
    return *this;
}

void PaintedText::Clear()
{
    text.SetLength(0);
    spans.clear();
}

bool Print(const PaintedText& painted)
{
    if (painted.spans.empty() || !IsConsole(1))
        return Print(painted.text.view());
    const std::u16string_view text = painted.text;
    std::size_t at = 0;
    for (const PaintedText::Span& span : painted.spans) {
        if (span.start > at && !Print(text.substr(at, span.start - at)))
            return false;
        const PassingColors colors(span.attributes);
        if (!Print(text.substr(span.start, span.length)))
            return false;
        at = span.start + span.length;
    }
    return at >= text.size() || Print(text.substr(at));
}
