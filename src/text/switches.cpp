#include "text/switches.h"

#include "text/compare.h"
#include "text/words.h"

namespace {

constexpr std::size_t npos = std::u16string_view::npos;

// One switch inside a word: from its switch character up to the next one or the end of the word.
Word NextSwitch(std::u16string_view text, std::size_t from, std::size_t wordEnd, const Syntax& syntax)
{
    std::size_t end = from + 1;
    bool quoted = false;
    while (end < wordEnd && (quoted || text[end] != syntax.switchChar)) {
        quoted = quoted != (text[end] == u'"');
        ++end;
    }
    return {from, end - from};
}

bool EndsSwitches(std::u16string_view word, const Syntax& syntax)
{
    return word.size() == 3 && word[0] == syntax.switchChar && word[1] == syntax.switchChar &&
           word[2] == syntax.switchChar;
}

// Calls `take(word)` for each switch word until it answers true, which means the word was dealt with and
// the text changed; then goes on at the same place. Stops at "///", and before the first other word when
// only leading switches count.
template <typename Take>
void WalkSwitchWords(CString& arguments, SwitchPlace place, const Syntax& syntax, Take take)
{
    for (std::size_t from = 0;;) {
        const Word word = NextWord(arguments, from, syntax);
        if (word.length == 0)
            return;
        const bool isSwitch = arguments[word.start] == syntax.switchChar;
        if (isSwitch && EndsSwitches(arguments.view().substr(word.start, word.length), syntax)) {
            return;
        }
        if (isSwitch && take(word)) {
            from = word.start;
            continue;
        }
        if (!isSwitch && place == SwitchPlace::Leading)
            return;
        from = word.end();
    }
}

void RemoveEndMark(CString& arguments, SwitchPlace place, const Syntax& syntax)
{
    for (Word word = NextWord(arguments, 0, syntax); word.length > 0;
         word = NextWord(arguments, word.end(), syntax)) {
        if (EndsSwitches(arguments.view().substr(word.start, word.length), syntax))
            return CutSwitch(arguments, word.start, word.length);
        if (place == SwitchPlace::Leading)
            return;
    }
}

// The bit of a letter in the list, or npos.
std::size_t BitOf(std::u16string_view letters, char16_t letter, bool& takesText)
{
    std::size_t bit = 0;
    for (std::size_t i = 0; i < letters.size(); ++i) {
        if (letters[i] == u'*')
            continue;
        if (UpperCase(letters[i]) == UpperCase(letter)) {
            takesText = i + 1 < letters.size() && letters[i + 1] == u'*';
            return bit;
        }
        ++bit;
    }
    return npos;
}

} // namespace

void CutSwitch(CString& text, std::size_t at, std::size_t count)
{
    text.Erase(at, count);
    const bool blankBefore = at == 0 || IsBlank(text[at - 1]);
    while (blankBefore && at < text.size() && IsBlank(text[at]))
        text.Erase(at, 1);
    if (at == text.size())
        text.TrimRight();
}

SwitchRead GetSwitches(CString& arguments, std::u16string_view letters, SwitchPlace place,
                       const Syntax& syntax)
{
    SwitchRead read;
    WalkSwitchWords(arguments, place, syntax, [&](const Word& word) {
        for (std::size_t at = word.start; at < word.end();) {
            const Word one = NextSwitch(arguments, at, word.end(), syntax);
            const std::u16string_view text = arguments.view().substr(one.start, one.length);
            if (text.size() == 2 && text[1] == u'?')
                return false;
            bool takesText = false;
            const std::size_t bit = text.size() < 2 ? npos : BitOf(letters, text[1], takesText);
            if (bit == npos || (text.size() > 2 && !takesText)) {
                if (read.refused.empty())
                    read.refused = text;
                return false;
            }
            read.flags |= std::uint64_t{1} << bit;
            at = one.end();
        }
        CutSwitch(arguments, word.start, word.length);
        return true;
    });
    RemoveEndMark(arguments, place, syntax);
    return read;
}

bool GetMultiCharSwitch(CString& arguments, std::u16string_view name, const Syntax& syntax)
{
    bool found = false;
    WalkSwitchWords(arguments, SwitchPlace::Anywhere, syntax, [&](const Word& word) {
        for (std::size_t at = word.start; at < word.end();) {
            const Word one = NextSwitch(arguments, at, word.end(), syntax);
            if (EqualNoCase(arguments.view().substr(one.start + 1, one.length - 1), name)) {
                CutSwitch(arguments, one.start, one.length);
                found = true;
                return true;
            }
            at = one.end();
        }
        return false;
    });
    return found;
}

bool GetStringSwitch(CString& arguments, std::u16string_view name, CString& value, const Syntax& syntax)
{
    bool found = false;
    WalkSwitchWords(arguments, SwitchPlace::Anywhere, syntax, [&](const Word& word) {
        for (std::size_t at = word.start; !found && at < word.end();) {
            const Word one = NextSwitch(arguments, at, word.end(), syntax);
            std::u16string_view text = arguments.view().substr(one.start + 1, one.length - 1);
            at = one.end();
            if (!BeginsNoCase(text, name))
                continue;
            // The text may hold switch characters (a path, a date): it takes the whole rest of the word.
            text = arguments.view().substr(one.start + 1 + name.size(),
                                           word.end() - one.start - 1 - name.size());
            if (!text.empty() && (text[0] == u':' || text[0] == u'='))
                text.remove_prefix(1);
            value = WithoutOuterQuotes(text);
            CutSwitch(arguments, one.start, word.end() - one.start);
            found = true;
            return true;
        }
        return false;
    });
    return found;
}

bool TakeLeadingSwitch(CString& arguments, CString& one, const Syntax& syntax)
{
    arguments.TrimLeft();
    if (arguments.front() != syntax.switchChar)
        return false;
    const std::u16string_view text = arguments;
    bool quoted = false;
    bool value = false;
    std::size_t end = 1;
    for (; end < text.size(); ++end) {
        if (text[end] == u'"')
            quoted = !quoted;
        else if (!quoted && (IsBlank(text[end]) || (!value && text[end] == syntax.switchChar)))
            break;
        value |= !quoted && (text[end] == u':' || text[end] == u'=');
    }
    if (end == 1 && EndsSwitches(text.substr(0, text.find_first_of(u" \t")), syntax)) {
        arguments.Erase(0, 3).TrimLeft();
        return false;
    }
    one = text.substr(1, end - 1);
    arguments.Erase(0, end).TrimLeft();
    return true;
}

std::optional<CString> SwitchValue(std::u16string_view one, std::u16string_view name)
{
    if (!BeginsNoCase(one, name))
        return std::nullopt;
    one.remove_prefix(name.size());
    if (one.starts_with(u':') || one.starts_with(u'='))
        one.remove_prefix(1);
    return WithoutOuterQuotes(one);
}
