#include "console/inner_commands.h"

#include <algorithm>
#include <array>

#include "text/compare.h"
#include "text/scanner.h"
#include "text/words.h"

namespace {

constexpr std::size_t npos = std::u16string_view::npos;

template <std::size_t count>
bool IsOneOf(std::u16string_view word, const std::array<std::u16string_view, count>& names)
{
    return std::any_of(names.begin(), names.end(),
                       [&](std::u16string_view name) { return EqualNoCase(name, word); });
}

// Commands whose argument is another command.
struct CommandTaker {
    std::u16string_view name;
    int wordsBefore;   // arguments in front of it
    bool titleFirst;   // a title in quotes may stand there, too
    bool takesAnyFile; // a document is as good as a program
};
constexpr std::array<CommandTaker, 11> commandTakers = {{
    {u"CALL", 0, false, false},
    {u"CHRONIC", 0, false, false},
    {u"DEFER", 0, false, false},
    {u"DETACH", 0, false, false},
    {u"EXCEPT", 1, false, false},
    {u"EXEC", 0, false, false},
    {u"GLOBAL", 0, false, false},
    {u"ON", 1, false, false},
    {u"REPEAT", 1, false, false},
    {u"START", 0, true, true},
    {u"THREAD", 0, false, false},
}};

constexpr std::array<std::u16string_view, 14> oneOperandTests = {
    u"DEFINED",    u"DIREXIST",   u"EXIST",   u"ISALIAS",  u"ISAPP",         u"ISDIR",  u"ISFILE",
    u"ISFUNCTION", u"ISINTERNAL", u"ISLABEL", u"ISWINDOW", u"CMDEXTVERSION", u"PLUGIN", u"ISPLUGIN"};
constexpr std::array<std::u16string_view, 6> junctions = {u"AND", u"OR", u"XOR", u".AND.", u".OR.", u".XOR."};
// What stands in parentheses behind these words of DO is none of its commands.
constexpr std::array<std::u16string_view, 3> headerWords = {u"IN", u"UNTIL", u"WHILE"};

// Behind the condition of an IF that begins at `from`; npos while the cursor stands in it.
std::size_t PassCondition(std::u16string_view text, std::size_t from, const Syntax& syntax)
{
    WholeWords words(text, from, syntax);
    for (;;) {
        do {
            if (!words.NextArgument())
                return npos;
        } while (EqualNoCase(words.word, u"NOT"));
        const std::size_t equals = words.word.find(u"==");
        if (IsOneOf(words.word, oneOperandTests)) {
            if (!words.Next())
                return npos;
        } else if (EqualNoCase(words.word, u"ERRORLEVEL")) {
            if (!words.Next())
                return npos;
            if (!IsDigit(words.word.back()) && !words.Next())
                return npos;
        } else if (equals == npos || equals + 2 == words.word.size()) {
            const bool operatorToo = equals == npos; // "a == b", "a==b" or "a== b"
            if ((operatorToo && !words.Next()) || !words.Next())
                return npos;
        }
        const std::size_t behind = words.at;
        if (!words.Next() || !IsOneOf(words.word, junctions))
            return behind;
    }
}

// Behind the DO of a FOR command; npos while the cursor stands before it.
std::size_t PassForHeader(std::u16string_view text, std::size_t from, const Syntax& syntax)
{
    WholeWords words(text, from, syntax);
    while (words.Next())
        if (EqualNoCase(words.word, u"DO"))
            return words.at;
    return npos;
}

// Behind the parenthesis that opens the body of a DO command; npos when there is none yet.
std::size_t PassDoHeader(std::u16string_view text, std::size_t from, const Syntax& syntax)
{
    for (std::size_t at = from;;) {
        at = scan(text, u"(", quotes::both, syntax, at);
        if (at == npos)
            return npos;
        const std::size_t last = text.find_last_not_of(u" \t", at - 1);
        const std::size_t wordStart = text.find_last_of(u" \t", last) + 1;
        const std::u16string_view word = text.substr(wordStart, last + 1 - wordStart);
        const std::size_t closing = FindClosing(text, at, quotes::both, syntax);
        const bool ends = closing == npos || text.find_first_not_of(u" \t)", closing) == npos;
        if (last + 1 < at && ends && wordStart > from && !IsOneOf(word, headerWords))
            return at + 1;
        at = closing == npos ? at + 1 : closing + 1;
    }
}

// The command that `taker` takes; npos while the cursor stands before its name. `mayBeTitle` tells whether a
// word in quotes there would be a title.
std::size_t FindTaken(const CommandTaker& taker, std::u16string_view text, std::size_t from,
                      const Syntax& syntax, bool& mayBeTitle)
{
    mayBeTitle = taker.titleFirst;
    for (int before = taker.wordsBefore;;) {
        const Word word = NextWord(text, from, syntax);
        if (word.length == 0)
            return before == 0 ? text.size() : npos;
        const bool isSwitch = text[word.start] == syntax.switchChar;
        const bool title = mayBeTitle && text[word.start] == u'"';
        if (before == 0 && !isSwitch && !title)
            return word.start;
        if (word.end() >= text.size())
            return npos;
        mayBeTitle = mayBeTitle && isSwitch;
        before -= isSwitch || title ? 0 : 1;
        from = word.end();
    }
}

std::size_t PassBlanksAndParentheses(std::u16string_view text, std::size_t at)
{
    return std::min(text.find_first_not_of(u" \t()", at), text.size());
}

} // namespace

WholeWords::WholeWords(std::u16string_view line, std::size_t from, const Syntax& syntaxInForce)
    : text(line), at(from), syntax(syntaxInForce)
{}

bool WholeWords::Next()
{
    const Word found = NextWord(text, at, syntax);
    if (found.length == 0 || found.end() >= text.size())
        return false;
    word = text.substr(found.start, found.length);
    start = found.start;
    at = found.end();
    return true;
}

bool WholeWords::NextArgument()
{
    while (Next())
        if (word[0] != syntax.switchChar)
            return true;
    return false;
}

bool FindTakenCommand(std::u16string_view text, std::size_t command, const Syntax& syntax,
                      CommandStart& taken)
{
    WholeWords words(text, command, syntax);
    if (!words.Next() || words.start != command)
        return false;
    std::u16string_view name = words.word;
    while (!name.empty() && (name[0] == u'@' || name[0] == u'*'))
        name.remove_prefix(1);
    const auto taker = std::find_if(commandTakers.begin(), commandTakers.end(),
                                    [&](const CommandTaker& row) { return EqualNoCase(row.name, name); });
    const bool isTaker = taker != commandTakers.end();
    bool mayBeTitle = false;
    const std::size_t at = EqualNoCase(name, u"ELSE")  ? words.at
                           : EqualNoCase(name, u"IF")  ? PassCondition(text, words.at, syntax)
                           : EqualNoCase(name, u"FOR") ? PassForHeader(text, words.at, syntax)
                           : EqualNoCase(name, u"DO")  ? PassDoHeader(text, words.at, syntax)
                           : isTaker                   ? FindTaken(*taker, text, words.at, syntax, mayBeTitle)
                                                       : npos;
    if (at == npos)
        return false;
    taken = {PassBlanksAndParentheses(text, at), isTaker && taker->takesAnyFile, mayBeTitle};
    return true;
}

CommandStart FindInnerCommand(std::u16string_view text, std::size_t from, const Syntax& syntax)
{
    CommandStart found{PassBlanksAndParentheses(text, from), false, false};
    while (FindTakenCommand(text, found.at, syntax, found))
        ;
    return found;
}
