#include "text/format.h"

#include <algorithm>

#include "text/compare.h"

namespace {

constexpr int widest = 100000; // units that a width or precision may ask for

struct Directive {
    bool left = false;
    bool zero = false;
    bool plus = false;
    int width = 0;
    int precision = -1;
    char16_t letter = 0;
};

class Formatter {
public:
    Formatter(CString& into, std::u16string_view over, std::initializer_list<FormatArgument> arguments)
        : target(into), pattern(over), next(arguments.begin()), end(arguments.end())
    {}

    void Run()
    {
        while (at < pattern.size()) {
            const std::size_t percent = pattern.find(u'%', at);
            target.Append(pattern.substr(at, percent == pattern.npos ? pattern.npos : percent - at));
            if (percent == pattern.npos)
                return;
            at = percent + 1;
            RunDirective(percent);
        }
    }

private:
    void RunDirective(std::size_t start)
    {
        const Directive directive = Read();
        if (directive.letter == u'%') {
            target.Append(u'%');
        } else if (directive.letter == 0 || next == end) {
            target.Append(pattern.substr(start, at - start));
        } else {
            Write(directive, *next++);
        }
    }

    Directive Read()
    {
        Directive d;
        for (; at < pattern.size(); ++at) {
            if (pattern[at] == u'-')
                d.left = true;
            else if (pattern[at] == u'0')
                d.zero = true;
            else if (pattern[at] == u'+')
                d.plus = true;
            else
                break;
        }
        d.width = Number();
        if (d.width < 0) {
            d.left = true;
            d.width = -d.width;
        }
        if (at < pattern.size() && pattern[at] == u'.') {
            ++at;
            // A negative one counts as none.
            d.precision = std::max(-1, Number());
        }
        if (pattern.substr(at, 3) == u"I64")
            at += 3;
        while (at < pattern.size() && (pattern[at] == u'l' || pattern[at] == u'h'))
            ++at;
        if (at < pattern.size() && std::u16string_view(u"scdiuxXo%").find(pattern[at]) != pattern.npos)
            d.letter = pattern[at++];
        return d;
    }

    int Number()
    {
        if (at < pattern.size() && pattern[at] == u'*') {
            ++at;
            const std::int64_t given = next == end ? 0 : static_cast<std::int64_t>((next++)->number);
            return static_cast<int>(std::clamp<std::int64_t>(given, -widest, widest));
        }
        int value = 0;
        for (; at < pattern.size() && IsDigit(pattern[at]); ++at)
            value = std::min(value * 10 + (pattern[at] - u'0'), widest);
        return value;
    }

    void Write(const Directive& d, const FormatArgument& argument)
    {
        if (argument.kind == FormatArgument::Kind::Text) {
            const std::size_t limit = d.precision < 0 ? pattern.npos : static_cast<std::size_t>(d.precision);
            Pad(d, {}, argument.text.substr(0, limit), false);
        } else if (argument.kind == FormatArgument::Kind::Unit || d.letter == u'c') {
            const char16_t unit = static_cast<char16_t>(argument.number);
            Pad(d, {}, std::u16string_view(&unit, 1), false);
        } else {
            WriteNumber(d, argument);
        }
    }

    void WriteNumber(const Directive& d, const FormatArgument& argument)
    {
        const bool based = d.letter == u'x' || d.letter == u'X' || d.letter == u'o';
        const bool negative = argument.kind == FormatArgument::Kind::Signed && !based &&
                              static_cast<std::int64_t>(argument.number) < 0;
        std::uint64_t value = negative ? 0 - argument.number : argument.number;
        if (based && argument.bits < 64)
            value &= (std::uint64_t{1} << argument.bits) - 1;
        const unsigned base = d.letter == u'o' ? 8 : based ? 16 : 10;
        const char16_t* digits = d.letter == u'X' ? u"0123456789ABCDEF" : u"0123456789abcdef";
        char16_t buffer[128];
        char16_t* const last = buffer + std::size(buffer);
        char16_t* first = last;
        const int least = std::clamp(d.precision, 1, 100);
        while (value != 0 || last - first < least) {
            *--first = digits[value % base];
            value /= base;
        }
        const std::u16string_view sign = negative ? u"-" : d.plus && !based ? u"+" : u"";
        Pad(d, sign, {first, static_cast<std::size_t>(last - first)}, d.zero && !d.left && d.precision < 0);
    }

    void Pad(const Directive& d, std::u16string_view sign, std::u16string_view body, bool zeros)
    {
        const std::size_t length = sign.size() + body.size();
        const std::size_t width = static_cast<std::size_t>(d.width);
        const CString padding(width > length ? width - length : 0, zeros ? u'0' : u' ');
        if (!d.left && !zeros)
            target.Append(padding);
        target.Append(sign);
        if (zeros)
            target.Append(padding);
        target.Append(body);
        if (d.left)
            target.Append(padding);
    }

    CString& target;
    std::u16string_view pattern;
    std::size_t at = 0;
    const FormatArgument* next;
    const FormatArgument* end;
};

} // namespace

void FormatInto(CString& target, std::u16string_view pattern, std::initializer_list<FormatArgument> arguments)
{
    Formatter(target, pattern, arguments).Run();
}
