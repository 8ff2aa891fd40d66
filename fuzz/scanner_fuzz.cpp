// The scanner and the cutting of words over any text: places stay inside the text, words neither overlap nor
// get lost, and closing brackets close.
#include <cstdint>
#include <cstdlib>

#include "text/encoding.h"
#include "text/escapes.h"
#include "text/scanner.h"
#include "text/switches.h"
#include "text/words.h"

namespace {

void Require(bool condition)
{
    if (!condition)
        std::abort();
}

void CheckScan(std::u16string_view text, std::u16string_view quoting, const Syntax& syntax)
{
    constexpr std::u16string_view targets = u"&|<>%";
    char16_t unclosed = 0;
    std::size_t found = 0;
    for (std::size_t from = 0; (found = scan(text, targets, quoting, syntax, from, &unclosed)) != text.npos;
         from = found + 1)
        Require(found >= from && found < text.size() && targets.find(text[found]) != targets.npos);
    Require(unclosed == 0 || quoting.find(unclosed) != quoting.npos);
}

void CheckWords(std::u16string_view text, const Syntax& syntax)
{
    std::size_t behind = 0;
    int count = 0;
    for (Word word = NextWord(text, 0, syntax); word.length > 0; word = NextWord(text, word.end(), syntax)) {
        Require(word.start >= behind && word.end() <= text.size());
        // Nothing but delimiters between the words.
        for (std::size_t at = behind; at < word.start; ++at)
            Require(IsDelimiter(text[at], syntax) || text[at] == u'\n');
        behind = word.end();
        ++count;
    }
    Require(CountArguments(text, syntax) == count);
    Require(SplitArguments(text, false, syntax).size() == static_cast<std::size_t>(count));
    std::size_t start = 0;
    GetNthArgument(text, count, syntax, &start);
    Require(start == text.npos);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    if (size == 0)
        return 0;
    Syntax syntax;
    syntax.openQuotes = data[0] & 1;
    syntax.cmdDelimiters = data[0] & 2;
    syntax.escapes = !(data[0] & 4);
    CString text = FromUtf8({reinterpret_cast<const char*>(data + 1), size - 1});
    for (const std::u16string_view quoting :
         {quotes::back, quotes::both, quotes::bothAndParentheses, quotes::backAndBrackets})
        CheckScan(text, quoting, syntax);
    for (const char16_t opening : {u'(', u'[', u'{'}) {
        const std::size_t open = text.Find(opening);
        if (open != CString::npos) {
            const std::size_t closing = FindClosing(text, open, quotes::both, syntax);
            Require(closing == CString::npos || (closing > open && closing < text.size()));
        }
    }
    CheckWords(text, syntax);
    CString switches = text;
    CString value;
    GetStringSwitch(switches, u"N", value, syntax);
    GetSwitches(switches, u"ABCQ", data[0] & 8 ? SwitchPlace::Leading : SwitchPlace::Anywhere, syntax);
    Require(switches.size() <= text.size());
    const std::size_t before = text.size();
    UnEscapeLine(text, syntax);
    Require(text.size() <= before);
    return 0;
}
