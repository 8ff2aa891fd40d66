#include "core/alias_substitution.h"

#include <algorithm>
#include <limits>

#include "text/compare.h"
#include "text/format.h"
#include "text/numbers.h"
#include "text/scanner.h"
#include "text/words.h"

namespace {

constexpr std::size_t npos = std::u16string_view::npos;
constexpr int allArguments = std::numeric_limits<int>::max();

bool EndsAliasName(char16_t unit, const Syntax& syntax)
{
    return unit == syntax.commandSep || std::u16string_view(u" \t\r\n,;=&|<>\"`()+").find(unit) != npos;
}

class Substitution {
public:
    Substitution(std::u16string_view aliasValue, std::u16string_view commandArguments,
                 const Syntax& syntaxInForce)
        : value(aliasValue), arguments(commandArguments), syntax(syntaxInForce)
    {}

    CString Run()
    {
        std::size_t from = 0;
        for (;;) {
            const std::size_t percent = scan(value, u"%", quotes::back, syntax, from);
            if (percent == npos)
                break;
            const std::size_t behind = ReadParameter(percent + 1);
            if (behind == npos) {
                // Some other reference: left for variable expansion, both of a doubled "%".
                from = percent + (value.substr(percent + 1, 1) == u"%" ? 2 : 1);
                continue;
            }
            result.Append(value.substr(copied, percent - copied)).Append(replacement);
            copied = from = behind;
        }
        result.Append(value.substr(copied));
        AppendUnused();
        return std::move(result);
    }

private:
    // Reads the parameter behind a "%" into `replacement`; npos when it is none.
    std::size_t ReadParameter(std::size_t at)
    {
        auto unit = [&](std::size_t i) { return i < value.size() ? value[i] : u'\0'; };
        if (unit(at) == u'#') {
            replacement = Format(u"%d", CountArguments(arguments, syntax));
            return at + 1;
        }
        if (unit(at) == syntax.parameterChar && !IsLetterOrDigit(unit(at + 1)) && unit(at + 1) != u'_') {
            Take(1, true);
            return at + 1;
        }
        const bool upTo = unit(at) == u'-';
        const std::size_t digits = at + (upTo ? 1 : 0);
        if (!IsDigit(unit(digits)))
            return npos;
        std::size_t used = 0;
        const auto number = ReadDecimal(value.substr(digits), &used);
        const int n = static_cast<int>(std::min<std::int64_t>(*number, 32767));
        const bool tail = unit(digits + used) == syntax.parameterChar;
        if (upTo && !tail)
            return npos;
        if (upTo)
            TakeUpTo(n);
        else
            Take(n, tail);
        return digits + used + (tail ? 1 : 0);
    }

    void Take(int n, bool tail)
    {
        replacement = tail    ? CString(TailFromArgument(arguments, n - 1, syntax))
                      : n > 0 ? GetNthArgument(arguments, n - 1, syntax)
                              : CString();
        highestUsed = std::max(highestUsed, tail ? allArguments : n);
    }

    void TakeUpTo(int n)
    {
        std::size_t behind = 0;
        Word word = NextWord(arguments, 0, syntax);
        const std::size_t start = word.start;
        for (int i = 0; i < n && word.length > 0; ++i) {
            behind = word.end();
            word = NextWord(arguments, behind, syntax);
        }
        replacement = behind > start ? arguments.substr(start, behind - start) : std::u16string_view();
        replacement.TrimRight();
        // Counts one argument fewer than it inserts.
        highestUsed = std::max(highestUsed, n - 1);
    }

    void AppendUnused()
    {
        if (highestUsed == allArguments)
            return;
        if (highestUsed == 0) {
            result.Append(arguments);
            return;
        }
        const std::u16string_view unused = TailFromArgument(arguments, highestUsed, syntax);
        if (!unused.empty())
            result.Append(u' ').Append(unused);
    }

    std::u16string_view value;
    std::u16string_view arguments;
    const Syntax& syntax;
    CString result;
    CString replacement;
    std::size_t copied = 0;
    int highestUsed = 0;
};

} // namespace

AliasName ReadAliasName(std::u16string_view command, const Syntax& syntax)
{
    AliasName read;
    read.start = std::min(command.find_first_not_of(u" \t"), command.size());
    read.end = read.start;
    if (read.start < command.size() && command[read.start] == u'*') {
        read.bypassed = true;
        return read;
    }
    std::size_t nameStart = read.start;
    while (nameStart < command.size() && command[nameStart] == u'@')
        ++nameStart;
    read.end = nameStart;
    while (read.end < command.size() && !EndsAliasName(command[read.end], syntax))
        ++read.end;
    read.name = command.substr(nameStart, read.end - nameStart);
    return read;
}

CString SubstituteAliasParameters(std::u16string_view value, std::u16string_view arguments,
                                  const Syntax& syntax)
{
    return Substitution(value, arguments, syntax).Run();
}
