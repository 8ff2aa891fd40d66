#include "text/web_text.h"

#include <string>

#include "text/code_points.h"
#include "text/compare.h"
#include "text/encoding.h"
#include "text/html_entities.h"

namespace {

using View = std::u16string_view;

bool IsUnreserved(char unit)
{
    const auto wide = static_cast<char16_t>(static_cast<unsigned char>(unit));
    return IsDigit(wide) || IsAsciiLetter(wide) ||
           std::string_view("-._~").find(unit) != std::string_view::npos;
}

// "#65" or "#x41"; 0 for anything that is no character.
std::uint32_t NumberedCharacter(View name)
{
    name.remove_prefix(1);
    const bool hexadecimal = !name.empty() && LowerCase(name[0]) == u'x';
    name.remove_prefix(hexadecimal ? 1 : 0);
    std::uint32_t code = 0;
    for (const char16_t unit : name) {
        const int digit = HexDigit(unit);
        if (digit < 0 || (digit > 9 && !hexadecimal))
            return 0;
        code = code * (hexadecimal ? 16 : 10) + static_cast<std::uint32_t>(digit);
        if (code > 0x10FFFF)
            return 0;
    }
    const bool surrogate = code >= 0xD800 && code <= 0xDFFF;
    return surrogate ? 0 : code;
}

std::uint32_t EntityOf(View name)
{
    if (name.starts_with(u'#'))
        return NumberedCharacter(name);
    return IsAscii(name) ? HtmlEntity(ToUtf8(name)) : u'\0';
}

} // namespace

CString EncodeUrl(View text)
{
    constexpr std::u16string_view digits = u"0123456789ABCDEF";
    CString encoded;
    for (const char unit : ToUtf8(text)) {
        const auto byte = static_cast<unsigned char>(unit);
        if (IsUnreserved(unit))
            encoded.Append(static_cast<char16_t>(byte));
        else
            encoded.Append(u'%').Append(digits[byte >> 4]).Append(digits[byte & 15]);
    }
    return encoded;
}

CString DecodeUrl(View text)
{
    CString decoded;
    for (std::size_t at = 0; at < text.size();) {
        std::string bytes;
        while (at + 2 < text.size() && text[at] == u'%' && HexDigit(text[at + 1]) >= 0 &&
               HexDigit(text[at + 2]) >= 0) {
            bytes += static_cast<char>(HexDigit(text[at + 1]) << 4 | HexDigit(text[at + 2]));
            at += 3;
        }
        if (!bytes.empty())
            decoded.Append(FromUtf8(bytes));
        else
            decoded.Append(text[at++]);
    }
    return decoded;
}

CString EncodeHtml(View text)
{
    CString encoded;
    for (const char16_t unit : text) {
        switch (unit) {
        case u'&': encoded.Append(u"&amp;"); break;
        case u'<': encoded.Append(u"&lt;"); break;
        case u'>': encoded.Append(u"&gt;"); break;
        case u'"': encoded.Append(u"&quot;"); break;
        case u'\'': encoded.Append(u"&#39;"); break;
        default: encoded.Append(unit);
        }
    }
    return encoded;
}

CString DecodeHtml(View text)
{
    constexpr std::size_t longestName = 10;
    CString decoded;
    for (std::size_t at = 0; at < text.size();) {
        std::uint32_t code = 0;
        std::size_t end = View::npos;
        if (text[at] == u'&') {
            end = text.substr(at, longestName + 2).find(u';');
            code = end == View::npos ? 0 : EntityOf(text.substr(at + 1, end - 1));
        }
        if (code != 0) {
            AppendCodePoint(decoded, code);
            at += end + 1;
        } else {
            decoded.Append(text[at++]);
        }
    }
    return decoded;
}
