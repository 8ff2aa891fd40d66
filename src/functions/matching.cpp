// Texts matched by regular expressions.
//
// The expression comes first, as it may hold brackets that do not pair; one with commas stands in double
// quotes. The text holds whatever commas are left.
#include "functions/families.h"

#include <vector>

#include "engine/inifile.h"
#include "expand/expansion.h"
#include "files/regex.h"
#include "functions/answers.h"
#include "functions/arguments.h"
#include "lang/function_messages.h"

namespace {

using View = std::u16string_view;
using Groups = std::vector<Regex::Span>;

constexpr int invalidRegex = static_cast<int>(errors::invalidRegex);

RegexSyntax RegexSyntaxInForce() { return static_cast<RegexSyntax>(aIniFile.RegularExpressions); }

Regex Compile(View expression)
{
    return Regex(BareArgument(expression), RegexSyntaxInForce(), RegexMatch::Anywhere);
}

// From piece `first` to the end of piece `last`, the commas between them included.
View Joined(const std::vector<View>& pieces, std::size_t first, std::size_t last)
{
    const char16_t* start = pieces[first].data();
    return {start, static_cast<std::size_t>(pieces[last].data() + pieces[last].size() - start)};
}

View PartOf(View text, const Regex::Span& span)
{
    return span.start == View::npos ? View() : text.substr(span.start, span.length);
}

// The first match of "expression,text"; 0 or the error.
int FindMatch(const FunctionCall& call, Groups& groups)
{
    const std::vector<View> pieces = SplitFunctionArguments(call.arguments, call.syntax);
    if (pieces.size() < 2)
        return answer::missingArgument;
    const Regex regex = Compile(pieces[0]);
    if (!regex.IsValid())
        return invalidRegex;
    if (!regex.Search(Joined(pieces, 1, pieces.size() - 1), 0, &groups))
        groups.clear();
    return 0;
}

// A replacement with "\0" to "\9" filled in; "\" before anything else stands for that.
void AppendReplacement(CString& target, View replacement, View text, const Groups& groups)
{
    for (std::size_t at = 0; at < replacement.size(); ++at) {
        const bool special = replacement[at] == u'\\' && at + 1 < replacement.size();
        const char16_t unit = replacement[special ? ++at : at];
        const auto group = static_cast<std::size_t>(unit - u'0');
        if (!special || !IsDigit(unit))
            target.Append(unit);
        else if (group < groups.size())
            target.Append(PartOf(text, groups[group]));
    }
}

} // namespace

// @regex[expression,text]: whether some part of the text matches.
int Regex_Function(FunctionCall& call)
{
    Groups groups;
    const int code = FindMatch(call, groups);
    return code ? code : answer::Flag(call, !groups.empty());
}

// @regexindex[expression,text]: where the first match begins, or -1.
int Regexindex_Function(FunctionCall& call)
{
    Groups groups;
    if (const int code = FindMatch(call, groups))
        return code;
    return answer::Number(call, groups.empty() ? -1 : static_cast<std::int64_t>(groups[0].start));
}

// @regexsub[expression,text,n]: what group n matched, empty when there is none; 0 is the whole match.
int Regexsub_Function(FunctionCall& call)
{
    const std::vector<View> pieces = SplitFunctionArguments(call.arguments, call.syntax);
    if (pieces.size() < 3)
        return answer::missingArgument;
    std::int64_t n = 0;
    if (!ReadNumberArgument(pieces.back(), n))
        return answer::invalidNumber;
    const Regex regex = Compile(pieces[0]);
    if (!regex.IsValid())
        return invalidRegex;
    const View text = Joined(pieces, 1, pieces.size() - 2);
    Groups groups;
    regex.Search(text, 0, &groups);
    const auto count = static_cast<std::int64_t>(groups.size());
    n = n < 0 ? n + count : n;
    return answer::Text(call,
                        n >= 0 && n < count ? PartOf(text, groups[static_cast<std::size_t>(n)]) : View());
}

// @rereplace[expression,replacement,text]: every match replaced; "\1" is what the first group matched.
int Rereplace_Function(FunctionCall& call)
{
    const std::vector<View> pieces = SplitFunctionArguments(call.arguments, call.syntax);
    if (pieces.size() < 3)
        return answer::missingArgument;
    const Regex regex = Compile(pieces[0]);
    if (!regex.IsValid())
        return invalidRegex;
    const View replacement = BareArgument(pieces[1]);
    const View text = Joined(pieces, 2, pieces.size() - 1);
    CString changed;
    std::size_t done = 0;
    regex.ForEach(text, [&](const Groups& groups) {
        changed.Append(text.substr(done, groups[0].start - done));
        AppendReplacement(changed, replacement, text, groups);
        done = groups[0].start + groups[0].length;
        return changed.size() <= longestExpansion;
    });
    changed.Append(text.substr(done));
    return changed.size() > longestExpansion ? answer::tooLong : answer::Text(call, changed);
}

// @email[text]: 1 when the text has the form of an address of electronic mail, "name@host.domain".
int Email_Function(FunctionCall& call)
{
    const Regex address(uR"([\w!#$%&'*+/=?^`{|}~-]+(?:\.[\w!#$%&'*+/=?^`{|}~-]+)*)"
                        uR"(@(?:[A-Za-z0-9](?:[A-Za-z0-9-]{0,61}[A-Za-z0-9])?\.)+[A-Za-z]{2,63})",
                        RegexSyntax::Perl, RegexMatch::Whole);
    constexpr std::size_t longestAddress = 254;
    const CString text = CString(call.arguments).Trim();
    return answer::Flag(call, text.size() <= longestAddress && address.Search(text));
}
