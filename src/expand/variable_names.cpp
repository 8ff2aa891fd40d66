#include "expand/variable_names.h"

#include "text/compare.h"

namespace {

constexpr std::size_t npos = std::u16string_view::npos;
constexpr std::u16string_view x86 = u"(x86)";

std::size_t PlainLength(std::u16string_view text)
{
    std::size_t length = 0;
    while (length < text.size() && IsNameUnit(text[length]))
        ++length;
    const std::u16string_view behind = text.substr(length);
    if (!BeginsNoCase(behind, x86))
        return length;
    const std::u16string_view name = text.substr(0, length);
    const std::size_t whole = length + x86.size();
    const char16_t next = whole < text.size() ? text[whole] : u' ';
    const bool known = EqualNoCase(name, u"ProgramFiles") || EqualNoCase(name, u"CommonProgramFiles");
    return next == u'%' || (known && !IsLetterOrDigit(next) && next != u'_') ? whole : length;
}

constexpr std::size_t longestModifier = 4096;

// The "%" that closes a modifier; the escape character protects the unit behind it.
std::size_t FindClosingPercent(std::u16string_view text, std::size_t from, const Syntax& syntax)
{
    text = text.substr(0, from + longestModifier);
    for (std::size_t at = from; at < text.size(); ++at) {
        if (text[at] == u'%')
            return at;
        if (syntax.escapes && text[at] == syntax.escapeChar)
            ++at;
    }
    return npos;
}

// A text between ":" and "%" that is more likely the road to another reference ("%hour:%minute",
// "%drive:\dir\%name") than a modifier that does nothing.
bool IsPlainText(std::u16string_view modifier)
{
    return modifier.empty() ||
           (modifier.find_first_of(u"~=") == npos && modifier.find_first_of(u" \t\\/") != npos);
}

void Cut(NameReference& read)
{
    if (read.name.size() > longestName)
        read.name = read.name.substr(0, longestName);
}

// The name and what follows it up to the closing "%", once the name's length is known.
NameReference Finish(std::u16string_view text, std::size_t length, const Syntax& syntax)
{
    NameReference read{text.substr(0, length), {}, length, false};
    const char16_t next = length < text.size() ? text[length] : u'\0';
    if (next == u'%') {
        read.length = length + 1;
        read.closed = true;
    } else if (next == u':') {
        const std::size_t closing = FindClosingPercent(text, length + 1, syntax);
        if (closing != npos && !IsPlainText(text.substr(length + 1, closing - length - 1))) {
            read.modifier = text.substr(length + 1, closing - length - 1);
            read.length = closing + 1;
            read.closed = true;
        }
    }
    return read;
}

// A name of any characters, closed by "%".
NameReference ReadClosed(std::u16string_view text, const Syntax& syntax, KnownNames& known)
{
    const std::size_t closing = text.find(u'%');
    if (closing == npos || closing == 0)
        return {};
    const std::u16string_view whole = text.substr(0, closing);
    const std::size_t colon = whole.find(u':', 1);
    if (colon == npos || known.Exists(whole))
        return {whole, {}, closing + 1, true};
    return Finish(text, colon, syntax);
}

// In .BAT and .CMD files: whether the text up to the next "%" is meant as a name, such as list[1] or a.b.
bool IsClosedName(std::u16string_view text, KnownNames& known)
{
    const std::size_t end = text.substr(0, longestName + 1).find(u'%');
    if (end == npos || end == 0)
        return false;
    const std::u16string_view whole = text.substr(0, end);
    const std::u16string_view name = whole.substr(0, whole.find(u':', 1));
    return name.find_first_of(u" \t\"'`<>|&^=;!\\/\n*?:") == npos || known.Exists(whole) ||
           known.Exists(name);
}

} // namespace

bool IsNameUnit(char16_t unit) noexcept { return IsLetterOrDigit(unit) || unit == u'_' || unit == u'$'; }

NameReference ReadName(std::u16string_view text, bool toPercent, const Syntax& syntax, KnownNames& known)
{
    NameReference read;
    if (toPercent) {
        read = ReadClosed(text, syntax, known);
    } else {
        const std::size_t length = PlainLength(text);
        const char16_t next = length < text.size() ? text[length] : u'%';
        const bool odd = length == 0 || (next != u'%' && next != u':');
        if (odd && syntax.openQuotes && IsClosedName(text, known))
            read = ReadClosed(text, syntax, known);
        else if (length != 0)
            read = Finish(text, length, syntax);
    }
    Cut(read);
    return read;
}
