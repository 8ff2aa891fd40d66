#include "console/completion_word.h"

#include <algorithm>
#include <array>

#include "console/inner_commands.h"
#include "core/separators.h"
#include "text/compare.h"
#include "text/escapes.h"
#include "text/path_names.h"
#include "text/words.h"

namespace {

constexpr std::size_t npos = std::u16string_view::npos;

bool IsNameLetter(char16_t unit) { return IsLetterOrDigit(unit) || unit == u'_'; }
bool IsVariableUnit(char16_t unit) { return IsNameLetter(unit) || unit == u'$'; }

// Follows one command to the cursor, which is where `text` ends.
class CommandReader {
public:
    CommandReader(std::u16string_view before, CommandStart start, bool references,
                  const Syntax& syntaxInForce, KnownCommands& commands)
        : text(before), at(start.at), wantsReferences(references), syntax(syntaxInForce), known(commands)
    {
        word.startsFile = start.anyFile;
        while (at < text.size() && (text[at] == u'@' || text[at] == u'*'))
            ++at;
    }

    CompletionWord Read()
    {
        BeginWord(at);
        while (at < text.size() && !atReference)
            ReadUnit();
        PartCommandName();
        word.isValue = partStart > wordStart && text[partStart - 1] == u'=';
        word.quoted = partStart < text.size() && text[partStart] == u'"';
        word.start = partStart;
        if (!atReference) {
            word.place = redirection   ? WordPlace::Redirection
                         : haveCommand ? WordPlace::Argument
                                       : WordPlace::Command;
            word.inBrackets = brackets > 0;
            word.text = Plain(text.substr(partStart));
        }
        return std::move(word);
    }
    bool InQuotes() const { return quoted; }

private:
    CString Plain(std::u16string_view part) const
    {
        CString plain(part);
        UnEscapeLine(plain, syntax);
        return WithoutQuotes(plain);
    }

    void BeginWord(std::size_t start) { wordStart = partStart = start; }

    void EndWord(std::size_t behind)
    {
        if (at > wordStart) {
            const std::u16string_view ended = text.substr(wordStart, at - wordStart);
            if (redirection)
                redirection = false;
            else if (haveCommand)
                word.before.push_back(Plain(ended));
            else
                EndCommandName(ended);
        }
        at = behind;
        BeginWord(at);
    }

    void EndCommandName(std::u16string_view ended)
    {
        const std::size_t name = InternalNameLength(ended);
        haveCommand = true;
        word.command = Plain(name ? ended.substr(0, name) : ended);
        if (name != 0 && name < ended.size())
            word.before.push_back(Plain(ended.substr(name)));
    }

    // "dir/s", "cd\work" and "cd..": the length of the name that something follows directly; else 0.
    std::size_t InternalNameLength(std::u16string_view ended)
    {
        std::size_t end = 0;
        while (end < ended.size() && IsNameLetter(ended[end]))
            ++end;
        if (end == 0 || end == ended.size())
            return 0;
        const char16_t behind = ended[end];
        const bool parts = behind == syntax.switchChar || behind == u'\\' || behind == u'.';
        return parts && known.IsInternal(ended.substr(0, end)) ? end : 0;
    }

    // The cursor stands in a word such as "cd\work".
    void PartCommandName()
    {
        if (haveCommand || atReference || partStart != wordStart)
            return;
        const std::u16string_view typed = text.substr(wordStart);
        if (const std::size_t name = InternalNameLength(typed)) {
            word.command = typed.substr(0, name);
            haveCommand = true;
            BeginWord(wordStart + name);
        }
    }

    void ReadUnit()
    {
        const char16_t unit = text[at];
        if (unit == u'%')
            return ReadReference();
        if (unit == u'"')
            return ReadQuote();
        if (quoted) {
            ++at;
            return;
        }
        if (syntax.escapes && unit == syntax.escapeChar) {
            at = std::min(at + 2, text.size());
            return;
        }
        if (brackets > 0)
            return ReadInBrackets(unit);
        if (unit == u'<' || unit == u'>')
            return ReadRedirection();
        if (IsDelimiter(unit, syntax) || unit == u'`' || (unit == u'(' && at == wordStart))
            return EndWord(at + 1);
        ++at;
        const bool inSwitch = text[wordStart] == syntax.switchChar;
        const bool joins = unit == u'+' && haveCommand && EqualNoCase(word.command, u"COPY");
        if (unit == u'=' || unit == u';' || joins || (inSwitch && unit == u':'))
            partStart = at;
    }

    void ReadInBrackets(char16_t unit)
    {
        ++at;
        brackets += unit == u'[' ? 1 : unit == u']' ? -1 : 0;
        if (unit == u',' || unit == u'[')
            partStart = at;
        if (brackets == 0)
            partStart = wordStart;
    }

    void ReadQuote()
    {
        quoted = !quoted;
        // /F"name": the text of a switch may follow directly.
        if (quoted && at > wordStart && text[wordStart] == syntax.switchChar)
            partStart = at;
        ++at;
    }

    void ReadRedirection()
    {
        // "2>": the digit belongs to the sign.
        const bool handle = at == wordStart + 1 && IsDigit(text[wordStart]);
        const std::size_t behind = std::min(text.find_first_not_of(u"<>&!-", at), text.size());
        if (handle)
            wordStart = at;
        EndWord(behind);
        while (at < text.size() && IsBlank(text[at]))
            ++at;
        BeginWord(at);
        redirection = true;
    }

    void ReadReference()
    {
        const std::size_t sign = at++;
        if (at < text.size() && text[at] == u'%') {
            ++at;
            return;
        }
        const bool function = at < text.size() && text[at] == u'@';
        if (!function && at < text.size() && text[at] == u'[')
            ++at;
        at += function ? 1 : 0;
        while (at < text.size() && (function ? IsNameLetter(text[at]) : IsVariableUnit(text[at])))
            ++at;
        if (at == text.size()) {
            if (wantsReferences)
                EndInReference(sign, function);
            return;
        }
        if (function && text[at] == u'[') {
            ++brackets;
            partStart = ++at;
        } else if (text[at] == u'%' && at > sign + 1) {
            ++at;
        }
    }

    void EndInReference(std::size_t sign, bool function)
    {
        atReference = true;
        word.place = function ? WordPlace::Function : WordPlace::Variable;
        word.text = text.substr(sign);
        partStart = sign;
    }

    std::u16string_view text;
    std::size_t at;
    bool wantsReferences;
    const Syntax& syntax;
    KnownCommands& known;
    CompletionWord word;
    std::size_t wordStart = 0;
    std::size_t partStart = 0; // of the word, behind "=", ";" and the like
    int brackets = 0;          // of functions that stand open
    bool haveCommand = false;
    bool redirection = false;
    bool quoted = false;
    bool atReference = false;
};

// Behind the rest of the word that the cursor stands in.
std::size_t FindWordEnd(std::u16string_view line, std::size_t cursor, const CompletionWord& word,
                        bool inQuotes, const Syntax& syntax)
{
    std::size_t end = cursor;
    if (word.place == WordPlace::Variable || word.place == WordPlace::Function) {
        while (end < line.size() && IsVariableUnit(line[end]))
            ++end;
        const char16_t closing = word.place == WordPlace::Function     ? u'['
                                 : word.text.view().starts_with(u"%[") ? u']'
                                                                       : u'%';
        // A "%" without a name before it begins the next reference.
        const bool closes = end < line.size() && line[end] == closing && (end > cursor || closing != u'%');
        return closes ? end + 1 : end;
    }
    if (inQuotes) {
        const std::size_t closing = line.find(u'"', cursor);
        const char16_t behind = closing != npos && closing + 1 < line.size() ? line[closing + 1] : u' ';
        const bool own = closing != npos && (IsDelimiter(behind, syntax) || IsPathSeparator(behind) ||
                                             std::u16string_view(u"&|<>)]").find(behind) != npos);
        return own ? closing + 1 : cursor;
    }
    if (word.start == cursor)
        return cursor;
    const bool joined = EqualNoCase(word.command, u"COPY");
    const std::u16string_view ends = word.inBrackets ? u",]\"" : joined ? u"=;<>&|()`\"%+" : u"=;<>&|()`\"%";
    while (end < line.size() && ends.find(line[end]) == npos &&
           (word.inBrackets || !IsDelimiter(line[end], syntax)))
        ++end;
    return end;
}

// In the set of FOR /F a name in quotes is a text, unless the options say "usebackq".
void ReadForOptions(std::u16string_view text, std::size_t command, const Syntax& syntax, CompletionWord& word)
{
    WholeWords words(text.substr(0, word.start), command, syntax);
    if (!words.Next())
        return;
    bool parses = false;
    while (words.Next() && words.word[0] == syntax.switchChar)
        parses = EqualNoCase(words.word.substr(1), u"F");
    CString forQuotes(u"\"usebackq\" ");
    std::size_t at = words.start;
    if (words.word[0] == u'"') {
        if (FindNoCase(words.word, u"usebackq") != npos)
            return;
        forQuotes = u"usebackq ";
        ++at;
        words.Next();
    }
    if (!parses || words.word[0] != u'%' || !words.Next() || !EqualNoCase(words.word, u"IN"))
        return;
    const std::u16string_view set = text.substr(words.at, word.start - words.at);
    const std::size_t opening = set.find_first_not_of(u" \t");
    if (opening == npos || set[opening] != u'(' || set.find_first_of(u")'`") != npos)
        return;
    word.quoteAt = at;
    word.forQuotes = forQuotes;
}

} // namespace

CompletionWord FindCompletionWord(std::u16string_view line, std::size_t cursor, bool references,
                                  const Syntax& syntax, KnownCommands& known)
{
    cursor = std::min(cursor, line.size());
    const std::u16string_view text = line.substr(0, cursor);
    std::size_t from = 0;
    for (;;) {
        const Separator separator = FindSeparator(text, from, CommandShape::Plain, syntax);
        if (separator.connector == Connector::None)
            break;
        from = separator.Behind();
    }
    const CommandStart start = FindInnerCommand(text, from, syntax);
    CommandReader reader(text, start, references, syntax, known);
    CompletionWord word = reader.Read();
    if (start.mayBeTitle && word.place == WordPlace::Command) {
        word.quoteAt = word.start;
        word.forQuotes = u"\"\" ";
    } else if (EqualNoCase(word.command, u"FOR"))
        ReadForOptions(text, start.at, syntax, word);
    word.end = FindWordEnd(line, cursor, word, reader.InQuotes(), syntax);
    word.touchesNext = word.end == cursor && word.start == cursor && cursor < line.size() &&
                       !IsDelimiter(line[cursor], syntax) &&
                       std::u16string_view(u"&|<>)];").find(line[cursor]) == npos;
    return word;
}
