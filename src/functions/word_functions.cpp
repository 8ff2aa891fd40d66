// Words and fields of a text.
#include "functions/families.h"

#include <vector>

#include "functions/answers.h"
#include "functions/arguments.h"
#include "functions/word_cutting.h"
#include "text/compare.h"
#include "text/format.h"
#include "text/words.h"

namespace {

using View = std::u16string_view;

using Splitter = std::vector<View> (*)(View text, View separators);

int AnswerPart(FunctionCall& call, Splitter split)
{
    const FunctionArguments arguments(call, u"sn|q");
    if (arguments.Error())
        return arguments.Error();
    const std::vector<View> parts =
        split(arguments.Text(0), arguments.Has(2) ? arguments.Text(2) : usualSeparators);
    const std::int64_t count = static_cast<std::int64_t>(parts.size());
    const std::int64_t n = arguments.Number(1) < 0 ? arguments.Number(1) + count : arguments.Number(1);
    call.value = n >= 0 && n < count ? parts[static_cast<std::size_t>(n)] : View();
    return 0;
}

int AnswerCount(FunctionCall& call, Splitter split)
{
    const FunctionArguments arguments(call, u"s|q");
    const View separators = arguments.Has(1) ? arguments.Text(1) : usualSeparators;
    call.value = Format(u"%u", split(arguments.Text(0), separators).size());
    return 0;
}

} // namespace

std::vector<View> SplitFields(View text, View separators)
{
    std::vector<View> fields;
    std::size_t start = 0;
    for (std::size_t at = 0; at < text.size(); ++at) {
        // A separator may be the quote itself.
        if (separators.find(text[at]) != View::npos) {
            fields.push_back(text.substr(start, at - start));
            start = at + 1;
        } else if (text[at] == u'"') {
            const std::size_t closing = text.find(u'"', at + 1);
            at = closing == View::npos ? at : closing;
        }
    }
    if (!text.empty())
        fields.push_back(text.substr(start));
    return fields;
}

std::vector<View> SplitWords(View text, View separators)
{
    std::vector<View> words = SplitFields(text, separators);
    std::erase_if(words, [](View word) { return word.empty(); });
    return words;
}

// @word[text,n[,"separators"]]: word n, counted from 0, or from the end when negative.
int Word_Function(FunctionCall& call) { return AnswerPart(call, SplitWords); }
// @words[text[,"separators"]]: how many words there are.
int Words_Function(FunctionCall& call) { return AnswerCount(call, SplitWords); }
// @field[text,n[,"separators"]], @fields[text[,"separators"]]
int Field_Function(FunctionCall& call) { return AnswerPart(call, SplitFields); }
int Fields_Function(FunctionCall& call) { return AnswerCount(call, SplitFields); }

namespace {

View Unquoted(View text)
{
    return text.size() > 1 && text.front() == u'"' && text.back() == u'"' ? text.substr(1, text.size() - 2)
                                                                          : text;
}

// The value of the switch in the arguments: what follows its ":" or "=", "1" when nothing does, empty when it
// is not there.
View SwitchValue(View arguments, View wanted)
{
    for (Word at = NextBlankWord(arguments, 0); at.length > 0; at = NextBlankWord(arguments, at.end())) {
        const View word = arguments.substr(at.start, at.length);
        if (!BeginsNoCase(word, wanted))
            continue;
        const View rest = word.substr(wanted.size());
        if (rest.empty())
            return u"1";
        if (rest[0] == u':' || rest[0] == u'=')
            return Unquoted(rest.substr(1));
    }
    return {};
}

} // namespace

// @parse[arguments,/name]: the value of a switch. @parse[arguments,n]: argument n that is no switch.
int Parse_Function(FunctionCall& call)
{
    const FunctionArguments arguments(call, u"st");
    if (arguments.Error())
        return arguments.Error();
    const View text = arguments.Text(0);
    CString wanted(arguments.Text(1));
    const char16_t switchChar = call.syntax.switchChar;
    if (wanted.Trim().front() == switchChar)
        return answer::Text(call, SwitchValue(text, wanted));
    std::int64_t n = 0;
    if (!ReadNumberArgument(wanted, n))
        return answer::invalidNumber;
    std::vector<View> plain;
    for (Word at = NextBlankWord(text, 0); at.length > 0; at = NextBlankWord(text, at.end())) {
        if (text[at.start] != switchChar)
            plain.push_back(text.substr(at.start, at.length));
    }
    const auto count = static_cast<std::int64_t>(plain.size());
    n = n < 0 ? n + count : n;
    return answer::Text(call, n >= 0 && n < count ? Unquoted(plain[static_cast<std::size_t>(n)]) : View());
}
