#include "commands/printf_format.h"

#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string>

#include "lang/errors.h"
#include "lang/function_messages.h"
#include "text/compare.h"
#include "text/encoding.h"
#include "text/numbers.h"

namespace {

using View = std::u16string_view;

constexpr std::int64_t widest = 10'000; // characters of one directive

struct Refusal {
    unsigned code;
    CString culprit;
};

// The character of up to `most` digits of this base at the start of the text, which are taken off.
char16_t TakeCode(View& text, int base, std::size_t most)
{
    int code = 0;
    for (; most > 0 && !text.empty(); --most) {
        const int digit = HexDigit(text[0]);
        if (digit < 0 || digit >= base)
            break;
        code = code * base + digit;
        text.remove_prefix(1);
    }
    return static_cast<char16_t>(code);
}

// The escape behind a backslash, which is taken off the text.
void AppendEscape(CString& target, View& text)
{
    constexpr View letters = u"abefrtv\\\"'";
    constexpr View meanings = u"\a\b\x1B\f\r\t\v\\\"'";
    const char16_t unit = text[0];
    const std::size_t known = letters.find(unit);
    if (unit >= u'0' && unit <= u'7') {
        target.Append(TakeCode(text, 8, 3));
        return;
    }
    text.remove_prefix(1);
    const bool coded = (unit == u'x' || unit == u'u') && !text.empty() && HexDigit(text[0]) >= 0;
    if (unit == u'n')
        target.Append(target.back() == u'\r' ? u"\n" : u"\r\n");
    else if (coded)
        target.Append(TakeCode(text, 16, unit == u'x' ? 2 : 4));
    else if (known != View::npos)
        target.Append(meanings[known]);
    else
        target.Append(u'\\').Append(unit);
}

CString Unescaped(View text)
{
    CString plain;
    while (!text.empty()) {
        const char16_t unit = text[0];
        text.remove_prefix(1);
        if (unit == u'\\' && !text.empty())
            AppendEscape(plain, text);
        else
            plain.Append(unit);
    }
    return plain;
}

struct Directive {
    View written;
    std::string flags; // as C knows them
    std::int64_t width = 0;
    std::int64_t precision = -1; // not given
    char16_t letter = u'\0';

    bool Has(char flag) const { return flags.find(flag) != std::string::npos; }
};

class Formatter {
public:
    Formatter(View pattern, const std::vector<CString>& given) : format(pattern), arguments(given) {}

    CString Run()
    {
        do {
            const std::size_t before = next;
            Pass();
            if (next == before && next < arguments.size())
                throw Refusal{errors::invalidFormat, CString(format)}; // no directive ever takes the rest
        } while (next < arguments.size());
        return output;
    }

private:
    void Pass()
    {
        for (View rest = format; !rest.empty();) {
            const char16_t unit = rest[0];
            if (unit == u'%') {
                TakeDirective(rest);
                continue;
            }
            rest.remove_prefix(1);
            if (unit == u'\\' && !rest.empty())
                AppendEscape(output, rest);
            else
                output.Append(unit);
        }
    }

    View NextArgument() { return next < arguments.size() ? arguments[next++].view() : View(); }

    void TakeDirective(View& rest)
    {
        const View start = rest;
        rest.remove_prefix(1);
        Directive directive;
        while (!rest.empty() && View(u"-+ 0#").find(rest[0]) != View::npos) {
            directive.flags += static_cast<char>(rest[0]);
            rest.remove_prefix(1);
        }
        directive.width = TakeSize(rest, 0);
        if (directive.width < 0) {
            directive.flags += '-';
            directive.width = -directive.width;
        }
        if (rest.starts_with(u'.')) {
            rest.remove_prefix(1);
            directive.precision = TakeSize(rest, 0);
        }
        directive.written = start.substr(0, start.size() - rest.size() + 1);
        directive.letter = rest.empty() ? u'\0' : rest[0];
        rest.remove_prefix(rest.empty() ? 0 : 1);
        if (directive.width > widest || directive.precision > widest)
            throw Refusal{errors::invalidFormat, CString(directive.written)};
        Print(directive);
    }

    std::int64_t TakeSize(View& rest, std::int64_t otherwise)
    {
        if (rest.starts_with(u'*')) {
            rest.remove_prefix(1);
            return WholeNumber(NextArgument());
        }
        std::size_t used = 0;
        const bool digit = !rest.empty() && IsDigit(rest[0]);
        const std::int64_t size = digit ? ReadDecimal(rest, &used).value_or(otherwise) : otherwise;
        rest.remove_prefix(used);
        return size;
    }

    void Print(const Directive& directive)
    {
        switch (directive.letter) {
        case u'%': output.Append(u'%'); break;
        case u's': PrintText(directive, NextArgument()); break;
        case u'b': PrintText(directive, Unescaped(NextArgument())); break;
        case u'c': PrintText(directive, NextArgument().substr(0, 1)); break;
        case u'd':
        case u'i':
        case u'u':
        case u'o':
        case u'x':
        case u'X': PrintWhole(directive, WholeNumber(NextArgument())); break;
        case u'e':
        case u'E':
        case u'f':
        case u'F':
        case u'g':
        case u'G':
        case u'a':
        case u'A': PrintFloating(directive, FloatingNumber(NextArgument())); break;
        default: throw Refusal{errors::invalidFormat, CString(directive.written)};
        }
    }

    void PrintText(const Directive& directive, View text)
    {
        if (directive.precision >= 0)
            text = text.substr(0, static_cast<std::size_t>(directive.precision));
        const auto width = static_cast<std::size_t>(directive.width);
        const CString padding(width > text.size() ? width - text.size() : 0, u' ');
        output.Append(directive.Has('-') ? text : padding.view());
        output.Append(directive.Has('-') ? padding.view() : text);
    }

    // The pattern of C for a number of this kind.
    static std::string Pattern(const Directive& directive, std::string_view length)
    {
        std::string pattern = "%" + directive.flags + std::to_string(directive.width);
        if (directive.precision >= 0)
            pattern += "." + std::to_string(directive.precision);
        return pattern.append(length) + static_cast<char>(directive.letter);
    }

    template <typename Number> void PrintNumber(const std::string& pattern, Number number)
    {
        std::string text(static_cast<std::size_t>(std::snprintf(nullptr, 0, pattern.c_str(), number)) + 1,
                         '\0');
        std::snprintf(text.data(), text.size(), pattern.c_str(), number);
        output.Append(FromAscii(text.c_str()));
    }

    void PrintWhole(const Directive& directive, std::int64_t number)
    {
        PrintNumber(Pattern(directive, "ll"), static_cast<long long>(number));
    }

    void PrintFloating(const Directive& directive, double number)
    {
        PrintNumber(Pattern(directive, ""), number);
    }

    // A number, or the code of the character behind a quote.
    static std::int64_t WholeNumber(View text)
    {
        if (text.empty())
            return 0;
        if (text.size() > 1 && (text[0] == u'\'' || text[0] == u'"'))
            return text[1];
        const View digits = text.substr(text[0] == u'-' || text[0] == u'+' ? 1 : 0);
        std::size_t used = 0;
        const auto number = BeginsNoCase(digits, u"0x") ? ReadInteger(text, &used) : ReadDecimal(text, &used);
        if (!number || used != text.size())
            throw Refusal{errors::invalidNumber, CString(text)};
        return *number;
    }

    static double FloatingNumber(View text)
    {
        const std::string bytes = ToUtf8(text);
        char* end = nullptr;
        const double number = std::strtod(bytes.c_str(), &end);
        if (!bytes.empty() && *end != '\0')
            throw Refusal{errors::invalidNumber, CString(text)};
        return number;
    }

    View format;
    const std::vector<CString>& arguments;
    std::size_t next = 0;
    CString output;
};

} // namespace

std::vector<CString> SplitPrintfWords(View text)
{
    std::vector<CString> words;
    for (std::size_t start = 0;;) {
        start = text.find_first_not_of(u" \t", start);
        if (start == View::npos)
            return words;
        std::size_t end = start;
        for (; end < text.size() && !IsBlank(text[end]); ++end) {
            if (text[end] == u'"' || text[end] == u'`')
                end = std::min(text.find(text[end], end + 1), text.size() - 1);
        }
        View word = text.substr(start, end - start);
        const char16_t quote = word.front();
        if (word.size() > 1 && (quote == u'"' || quote == u'`') && word.find(quote, 1) == word.size() - 1)
            word = word.substr(1, word.size() - 2);
        words.emplace_back(word);
        start = end;
    }
}

PrintfAnswer FormatPrintf(View format, const std::vector<CString>& arguments)
{
    try {
        return {Formatter(format, arguments).Run(), 0, {}};
    } catch (const Refusal& refusal) {
        return {{}, refusal.code, refusal.culprit};
    }
}
