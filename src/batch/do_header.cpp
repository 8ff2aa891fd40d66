#include "batch/do_header.h"

#include "batch/condition_parser.h"
#include "batch/iff_blocks.h"
#include "text/compare.h"
#include "text/scanner.h"

namespace {

constexpr std::size_t npos = std::u16string_view::npos;
constexpr std::u16string_view spaces = u" \t\r\n";

std::u16string_view Trimmed(std::u16string_view text)
{
    const std::size_t first = text.find_first_not_of(spaces);
    return first == npos ? std::u16string_view()
                         : text.substr(first, text.find_last_not_of(spaces) - first + 1);
}

// Where the parenthesised body at the end of the command opens; npos when there is none.
std::size_t FindBody(std::u16string_view text, const Syntax& syntax)
{
    for (std::size_t at = scan(text, u"(", quotes::both, syntax); at != npos;
         at = scan(text, u"(", quotes::both, syntax, at)) {
        const std::size_t closing = FindClosing(text, at, quotes::both, syntax);
        const bool parted = at > 0 && spaces.find(text[at - 1]) != npos;
        if (closing == npos)
            return npos;
        if (parted && Trimmed(text.substr(closing + 1)).empty())
            return at;
        at = closing + 1;
    }
    return npos;
}

struct Words {
    std::u16string_view text;
    const Syntax& syntax;

    // Takes the first word off.
    std::u16string_view Take()
    {
        text = Trimmed(text);
        const std::u16string_view word = text.substr(0, EndOfRawWord(text, 0, syntax));
        text = Trimmed(text.substr(word.size()));
        return word;
    }
};

// Where a keyword stands as a word of its own, at or after `from`; npos when it does not.
std::size_t FindKeyword(std::u16string_view text, std::u16string_view keyword, const Syntax& syntax)
{
    for (std::size_t at = 0; at < text.size();) {
        const std::size_t start = text.find_first_not_of(spaces, at);
        if (start == npos)
            return npos;
        at = EndOfRawWord(text, start, syntax);
        if (EqualNoCase(text.substr(start, at - start), keyword))
            return start;
    }
    return npos;
}

// "a TO b BY c" behind the equal sign.
bool ReadRange(std::u16string_view text, const Syntax& syntax, DoHeader& header)
{
    const std::size_t to = FindKeyword(text, u"TO", syntax);
    if (to == npos)
        return false;
    header.kind = DoKind::Counter;
    header.first = Trimmed(text.substr(0, to));
    const std::u16string_view behind = text.substr(to + 2);
    const std::size_t by = FindKeyword(behind, u"BY", syntax);
    header.last = Trimmed(behind.substr(0, by));
    if (by != npos)
        header.step = Trimmed(behind.substr(by + 2));
    return !header.first.empty() && !header.last.empty() && (by == npos || !header.step.empty());
}

bool ReadCondition(DoKind kind, std::u16string_view text, DoHeader& header)
{
    header.kind = kind;
    header.first = text;
    return !text.empty();
}

bool ReadHeaderText(std::u16string_view text, const Syntax& syntax, DoHeader& header)
{
    Words words{text, syntax};
    const std::u16string_view first = words.Take();
    if (first.empty() || EqualNoCase(first, u"FOREVER"))
        return words.text.empty();
    if (EqualNoCase(first, u"WHILE"))
        return ReadCondition(DoKind::While, words.text, header);
    if (EqualNoCase(first, u"UNTIL"))
        return ReadCondition(DoKind::Until, words.text, header);
    const std::size_t equals = text.find(u'=');
    const bool named = first[0] != u'%' && !IsDigit(first[0]);
    if (named && (words.text.starts_with(u'=') || first.find(u'=') != npos)) {
        header.variable = Trimmed(text.substr(0, equals));
        return !header.variable.empty() && ReadRange(text.substr(equals + 1), syntax, header);
    }
    const std::u16string_view behind = words.text;
    if (named && EqualNoCase(words.Take(), u"IN")) {
        header.kind = DoKind::Walk;
        header.variable = first;
        header.first = words.text;
        return !words.text.empty();
    }
    header.kind = DoKind::Times;
    header.first = first;
    return behind.empty();
}

std::u16string_view FirstWord(std::u16string_view line)
{
    const std::size_t start = line.find_first_not_of(u" \t@*");
    if (start == npos)
        return {};
    std::size_t end = start;
    while (end < line.size() && IsLetterOrDigit(line[end]))
        ++end;
    // A name with more in it is the name of a program.
    if (end < line.size() && std::u16string_view(u"._$\\:").find(line[end]) != npos)
        return {};
    return line.substr(start, end - start);
}

} // namespace

bool ReadDoHeader(std::u16string_view text, const Syntax& syntax, DoHeader& header)
{
    text = Trimmed(text);
    const std::size_t body = FindBody(text, syntax);
    if (body != npos) {
        DoHeader withBody;
        if (ReadHeaderText(Trimmed(text.substr(0, body)), syntax, withBody)) {
            withBody.hasBody = true;
            withBody.body = text.substr(body + 1, text.rfind(u')') - body - 1);
            header = withBody;
            return true;
        }
    }
    return ReadHeaderText(text, syntax, header);
}

DoLine ClassifyDoLine(std::u16string_view line, const Syntax& syntax)
{
    const std::u16string_view word = FirstWord(line);
    if (EqualNoCase(word, u"ENDDO"))
        return DoLine::Closes;
    if (EqualNoCase(word, u"TEXT"))
        return DoLine::Text;
    if (EqualNoCase(word, u"COMMENT"))
        return DoLine::Comment;
    if (!EqualNoCase(word, u"DO"))
        return DoLine::Other;
    // With its body in parentheses it needs no ENDDO.
    const std::u16string_view rest = Trimmed(line);
    return rest.ends_with(u'(') || FindBody(rest, syntax) != npos ? DoLine::Other : DoLine::Opens;
}

LoopWord ReadLoopWord(std::u16string_view command, std::size_t& end)
{
    struct Row {
        std::u16string_view name;
        LoopWord word;
    };
    static constexpr Row rows[] = {{u"ENDDO", LoopWord::EndDo},
                                   {u"ITERATE", LoopWord::Iterate},
                                   {u"LEAVE", LoopWord::Leave},
                                   {u"LEAVEFOR", LoopWord::LeaveFor}};
    const std::u16string_view word = FirstWord(command);
    for (const Row& row : rows) {
        if (EqualNoCase(row.name, word)) {
            end = static_cast<std::size_t>(word.data() - command.data()) + word.size();
            return row.word;
        }
    }
    return LoopWord::None;
}
