#include "batch/for_header.h"

#include "batch/condition_parser.h"
#include "text/compare.h"
#include "text/scanner.h"

namespace {

constexpr std::size_t npos = std::u16string_view::npos;
constexpr std::u16string_view spaces = u" \t\r\n";

class HeaderReader {
public:
    HeaderReader(std::u16string_view over, const Syntax& inForce, ForHeader& into)
        : text(over), syntax(inForce), header(into)
    {}

    bool Run() { return ReadSwitches() && ReadVariable() && ReadSet() && ReadCommand(); }

private:
    void PassSpaces()
    {
        const std::size_t next = text.find_first_not_of(spaces, at);
        at = next == npos ? text.size() : next;
    }

    // The next word without taking it; references in it are kept whole.
    std::u16string_view Peek()
    {
        PassSpaces();
        return text.substr(at, EndOfRawWord(text, at, syntax) - at);
    }

    // The name of the variable: "%%x" in batch files, "%x" at the prompt, followed by IN.
    bool StartsVariable()
    {
        const std::u16string_view word = Peek();
        if (word.size() < 2 || word[0] != u'%')
            return false;
        const std::size_t behind = text.find_first_not_of(spaces, at + word.size());
        return behind != npos && StartsWord(behind, u"IN");
    }

    // A keyword may touch the parenthesis behind it.
    bool StartsWord(std::size_t place, std::u16string_view word) const
    {
        if (!EqualNoCase(text.substr(place, word.size()), word))
            return false;
        const std::size_t behind = place + word.size();
        return behind >= text.size() || spaces.find(text[behind]) != npos || text[behind] == u'(' ||
               text[behind] == u'@';
    }

    bool ReadSwitches()
    {
        for (;;) {
            const std::u16string_view word = Peek();
            if (word.empty() || word[0] != syntax.switchChar)
                return true;
            at += word.size();
            if (!TakeSwitch(word)) {
                header.refused = word;
                return false;
            }
        }
    }

    bool TakeSwitch(std::u16string_view word)
    {
        if (word.size() != 2)
            return false;
        switch (UpperCase(word[1])) {
        case u'D': header.directories = true; return true;
        case u'L': header.counting = true; return true;
        case u'R':
            header.recursive = true;
            TakeOperand(header.root);
            return true;
        case u'F':
            header.parsing = true;
            TakeOperand(header.options);
            return true;
        default: return false;
        }
    }

    void TakeOperand(CString& operand)
    {
        const std::u16string_view word = Peek();
        if (word.empty() || StartsVariable() || word[0] == syntax.switchChar)
            return;
        operand = word;
        at += word.size();
    }

    bool ReadVariable()
    {
        if (!StartsVariable())
            return false;
        const std::u16string_view word = Peek();
        at += word.size();
        header.variable = word.substr(word[1] == u'%' ? 2 : 1);
        return !header.variable.empty();
    }

    bool ReadSet()
    {
        PassSpaces();
        at += 2; // IN
        PassSpaces();
        if (at >= text.size() || text[at] != u'(')
            return false;
        const std::size_t closing = FindClosing(text, at, quotes::both, syntax);
        if (closing == npos)
            return false;
        header.set = text.substr(at + 1, closing - at - 1);
        at = closing + 1;
        return true;
    }

    bool ReadCommand()
    {
        PassSpaces();
        if (!StartsWord(at, u"DO"))
            return false;
        at += 2;
        PassSpaces();
        header.command = text.substr(at);
        return !header.command.empty();
    }

    std::u16string_view text;
    const Syntax& syntax;
    ForHeader& header;
    std::size_t at = 0;
};

} // namespace

bool ReadForHeader(std::u16string_view text, const Syntax& syntax, ForHeader& header)
{
    return HeaderReader(text, syntax, header).Run();
}

bool SetReader::Next(std::u16string_view& entry)
{
    constexpr std::u16string_view delimiters = u" \t,;=\r\n";
    const std::size_t start = set.find_first_not_of(delimiters, at);
    if (start == npos)
        return false;
    std::size_t end = start;
    while (end < set.size() && delimiters.find(set[end]) == npos) {
        const std::size_t closing = set[end] == u'"' ? set.find(u'"', end + 1) : end;
        end = closing == npos ? set.size() : closing + 1;
    }
    entry = set.substr(start, end - start);
    at = end;
    return true;
}
