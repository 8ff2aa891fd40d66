#include "config/protected_text.h"

#include <cstddef>

namespace {

constexpr char16_t mark = 16;
constexpr std::u16string_view key = u"kX4~r!7Qe#";
static_assert(key.size() == 10);

// Only the printable characters of ASCII move, within their own range.
constexpr char16_t firstMoved = u'!';
constexpr char16_t lastMoved = u'~';
constexpr int movedCount = lastMoved - firstMoved + 1;

char16_t Move(char16_t unit, int distance)
{
    if (unit < firstMoved || unit > lastMoved)
        return unit;
    return static_cast<char16_t>(firstMoved + (unit - firstMoved + distance + movedCount) % movedCount);
}

int KeyDistance(std::size_t at) { return key[at % key.size()] - firstMoved; }

} // namespace

CString Encipher(std::u16string_view plain)
{
    CString value(1, mark);
    for (std::size_t at = 0; at < plain.size(); ++at)
        value += Move(plain[at], KeyDistance(at));
    return value;
}

CString Decipher(std::u16string_view value)
{
    if (value.empty() || value.front() != mark)
        return CString(value);
    CString plain;
    for (std::size_t at = 1; at < value.size(); ++at)
        plain += Move(value[at], -KeyDistance(at - 1));
    return plain;
}
