#include "commands/reference_text.h"

#include <algorithm>

#include "commands/help_text.h"
#include "text/compare.h"

namespace {

using std::size_t;
using std::u16string_view;
constexpr size_t npos = u16string_view::npos;

constexpr u16string_view sectionMark = u"## ";
constexpr u16string_view fence = u"~~~";

u16string_view Trimmed(u16string_view text)
{
    const size_t first = text.find_first_not_of(u" \r");
    return first == npos ? u16string_view() : text.substr(first, text.find_last_not_of(u" \r") + 1 - first);
}

// Takes the first line, without its end, off the text.
u16string_view TakeLine(u16string_view& text)
{
    const size_t end = std::min(text.find(u'\n'), text.size());
    u16string_view line = text.substr(0, end);
    text.remove_prefix(std::min(end + 1, text.size()));
    if (line.ends_with(u'\r'))
        line.remove_suffix(1);
    return line;
}

bool HeadingNames(u16string_view heading, u16string_view name)
{
    while (!heading.empty()) {
        const size_t comma = std::min(heading.find(u','), heading.size());
        if (EqualNoCase(Trimmed(heading.substr(0, comma)), name))
            return true;
        heading.remove_prefix(std::min(comma + 1, heading.size()));
    }
    return false;
}

// What the page marks as code stands in back-quotes, which mean something else to the reader of a console.
void AppendWithoutMarks(CString& text, u16string_view line)
{
    for (const char16_t unit : line)
        if (unit != u'`')
            text += unit;
}

// An output that differs between machines is a pattern in double braces on the page.
void AppendOutput(CString& text, u16string_view line)
{
    while (!line.empty()) {
        const size_t open = line.find(u"{{");
        const size_t close = open == npos ? npos : line.find(u"}}", open);
        if (close == npos)
            break;
        text.Append(line.substr(0, open)).Append(u"...");
        line.remove_prefix(close + 2);
    }
    text.Append(line);
}

// The parts of a section, each made of lines ended by '\n'.
class Layout {
public:
    explicit Layout(u16string_view section)
    {
        while (!section.empty())
            Take(TakeLine(section), section);
        EndParagraph();
    }

    CString usage;
    CString details;
    CString examples;

private:
    void Take(u16string_view line, u16string_view& rest)
    {
        if (line.starts_with(fence)) {
            EndParagraph();
            TakeBlock(line.substr(fence.size()), rest);
        } else if (Trimmed(line).empty()) {
            EndParagraph();
        } else {
            // An item of a list begins a line of its own.
            if (line.starts_with(u"- "))
                EndParagraph();
            if (!paragraph.empty())
                paragraph += u' ';
            paragraph.Append(Trimmed(line));
        }
    }

    void TakeBlock(u16string_view kind, u16string_view& rest)
    {
        constexpr u16string_view file = u"file ";
        if (kind.starts_with(file))
            examples.Append(Trimmed(kind.substr(file.size()))).Append(u":\n");
        while (!rest.empty()) {
            const u16string_view line = TakeLine(rest);
            if (line == fence)
                break;
            AppendOutput(examples, line);
            examples += u'\n';
        }
    }

    void EndParagraph()
    {
        if (paragraph.empty())
            return;
        const u16string_view text = paragraph;
        const bool isSignature = details.empty() && text.starts_with(u'`') && text.ends_with(u'`');
        CString& part = isSignature ? usage : details;
        AppendWithoutMarks(part, text);
        part += u'\n';
        paragraph.Clear();
    }

    CString paragraph;
};

} // namespace

u16string_view ReferenceSection(u16string_view page, u16string_view name)
{
    size_t start = npos;
    bool isInBlock = false;
    for (u16string_view rest = page; !rest.empty();) {
        const size_t at = page.size() - rest.size();
        const u16string_view line = TakeLine(rest);
        if (line.starts_with(fence))
            isInBlock = !isInBlock;
        if (isInBlock || !line.starts_with(sectionMark))
            continue;
        if (start != npos)
            return page.substr(start, at - start);
        if (HeadingNames(line.substr(sectionMark.size()), name))
            start = page.size() - rest.size();
    }
    return start == npos ? u16string_view() : page.substr(start);
}

CString ReferenceSummary(u16string_view section)
{
    const Layout layout(section);
    const u16string_view details = layout.details.view();
    const size_t line = std::min(details.find(u'\n'), details.size());
    const size_t sentence = std::min(details.find(u". "), line);
    return CString(details.substr(0, sentence)).TrimRight(u".");
}

CString ReferenceText(u16string_view name, u16string_view section, int width)
{
    const Layout layout(section);
    CString text(name);
    text.Append(u"\r\n");
    AppendHelpSection(text, u"Usage", layout.usage, width);
    AppendHelpSection(text, u"Details", layout.details, width);
    AppendHelpSection(text, u"Examples", layout.examples, width);
    return text;
}
