// Cutting, joining and changing texts.
#include "functions/families.h"

#include <algorithm>
#include <vector>

#include "expand/expansion.h"
#include "functions/answers.h"
#include "functions/arguments.h"
#include "text/compare.h"
#include "text/numbers.h"
#include "text/words.h"

namespace {

using View = std::u16string_view;

constexpr std::size_t npos = View::npos;
constexpr View blanks = u" \t";

// A place counted from the start, or from the end when negative, kept inside 0 to `size`.
std::size_t Place(std::int64_t n, std::size_t size)
{
    const std::int64_t length = static_cast<std::int64_t>(size);
    return static_cast<std::size_t>(n < 0 ? std::max<std::int64_t>(length + std::max(n, -length), 0)
                                          : std::min(n, length));
}

View TrimLeft(View text, View set) { return text.substr(std::min(text.find_first_not_of(set), text.size())); }
View TrimRight(View text, View set) { return text.substr(0, text.find_last_not_of(set) + 1); }

// The characters to be trimmed: the second argument, or blanks.
View TrimSet(const FunctionArguments& arguments) { return arguments.Has(1) ? arguments.Text(1) : blanks; }

} // namespace

// @len[text]: the number of characters.
int Len_Function(FunctionCall& call)
{
    return answer::Number(call, static_cast<std::int64_t>(call.arguments.size()));
}

// @upper[text], @lower[text]
int Upper_Function(FunctionCall& call)
{
    answer::Text(call, call.arguments);
    MakeUpper(call.value);
    return 0;
}

int Lower_Function(FunctionCall& call)
{
    answer::Text(call, call.arguments);
    MakeLower(call.value);
    return 0;
}

// @caps[text[,"separators"]]: the first letter of each word in upper case, the others as they are.
int Caps_Function(FunctionCall& call)
{
    const FunctionArguments arguments(call, u"s|q");
    const View separators = arguments.Has(1) ? arguments.Text(1) : u" \t,";
    answer::Text(call, arguments.Text(0));
    bool start = true;
    for (std::size_t at = 0; at < call.value.size(); ++at) {
        if (start)
            call.value.Set(at, UpperCase(call.value[at]));
        start = separators.find(call.value[at]) != npos;
    }
    return 0;
}

// @left[text,n]: the first n characters, or all but the last -n.
int Left_Function(FunctionCall& call)
{
    const FunctionArguments arguments(call, u"sn");
    const View text = arguments.Text(0);
    return arguments.Error() ? arguments.Error()
                             : answer::Text(call, text.substr(0, Place(arguments.Number(1), text.size())));
}

// @right[text,n]: the last n characters, or all but the first -n.
int Right_Function(FunctionCall& call)
{
    const FunctionArguments arguments(call, u"sn");
    const View text = arguments.Text(0);
    const std::int64_t count = arguments.Number(1);
    const std::int64_t size = static_cast<std::int64_t>(text.size());
    const std::int64_t start = count >= 0 ? size - std::min(count, size) : -std::max(count, -size);
    return arguments.Error() ? arguments.Error()
                             : answer::Text(call, text.substr(static_cast<std::size_t>(start)));
}

// @substr[text,start[,length]] and @instr: from `start`, at most `length` characters or up to the last
// -length.
int Substr_Function(FunctionCall& call)
{
    const FunctionArguments arguments(call, u"sn|n");
    if (arguments.Error())
        return arguments.Error();
    View text = arguments.Text(0);
    text.remove_prefix(Place(arguments.Number(1), text.size()));
    return answer::Text(call,
                        text.substr(0, arguments.Has(2) ? Place(arguments.Number(2), text.size()) : npos));
}

// @index[text,what[,n]]: where the nth occurrence begins, or -1; the first is 0, the last -1. Case does not
// count.
int Index_Function(FunctionCall& call)
{
    const FunctionArguments arguments(call, u"st|n");
    if (arguments.Error())
        return arguments.Error();
    const View text = arguments.Text(0);
    const View what = arguments.Text(1);
    std::int64_t wanted = arguments.Number(2);
    std::vector<std::size_t> places;
    if (!what.empty()) {
        for (std::size_t at = FindNoCase(text, what); at != npos; at = FindNoCase(text, what, at + 1))
            places.push_back(at);
    }
    const std::int64_t count = static_cast<std::int64_t>(places.size());
    wanted = wanted < 0 ? wanted + count : wanted;
    const bool found = wanted >= 0 && wanted < count;
    return answer::Number(call,
                          found ? static_cast<std::int64_t>(places[static_cast<std::size_t>(wanted)]) : -1);
}

// @count[text,what]: how often `what` occurs; occurrences do not overlap. Case does not count.
int Count_Function(FunctionCall& call)
{
    const FunctionArguments arguments(call, u"st");
    if (arguments.Error())
        return arguments.Error();
    const View what = arguments.Text(1);
    std::int64_t count = 0;
    if (!what.empty()) {
        for (std::size_t at = FindNoCase(arguments.Text(0), what); at != npos;
             at = FindNoCase(arguments.Text(0), what, at + what.size()))
            ++count;
    }
    return answer::Number(call, count);
}

// @insert[text,n,insertion]: `insertion` put in front of character n, behind all of them when n is the
// length.
int Insert_Function(FunctionCall& call)
{
    const FunctionArguments arguments(call, u"snt");
    if (arguments.Error())
        return arguments.Error();
    answer::Text(call, arguments.Text(0));
    call.value.Insert(Place(arguments.Number(1), call.value.size()), arguments.Text(2));
    return 0;
}

// @replace[text,old,new]: every `old` replaced by `new`. Case does not count.
int Replace_Function(FunctionCall& call)
{
    const FunctionArguments arguments(call, u"stt");
    if (arguments.Error())
        return arguments.Error();
    const View text = arguments.Text(0);
    const View old = arguments.Text(1);
    std::size_t from = 0;
    call.value.Clear();
    for (std::size_t at; !old.empty() && (at = FindNoCase(text, old, from)) != npos; from = at + old.size()) {
        call.value.Append(text.substr(from, at - from)).Append(arguments.Text(2));
        if (call.value.size() > longestExpansion)
            return answer::tooLong;
    }
    call.value.Append(text.substr(from));
    return 0;
}

// @strip[text,characters]: without any of the characters.
int Strip_Function(FunctionCall& call)
{
    const FunctionArguments arguments(call, u"st");
    if (arguments.Error())
        return arguments.Error();
    call.value.Clear();
    for (const char16_t unit : arguments.Text(0)) {
        if (arguments.Text(1).find(unit) == npos)
            call.value.Append(unit);
    }
    return 0;
}

// @filter[text,characters]: the other way round, the characters alone.
int Filter_Function(FunctionCall& call)
{
    const FunctionArguments arguments(call, u"st");
    if (arguments.Error())
        return arguments.Error();
    call.value.Clear();
    for (const char16_t unit : arguments.Text(0)) {
        if (arguments.Text(1).find(unit) != npos)
            call.value.Append(unit);
    }
    return 0;
}

// @trim, @ltrim, @rtrim[text[,"characters"]]: without the characters (blanks) at both ends or at one.
int Trim_Function(FunctionCall& call)
{
    const FunctionArguments arguments(call, u"s|q");
    const View set = TrimSet(arguments);
    return answer::Text(call, TrimLeft(TrimRight(arguments.Text(0), set), set));
}

int Ltrim_Function(FunctionCall& call)
{
    const FunctionArguments arguments(call, u"s|q");
    return answer::Text(call, TrimLeft(arguments.Text(0), TrimSet(arguments)));
}

int Rtrim_Function(FunctionCall& call)
{
    const FunctionArguments arguments(call, u"s|q");
    return answer::Text(call, TrimRight(arguments.Text(0), TrimSet(arguments)));
}

// @trimall[text]: without blanks at the ends, and with one blank in the place of several.
int Trimall_Function(FunctionCall& call)
{
    call.value.Clear();
    for (const char16_t unit : TrimLeft(TrimRight(call.arguments, blanks), blanks)) {
        if (!IsBlank(unit))
            call.value.Append(unit);
        else if (call.value.back() != u' ')
            call.value.Append(u' ');
    }
    return 0;
}

// @repeat[text,n]
int Repeat_Function(FunctionCall& call)
{
    const FunctionArguments arguments(call, u"sn");
    const View text = arguments.Text(0);
    const std::int64_t count = arguments.Number(1);
    if (arguments.Error() || count < 0)
        return arguments.Error() ? arguments.Error() : answer::invalidNumber;
    if (!text.empty() && static_cast<std::uint64_t>(count) > longestExpansion / text.size())
        return answer::tooLong;
    call.value.Clear();
    for (std::int64_t i = 0; i < count && !text.empty(); ++i)
        call.value.Append(text);
    return 0;
}

// @reverse[text]. A character of two units stays in order.
int Reverse_Function(FunctionCall& call)
{
    CString reversed(call.arguments);
    char16_t* units = reversed.empty() ? nullptr : reversed.Edit();
    std::reverse(units, units + reversed.size());
    for (std::size_t at = 1; at < reversed.size(); ++at) {
        const bool pair = (units[at - 1] & 0xFC00) == 0xDC00 && (units[at] & 0xFC00) == 0xD800;
        if (pair)
            std::swap(units[at - 1], units[at]);
    }
    call.value = reversed;
    return 0;
}

// @quote[text]: in double quotes when it holds a character that would part it or end the command.
int Quote_Function(FunctionCall& call) { return answer::Text(call, AddQuotes(call.arguments)); }
// @unquote[text]: without the double quotes around it. @unquotes[text]: without any.
int Unquote_Function(FunctionCall& call) { return answer::Text(call, WithoutOuterQuotes(call.arguments)); }
int Unquotes_Function(FunctionCall& call) { return answer::Text(call, WithoutQuotes(call.arguments)); }

// @format[text,[-][0][width][.most]]: filled with blanks (or zeros) on the left, with "-" on the right, and
// cut to `most` characters.
int Format_Function(FunctionCall& call)
{
    const FunctionArguments arguments(call, u"st");
    if (arguments.Error())
        return arguments.Error();
    View text = arguments.Text(0);
    View spec = arguments.Text(1);
    const bool left = spec.starts_with(u'-');
    spec.remove_prefix(left ? 1 : 0);
    const char16_t filler = spec.starts_with(u'0') && !left ? u'0' : u' ';
    std::size_t used = 0;
    const bool hasWidth = !spec.empty() && IsDigit(spec[0]);
    const std::int64_t width = hasWidth ? ReadDecimal(spec, &used).value_or(0) : 0;
    spec.remove_prefix(used);
    if (spec.starts_with(u'.')) {
        const auto most = ReadDecimal(spec.substr(1), &used);
        if (!most || *most < 0 || used + 1 != spec.size())
            return answer::invalidNumber;
        text = text.substr(0, static_cast<std::size_t>(*most));
    } else if (!spec.empty()) {
        return answer::invalidNumber;
    }
    if (static_cast<std::uint64_t>(width) > longestExpansion)
        return answer::tooLong;
    const std::size_t wanted = static_cast<std::size_t>(width);
    const CString padding(wanted > text.size() ? wanted - text.size() : 0, filler);
    answer::Text(call, left ? text : padding.view());
    call.value.Append(left ? padding.view() : text);
    return 0;
}
