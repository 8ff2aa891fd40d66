#include "batch/for_tokens.h"

#include <algorithm>

#include "text/compare.h"
#include "text/numbers.h"

namespace {

constexpr std::size_t npos = std::u16string_view::npos;

class OptionReader {
public:
    OptionReader(std::u16string_view over, ForOptions& into) : text(over), options(into) {}

    bool Run()
    {
        for (;;) {
            while (at < text.size() && IsBlank(text[at]))
                ++at;
            if (at == text.size())
                return true;
            if (!ReadOption())
                return false;
        }
    }

private:
    bool Take(std::u16string_view name)
    {
        if (!BeginsNoCase(text.substr(at), name))
            return false;
        at += name.size();
        return true;
    }

    bool ReadOption()
    {
        if (Take(u"usebackq"))
            return options.backQuotes = true;
        if (Take(u"eol=")) {
            options.comment = at < text.size() ? text[at++] : u'\0';
            return true;
        }
        if (Take(u"skip=")) {
            std::size_t used = 0;
            const auto count = ReadInteger(text.substr(at), &used);
            options.skip = static_cast<unsigned>(std::clamp<std::int64_t>(count.value_or(0), 0, 0x7FFFFFFF));
            at += used;
            return count && *count > 0;
        }
        if (Take(u"delims=")) {
            // A blank ends the list, unless nothing but blanks follows.
            const std::size_t last = text.find_last_not_of(u" \t");
            std::size_t end = text.find_first_of(u" \t", at);
            if (end == npos || last == npos || last < end)
                end = text.size();
            options.delimiters = text.substr(at, end - at);
            at = end;
            return true;
        }
        return Take(u"tokens=") && ReadTokens();
    }

    bool ReadTokens()
    {
        options.tokens = 0;
        options.rest = false;
        while (at < text.size() && !IsBlank(text[at])) {
            if (text[at] == u'*') {
                ++at;
                options.rest = true;
                return at == text.size() || IsBlank(text[at]);
            }
            if (!ReadTokenRange())
                return false;
            if (at < text.size() && text[at] == u',')
                ++at;
        }
        return options.tokens != 0;
    }

    bool ReadTokenRange()
    {
        const std::int64_t first = ReadTokenNumber();
        std::int64_t last = first;
        if (at < text.size() && text[at] == u'-') {
            ++at;
            last = ReadTokenNumber();
        }
        if (first < 1 || last < 1 || first > mostTokens || last > mostTokens)
            return false;
        for (std::int64_t token = first; token <= last; ++token)
            options.tokens |= 1u << (token - 1);
        return true;
    }

    std::int64_t ReadTokenNumber()
    {
        std::size_t used = 0;
        const auto number = at < text.size() && IsDigit(text[at]) ? ReadDecimal(text.substr(at), &used) : 0;
        at += used;
        return number.value_or(0);
    }

    std::u16string_view text;
    ForOptions& options;
    std::size_t at = 0;
};

} // namespace

bool ReadForOptions(std::u16string_view text, ForOptions& options)
{
    return OptionReader(text, options).Run();
}

bool CutForLine(std::u16string_view line, const ForOptions& options, std::vector<std::u16string_view>& values)
{
    values.clear();
    const std::u16string_view delimiters = options.delimiters;
    auto passDelimiters = [&](std::size_t from) {
        return std::min(line.find_first_not_of(delimiters, from), line.size());
    };
    std::size_t at = passDelimiters(0);
    if (at == line.size() || (options.comment != 0 && line[at] == options.comment))
        return false;
    bool found = false;
    for (unsigned token = 0; token < mostTokens && options.tokens >> token != 0; ++token) {
        const std::size_t end = std::min(line.find_first_of(delimiters, at), line.size());
        if ((options.tokens >> token & 1) != 0) {
            values.push_back(line.substr(at, end - at));
            found = found || end > at;
        }
        at = passDelimiters(end);
    }
    if (options.rest) {
        values.push_back(line.substr(at));
        found = found || at < line.size();
    }
    return found;
}
