#include "commands/checksum_lines.h"

#include <algorithm>

#include "text/compare.h"
#include "text/words.h"

namespace {

using View = std::u16string_view;

constexpr std::size_t fewestDigits = 8; // of CRC-32

bool IsChecksum(View text)
{
    return text.size() >= fewestDigits && text.find_first_not_of(u"0123456789abcdefABCDEF") == View::npos;
}

// "SHA-256 (name) = digits", also without the blanks but that behind the "="; "SHA2-256" means the same.
std::optional<ChecksumEntry> ReadNamedLine(View line)
{
    const std::size_t open = line.find(u'(');
    const std::size_t equals = line.rfind(u"= ");
    if (open == View::npos || equals == View::npos || equals <= open)
        return std::nullopt;
    CString algorithm = line.substr(0, open);
    algorithm.Trim();
    if (BeginsNoCase(algorithm, u"SHA2-"))
        algorithm = CString(u"SHA") + algorithm.Substr(5);
    const auto kind = FindDigestKind(algorithm);
    const std::size_t close = line.find_last_not_of(u' ', equals - 1);
    const View digits = line.substr(equals + 2);
    if (!kind || line[close] != u')' || digits.size() != DigestDigits(*kind) || !IsChecksum(digits))
        return std::nullopt;
    return ChecksumEntry{digits, line.substr(open + 1, close - open - 1), kind};
}

// "name 1234ABCD", as checksum files with CRC-32 are often written; ";" begins a comment.
std::optional<ChecksumEntry> ReadNameFirst(View line)
{
    const std::size_t blank = line.find_last_of(u" \t");
    if (line.starts_with(u';') || blank == View::npos || line.size() - blank - 1 != fewestDigits ||
        !IsChecksum(line.substr(blank + 1)))
        return std::nullopt;
    CString name = line.substr(0, blank);
    if (name.Trim().empty())
        return std::nullopt;
    return ChecksumEntry{line.substr(blank + 1), name, DigestKind::Crc32};
}

std::optional<ChecksumEntry> ReadDigitsFirst(View line)
{
    const std::size_t end = line.find_first_of(u" \t");
    if (end == View::npos || !IsChecksum(line.substr(0, end)))
        return std::nullopt;
    // Two characters part them: a blank, and a blank or "*". A name may begin with more blanks.
    View name = line.substr(end);
    if (name.starts_with(u"  ") || name.starts_with(u" *"))
        name.remove_prefix(2);
    else
        name.remove_prefix(std::min(name.find_first_not_of(u" \t"), name.size()));
    return ChecksumEntry{line.substr(0, end), name, std::nullopt};
}

// "\\\\" is a backslash and "\\n" a line end.
CString WithoutEscapes(View name)
{
    CString plain;
    for (std::size_t i = 0; i < name.size(); ++i) {
        const bool escapes = name[i] == u'\\' && i + 1 < name.size();
        const char16_t unit = escapes ? name[++i] : name[i];
        plain += !escapes ? unit : unit == u'n' ? u'\n' : unit == u'r' ? u'\r' : unit;
    }
    return plain;
}

} // namespace

std::size_t FindTextSwitch(View arguments, char16_t switchChar)
{
    for (Word at = NextBlankWord(arguments, 0); at.length > 0; at = NextBlankWord(arguments, at.end())) {
        if (at.length == 2 && arguments[at.start] == switchChar && UpperCase(arguments[at.start + 1]) == u'T')
            return at.start;
    }
    return View::npos;
}

std::optional<ChecksumEntry> ReadChecksumLine(View line)
{
    while (!line.empty() && IsBlank(line.back()))
        line.remove_suffix(1);
    const bool escaped = line.starts_with(u'\\');
    const View plain = escaped ? line.substr(1) : line;
    std::optional<ChecksumEntry> entry = ReadNamedLine(plain);
    if (!entry)
        entry = ReadDigitsFirst(plain);
    if (entry && escaped)
        entry->name = WithoutEscapes(entry->name);
    return entry ? entry : ReadNameFirst(line);
}
