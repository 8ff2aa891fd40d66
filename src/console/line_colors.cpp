#include "console/line_colors.h"

#include <algorithm>

#include "expand/variable_names.h"
#include "text/compare.h"

namespace {

constexpr std::size_t longestColored = 8192; // units

class LineColors {
public:
    LineColors(std::u16string_view of, EditorWorld& around, std::uint8_t rest)
        : text(of), world(around), syntax(around.CommandSyntax()), plain(rest)
    {}

    std::vector<ColorRun> Color();

private:
    void Paint(std::size_t to, LinePartKind kind);
    void Step();
    void Command();
    void Quoted(LinePartKind kind);
    bool BeginsExpression();
    void Expression();
    void Reference();
    bool IsOperator(char16_t unit) const;

    std::u16string_view text;
    EditorWorld& world;
    Syntax syntax;
    std::uint8_t plain;
    std::size_t at = 0;
    bool commandNext = true; // a command's name may stand here
    bool findsText = false;  // the command is FFIND
    std::vector<ColorRun> runs;
};

void LineColors::Paint(std::size_t to, LinePartKind kind)
{
    at = std::min(to, text.size());
    const std::uint8_t own = kind == LinePartKind::Plain ? plain : world.ColorsOf(kind);
    const std::uint8_t colors = own != 0 ? own : plain;
    if (!runs.empty() && runs.back().colors == colors)
        runs.back().end = at;
    else
        runs.push_back({at, colors});
}

bool LineColors::IsOperator(char16_t unit) const
{
    return unit == syntax.commandSep || std::u16string_view(u"|<>&").find(unit) != text.npos;
}

void LineColors::Quoted(LinePartKind kind)
{
    const std::size_t closing = text.find_first_of(u"\"\n", at + 1);
    const bool closed = closing != text.npos && text[closing] == u'"';
    const std::size_t end = closing == text.npos ? text.size() : closing + (closed ? 1 : 0);
    Paint(end, closed ? kind : LinePartKind::Error);
}

// A name that is a regular expression, or what stands behind FFIND's /E, which is painted then.
bool LineColors::BeginsExpression()
{
    if (commandNext || at == 0 || !IsBlank(text[at - 1]))
        return false;
    if (text.substr(at + (text[at] == u'"' ? 1 : 0)).starts_with(u"::"))
        return true;
    if (!findsText || text[at] != syntax.switchChar || !BeginsNoCase(text.substr(at + 1), u"E"))
        return false;
    const std::size_t begin = at + (text.substr(at + 2).starts_with(u':') ? 3 : 2);
    if (begin == text.size() || IsBlank(text[begin]))
        return false;
    Paint(begin, LinePartKind::Plain);
    return true;
}

void LineColors::Expression()
{
    if (text[at] == u'"')
        return Quoted(LinePartKind::Regex);
    std::size_t end = at;
    while (end < text.size() && !IsBlank(text[end]) && text[end] != u'\n' && !IsOperator(text[end]))
        ++end;
    Paint(std::max(end, at + 1), LinePartKind::Regex);
}

// From a "%" on.
void LineColors::Reference()
{
    std::size_t end = at + 1;
    const char16_t next = end < text.size() ? text[end] : u' ';
    if (IsDigit(next) || next == u'*' || next == u'#' || next == u'%') {
        Paint(end + 1, next == u'%' ? LinePartKind::Plain : LinePartKind::LocalVariable);
        return;
    }
    if (next == u'[' || next == u'@') {
        int depth = 0;
        while (end < text.size() &&
               (depth > 0 || IsNameUnit(text[end]) || text[end] == u'@' || text[end] == u'[')) {
            depth += text[end] == u'[' ? 1 : text[end] == u']' ? -1 : 0;
            ++end;
        }
        Paint(end, depth == 0 ? LinePartKind::Internal : LinePartKind::Error);
        return;
    }
    while (end < text.size() && IsNameUnit(text[end]))
        ++end;
    if (end == at + 1) {
        Paint(end, LinePartKind::Plain);
        return;
    }
    if (end < text.size() && text[end] == u'%')
        ++end;
    Paint(end, next == u'_' ? LinePartKind::Internal : LinePartKind::Environment);
}

// The first word of a command.
void LineColors::Command()
{
    commandNext = false;
    if (text[at] == u':') {
        const std::size_t end = std::min(text.find(u'\n', at), text.size());
        Paint(end, text.substr(at).starts_with(u"::") ? LinePartKind::Comment : LinePartKind::Label);
        return;
    }
    std::size_t end = at;
    while (end < text.size() && !IsBlank(text[end]) && text[end] != u'\n' && text[end] != u'"' &&
           text[end] != u'%' && text[end] != u'(' && text[end] != u')' && text[end] != syntax.switchChar &&
           !IsOperator(text[end]))
        ++end;
    if (end == at) {
        Paint(at + 1, LinePartKind::Plain);
        return;
    }
    const std::u16string_view name = text.substr(at, end - at);
    const bool comment = EqualNoCase(name, u"rem");
    findsText = EqualNoCase(name, u"ffind");
    const LinePartKind kind = world.KindOfCommand(name);
    Paint(end, kind);
    if (comment)
        Paint(std::min(text.find(u'\n', end), text.size()), LinePartKind::Comment);
    // Commands that are followed by another one.
    for (const std::u16string_view before : {u"else", u"elseiff", u"do"})
        commandNext = commandNext || EqualNoCase(name, before);
}

void LineColors::Step()
{
    const char16_t unit = text[at];
    if (IsBlank(unit))
        Paint(at + 1, LinePartKind::Plain);
    else if (unit == u'\n') {
        Paint(at + 1, LinePartKind::Plain);
        commandNext = true;
    } else if (unit == syntax.escapeChar && syntax.escapes)
        Paint(at + 2, LinePartKind::Plain);
    else if (IsOperator(unit)) {
        Paint(at + 1, LinePartKind::Operator);
        commandNext = unit != u'<' && unit != u'>';
    } else if (commandNext && (unit == u'(' || unit == u'@' || unit == u'*'))
        Paint(at + 1, LinePartKind::Operator);
    else if (BeginsExpression())
        Expression();
    else if (unit == u'"') {
        Quoted(LinePartKind::Text);
        commandNext = false;
    } else if (unit == u'%') {
        Reference();
        commandNext = false;
    } else if (commandNext)
        Command();
    else if (unit == u'(' || unit == u')') {
        Paint(at + 1, LinePartKind::Operator);
        commandNext = unit == u'(';
    } else {
        std::size_t end = at + 1;
        while (end < text.size() && IsLetterOrDigit(text[end]))
            ++end;
        Paint(end, LinePartKind::Plain);
    }
}

std::vector<ColorRun> LineColors::Color()
{
    if (text.size() > longestColored)
        return {{text.size(), plain}};
    while (at < text.size())
        Step();
    return std::move(runs);
}

} // namespace

std::vector<ColorRun> ColorLine(std::u16string_view text, EditorWorld& world, std::uint8_t plain)
{
    return LineColors(text, world, plain).Color();
}
