#include "text/escapes.h"

#include "text/compare.h"

namespace {

char16_t MeaningOf(char16_t letter)
{
    switch (LowerCase(letter)) {
    case u'b': return u'\b';
    case u'c': return u',';
    case u'e': return u'\x1b';
    case u'f': return u'\f';
    case u'g': return u'\a';
    case u'k': return u'`';
    case u'n': return u'\n';
    case u'q': return u'"';
    case u'r': return u'\r';
    case u's': return u' ';
    case u't': return u'\t';
    default: return letter;
    }
}

void Resolve(CString& text, bool respectQuotes, const Syntax& syntax)
{
    const std::size_t first = syntax.escapes ? text.Find(syntax.escapeChar) : CString::npos;
    if (first == CString::npos)
        return;
    char16_t* units = text.Edit();
    char16_t quote = 0;
    std::size_t to = 0;
    for (std::size_t from = 0; from < text.size(); ++from) {
        char16_t unit = units[from];
        // A lone back-quote is an ordinary character, and so are all in the texts of .BAT and .CMD files.
        const bool mayQuote = respectQuotes && (unit == u'"' || (unit == u'`' && !syntax.openQuotes &&
                                                                 text.Find(u'`', from + 1) != CString::npos));
        if (quote == 0 && unit == syntax.escapeChar) {
            // A lone escape character at the end stands for nothing.
            if (++from == text.size())
                break;
            unit = MeaningOf(units[from]);
        } else if (quote != 0 && unit == quote) {
            quote = 0;
        } else if (quote == 0 && mayQuote) {
            quote = unit;
        }
        units[to++] = unit;
    }
    text.SetLength(to);
}

} // namespace

void EscapeLine(CString& text, const Syntax& syntax) { Resolve(text, false, syntax); }
void UnEscapeLine(CString& line, const Syntax& syntax) { Resolve(line, true, syntax); }

CString ProtectText(std::u16string_view text, const Syntax& syntax)
{
    CString result;
    result.Reserve(text.size() + 16);
    char16_t quote = 0;
    for (std::size_t at = 0; at < text.size(); ++at) {
        const char16_t unit = text[at];
        const bool closed = text.find(unit, at + 1) != std::u16string_view::npos;
        const bool special = std::u16string_view(u"&|<>()\"`\n\r").find(unit) != std::u16string_view::npos ||
                             unit == syntax.commandSep || unit == syntax.escapeChar;
        if (quote != 0) {
            quote = unit == quote ? u'\0' : quote;
        } else if ((unit == u'"' || unit == u'`') && closed) {
            quote = unit;
        } else if (special && syntax.escapes) {
            result.Append(syntax.escapeChar);
            result.Append(unit == u'\n' ? u'n' : unit == u'\r' ? u'r' : unit);
            continue;
        }
        result.Append(unit);
        if (unit == u'%' && quote != u'`')
            result.Append(u'%');
    }
    return result;
}
