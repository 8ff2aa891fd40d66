#include "text/path_names.h"

#include <algorithm>

#include "text/compare.h"

namespace {

constexpr std::size_t npos = std::u16string_view::npos;
constexpr std::u16string_view literalPrefix = u"\\\\?\\";

// COM or LPT with a digit from 1 to 9, the superscript ones included.
bool IsPort(std::u16string_view name) noexcept
{
    if (name.size() != 4 || !(BeginsNoCase(name, u"COM") || BeginsNoCase(name, u"LPT")))
        return false;
    const char16_t digit = name[3];
    return (digit >= u'1' && digit <= u'9') || digit == u'\u00B9' || digit == u'\u00B2' || digit == u'\u00B3';
}

bool IsLiteral(std::u16string_view path) noexcept
{
    return path.starts_with(literalPrefix) || path.starts_with(u"\\\\.\\");
}

} // namespace

std::size_t FileNameStart(std::u16string_view path) noexcept
{
    const std::size_t separator = path.find_last_of(u"\\/");
    if (separator != npos)
        return separator + 1;
    return path.size() >= 2 && path[1] == u':' ? 2 : 0;
}

std::size_t StreamColon(std::u16string_view path) noexcept { return path.find(u':', FileNameStart(path)); }

std::size_t ExtensionStart(std::u16string_view path) noexcept
{
    const std::size_t start = FileNameStart(path);
    const std::u16string_view name = path.substr(start);
    const std::size_t period = name.rfind(u'.');
    return period == npos || name == u"." || name == u".." ? path.size() : start + period;
}

std::u16string_view DirectoryPart(std::u16string_view path) noexcept
{
    return path.substr(0, FileNameStart(path));
}

std::u16string_view FileNamePart(std::u16string_view path) noexcept
{
    return path.substr(FileNameStart(path));
}

std::u16string_view ExtensionPart(std::u16string_view path) noexcept
{
    return path.substr(ExtensionStart(path));
}

bool IsAbsolutePath(std::u16string_view path) noexcept
{
    if (path.size() >= 2 && IsPathSeparator(path[0]) && IsPathSeparator(path[1]))
        return true;
    return path.size() >= 3 && IsAsciiLetter(path[0]) && path[1] == u':' && IsPathSeparator(path[2]);
}

bool HasWildcards(std::u16string_view path) noexcept
{
    if (path.starts_with(literalPrefix))
        path.remove_prefix(literalPrefix.size());
    return path.find_first_of(u"*?") != npos;
}

CString JoinPath(std::u16string_view directory, std::u16string_view name)
{
    CString path(directory);
    const bool parted = directory.empty() || IsPathSeparator(directory.back()) ||
                        (directory.size() == 2 && directory[1] == u':');
    if (!parted)
        path.Append(u'\\');
    path.Append(name);
    return path;
}

CString LiteralPath(std::u16string_view path)
{
    CString literal(path);
    if (IsLiteral(path))
        return literal;
    if (path.starts_with(u"\\\\"))
        return literal.Replace(0, 2, u"\\\\?\\UNC\\");
    return literal.Insert(0, literalPrefix);
}

CString PathOfEntry(std::u16string_view directory, std::u16string_view name)
{
    const CString path = CString(directory) + name;
    const bool odd = name.ends_with(u'.') || name.ends_with(u' ') || MayMeanDevice(name);
    const bool dots = name == u"." || name == u"..";
    return odd && !dots && IsAbsolutePath(directory) ? LiteralPath(path) : path;
}

bool HasOddDirectory(std::u16string_view path) noexcept
{
    for (std::size_t end = path.find(u'\\', 1); end != npos; end = path.find(u'\\', end + 1)) {
        const char16_t before = path[end - 1];
        const std::u16string_view name = FileNamePart(path.substr(0, end));
        if ((before == u'.' || before == u' ') && name != u"." && name != u"..")
            return !IsLiteral(path);
    }
    return false;
}

std::u16string_view WithoutEndSeparators(std::u16string_view path) noexcept
{
    while (path.size() > 1 && IsPathSeparator(path.back()) && path[path.size() - 2] != u':')
        path.remove_suffix(1);
    return path;
}

bool IsDeviceName(std::u16string_view name) noexcept
{
    if (name.size() > 2 && name.back() == u':')
        name.remove_suffix(1);
    name = FileNamePart(name);
    constexpr std::u16string_view devices[] = {u"CON", u"PRN", u"AUX", u"NUL", u"CONIN$", u"CONOUT$"};
    return IsPort(name) || std::any_of(std::begin(devices), std::end(devices),
                                       [&](std::u16string_view device) { return EqualNoCase(name, device); });
}

bool MayMeanDevice(std::u16string_view name) noexcept
{
    std::u16string_view stem = FileNamePart(name);
    stem = stem.substr(0, stem.find_first_of(u".:"));
    while (stem.ends_with(u' '))
        stem.remove_suffix(1);
    return IsDeviceName(stem);
}

bool QueryIsURL(std::u16string_view text) noexcept
{
    if (!text.empty() && text.front() == u'"')
        text.remove_prefix(1);
    if (BeginsNoCase(text, u"mailto:"))
        return true;
    const std::size_t colon = text.find(u"://");
    // One letter in front of the colon is a drive.
    if (colon == npos || colon < 2 || colon + 3 == text.size() || !IsAsciiLetter(text[0]))
        return false;
    return std::all_of(text.begin(), text.begin() + static_cast<std::ptrdiff_t>(colon), [](char16_t unit) {
        return IsAsciiLetter(unit) || IsDigit(unit) || unit == u'+' || unit == u'-' || unit == u'.';
    });
}
