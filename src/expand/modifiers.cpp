#include "expand/modifiers.h"

#include <algorithm>
#include <cstdint>

#include "text/compare.h"
#include "text/numbers.h"

namespace {

// "start" or "start,length", either part may be missing or negative.
void TakeSubstring(CString& value, std::u16string_view range)
{
    const std::int64_t size = static_cast<std::int64_t>(value.size());
    std::size_t used = 0;
    std::int64_t start = ReadDecimal(range, &used).value_or(0);
    if (start < 0)
        start = std::max<std::int64_t>(start + size, 0);
    start = std::min(start, size);
    std::int64_t length = size - start;
    range.remove_prefix(used);
    if (!range.empty() && range[0] == u',') {
        if (const auto wanted = ReadDecimal(range.substr(1)))
            length = *wanted < 0 ? length + std::max(*wanted, -length) : std::min(length, *wanted);
    }
    value = value.Substr(static_cast<std::size_t>(start), static_cast<std::size_t>(length));
}

bool ReplaceAll(CString& value, std::u16string_view what, std::u16string_view with, std::size_t limit)
{
    const std::u16string_view text = value;
    CString result;
    std::size_t from = 0;
    for (std::size_t at; (at = FindNoCase(text, what, from)) != text.npos; from = at + what.size()) {
        result.Append(text.substr(from, at - from)).Append(with);
        if (result.size() > limit)
            return false;
    }
    if (from != 0) {
        result.Append(text.substr(from));
        value = result;
    }
    return true;
}

} // namespace

bool ApplyModifier(CString& value, std::u16string_view modifier, std::size_t limit)
{
    if (!modifier.empty() && modifier[0] == u'~') {
        TakeSubstring(value, modifier.substr(1));
        return true;
    }
    const std::size_t equals = modifier.find(u'=');
    if (equals == modifier.npos)
        return true;
    const bool fromStart = modifier[0] == u'*';
    const std::u16string_view what = modifier.substr(fromStart ? 1 : 0, equals - (fromStart ? 1 : 0));
    const std::u16string_view with = modifier.substr(equals + 1);
    if (what.empty())
        return false;
    if (!fromStart)
        return ReplaceAll(value, what, with, limit);
    const std::size_t at = FindNoCase(value, what);
    if (at != CString::npos)
        value.Replace(0, at + what.size(), with);
    return true;
}
