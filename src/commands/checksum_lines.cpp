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

// "SHA-256 (name) = digits"
std::optional<ChecksumEntry> ReadNamedLine(View line)
{
    const std::size_t open = line.find(u" (");
    const std::size_t close = line.rfind(u") = ");
    if (open == View::npos || close == View::npos || close < open + 2)
        return std::nullopt;
    const auto kind = FindDigestKind(line.substr(0, open));
    const View digits = line.substr(close + 4);
    if (!kind || digits.size() != DigestDigits(*kind) || !IsChecksum(digits))
        return std::nullopt;
    return ChecksumEntry{digits, line.substr(open + 2, close - open - 2), kind};
}

} // namespace

std::optional<ChecksumEntry> ReadChecksumLine(View line)
{
    while (!line.empty() && IsBlank(line.back()))
        line.remove_suffix(1);
    if (const auto entry = ReadNamedLine(line))
        return entry;
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

std::size_t FindTextSwitch(View arguments, char16_t switchChar)
{
    for (Word at = NextBlankWord(arguments, 0); at.length > 0; at = NextBlankWord(arguments, at.end())) {
        if (at.length == 2 && arguments[at.start] == switchChar && UpperCase(arguments[at.start + 1]) == u'T')
            return at.start;
    }
    return View::npos;
}
