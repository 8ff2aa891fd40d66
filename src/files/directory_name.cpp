#include "files/directory_name.h"

#include "text/compare.h"
#include "text/words.h"

namespace {

constexpr std::u16string_view separators = u"\\/";

// "..", and "\.." more for each period beyond two.
void AppendParents(CString& path, std::size_t periods)
{
    path += u"..";
    for (; periods > 2; --periods)
        path += u"\\..";
}

} // namespace

CString CleanDirectoryName(std::u16string_view name)
{
    CString text = WithoutQuotes(name);
    text.Trim();
    CString result;
    std::size_t at = DriveLetter(text) ? 2 : 0;
    result.Append(text.view().substr(0, at));
    while (at < text.size()) {
        const std::size_t found = text.view().find_first_of(separators, at);
        const std::size_t end = found == CString::npos ? text.size() : found;
        const std::u16string_view component = text.view().substr(at, end - at);
        const bool onlyPeriods = component.find_first_not_of(u'.') == std::u16string_view::npos;
        if (onlyPeriods && component.size() > 2)
            AppendParents(result, component.size());
        else
            result += component;
        if (end < text.size())
            result += text[end];
        at = end + 1;
    }
    return result;
}

char16_t DriveLetter(std::u16string_view name)
{
    return name.size() >= 2 && name[1] == u':' && IsAsciiLetter(name[0]) ? UpperCase(name[0]) : u'\0';
}

bool EndsInWildcard(std::u16string_view name)
{
    const std::size_t separator = name.find_last_of(separators);
    if (separator != std::u16string_view::npos)
        name.remove_prefix(separator + 1);
    return name.find_first_of(u"*?") != std::u16string_view::npos;
}
