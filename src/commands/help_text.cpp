#include "commands/help_text.h"

#include <algorithm>

#include "text/cell_width.h"

namespace {

using std::size_t;
constexpr size_t npos = std::u16string_view::npos;

constexpr size_t narrowest = 10; // a console narrower than this gets its lines as they are

// Where the words of a line hang: behind the first gap of two blanks ("/A  all"), else at the margin.
size_t HangingIndent(std::u16string_view line, size_t margin)
{
    const size_t first = line.find_first_not_of(u' ');
    const size_t gap = first == npos ? npos : line.find(u"  ", first);
    const size_t word = gap == npos ? npos : line.find_first_not_of(u' ', gap);
    return margin + (word == npos ? 0 : word);
}

void AppendWrapped(CString& text, std::u16string_view line, size_t margin, size_t width)
{
    size_t indent = margin;
    const size_t hanging = HangingIndent(line, margin);
    while (width >= narrowest) {
        const size_t cut = WordsThatFit(line, static_cast<int>(width - indent));
        if (cut == line.size())
            break;
        text.Append(CString(indent, u' ')).Append(line.substr(0, cut)).Append(u"\r\n");
        line.remove_prefix(std::min(line.find_first_not_of(u' ', cut), line.size()));
        indent = hanging < width / 2 ? hanging : margin;
    }
    text.Append(CString(indent, u' ')).Append(line).Append(u"\r\n");
}

void AppendLines(CString& text, std::u16string_view lines, size_t margin, size_t width)
{
    while (!lines.empty()) {
        const size_t end = std::min(lines.find(u'\n'), lines.size());
        AppendWrapped(text, lines.substr(0, end), margin, width);
        lines.remove_prefix(std::min(end + 1, lines.size()));
    }
}

size_t Columns(int width) { return width > 0 ? static_cast<size_t>(width) : 0; }

} // namespace

void AppendHelpSection(CString& text, std::u16string_view title, std::u16string_view lines, int width)
{
    if (lines.empty())
        return;
    text.Append(u"\r\n").Append(title).Append(u"\r\n");
    AppendLines(text, lines, 2, Columns(width));
}

CString HelpText(std::u16string_view names, const CommandHelp& help, int width)
{
    CString text;
    CString head(names);
    head.Append(u": ").Append(help.summary);
    AppendLines(text, head, 0, Columns(width));
    AppendHelpSection(text, u"Usage", help.usage, width);
    AppendHelpSection(text, u"Details", help.switches, width);
    AppendHelpSection(text, u"Examples", help.examples, width);
    return text;
}

CString HelpParagraph(std::u16string_view lines, int width)
{
    CString text;
    AppendLines(text, lines, 0, Columns(width));
    return text;
}
