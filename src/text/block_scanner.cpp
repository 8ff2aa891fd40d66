#include "text/block_scanner.h"

#include "text/compare.h"

namespace {

constexpr std::size_t npos = std::u16string_view::npos;

bool IsOneOf(std::u16string_view word, std::initializer_list<std::u16string_view> words)
{
    for (const std::u16string_view candidate : words)
        if (EqualNoCase(word, candidate))
            return true;
    return false;
}

} // namespace

void BlockScanner::EndCommand()
{
    while (!open.empty() && open.back() == Kind::Literal)
        open.pop_back();
    command = CommandKind::Unknown;
}

// Decides by its first word how the command that starts at `at` treats parentheses. Moves past words behind
// which another command starts.
void BlockScanner::ReadCommandWord(std::u16string_view text)
{
    if (text.substr(at, 2) == u"::" || text[at] == u':') {
        command = CommandKind::Comment;
        return;
    }
    std::size_t end = at;
    while (end < text.size() && IsAsciiLetter(text[end]))
        ++end;
    const std::u16string_view word = text.substr(at, end - at);
    if (IsOneOf(word, {u"REM", u"ECHOX", u"ECHOXERR"})) {
        command = CommandKind::Comment;
    } else if (IsOneOf(word, {u"ELSE", u"THEN"})) {
        at = end;
    } else {
        const bool takes = IsOneOf(word, {u"IF", u"IFF", u"ELSEIFF", u"FOR", u"DO", u"SWITCH", u"ON",
                                          u"DEFER", u"REPEAT", u"CHRONIC", u"THREAD", u"EXCEPT"});
        command = takes ? CommandKind::TakesBlocks : CommandKind::Plain;
        at = end > at ? end : at;
    }
}

void BlockScanner::Open(std::u16string_view text)
{
    const char16_t before = at == 0 ? u' ' : text[at - 1];
    const bool parted = IsBlank(before) || before == u'@' || before == u'(' || before == u'\n';
    const bool block = command == CommandKind::Unknown || (command == CommandKind::TakesBlocks && parted);
    open.push_back(block ? Kind::Block : Kind::Literal);
    if (!block)
        return;
    ++openBlocks;
    // The set of a FOR holds no commands, but nothing in it can be mistaken for one either.
    command = CommandKind::Unknown;
}

bool BlockScanner::Close(bool escaped)
{
    if (open.empty() || (escaped && open.back() != Kind::Literal))
        return false;
    const Kind kind = open.back();
    open.pop_back();
    if (kind == Kind::Literal)
        return false;
    // What follows is ELSE or DO with a block of its own, or the end of the command.
    command = CommandKind::TakesBlocks;
    return --openBlocks == 0;
}

// Past quoted text; false when what stands at `at` quotes nothing.
bool BlockScanner::PassQuote(std::u16string_view text)
{
    const std::size_t lineEnd = text.find(u'\n', at);
    const std::size_t closing = text.find(text[at], at + 1);
    if (closing != npos && closing < lineEnd)
        at = closing + 1;
    else if (text[at] == u'"')
        at = lineEnd == npos ? text.size() : lineEnd;
    else
        return false;
    return true;
}

std::size_t BlockScanner::Feed(std::u16string_view text)
{
    while (at < text.size()) {
        const char16_t unit = text[at];
        if (unit == u'\n') {
            EndCommand();
            ++at;
            continue;
        }
        if (command == CommandKind::Comment) {
            at = text.find(u'\n', at) == npos ? text.size() : text.find(u'\n', at);
            continue;
        }
        if (syntax.escapes && unit == syntax.escapeChar) {
            if (command == CommandKind::Unknown)
                command = CommandKind::Plain;
            if (at + 1 < text.size() && text[at + 1] == u')')
                Close(true);
            at += 2;
            continue;
        }
        if ((unit == u'"' || unit == u'`') && PassQuote(text)) {
            if (command == CommandKind::Unknown)
                command = CommandKind::Plain;
            continue;
        }
        if (unit == u'(') {
            Open(text);
        } else if (unit == u')') {
            if (Close(false))
                return at++;
        } else if (unit == syntax.commandSep || unit == u'&' || unit == u'|') {
            EndCommand();
        } else if (command == CommandKind::Unknown && !IsBlank(unit) && unit != u'@' && unit != u',') {
            ReadCommandWord(text);
            if (command != CommandKind::Unknown && at < text.size() && text[at] == unit)
                ++at; // a word that does not begin with a letter
            continue;
        }
        ++at;
    }
    at = at > text.size() ? text.size() : at;
    return npos;
}

std::size_t FindBlockEnd(std::u16string_view text, std::size_t open, const Syntax& syntax)
{
    BlockScanner scanner(syntax);
    const std::size_t closing = scanner.Feed(text.substr(open));
    return closing == npos ? npos : open + closing;
}

bool EndsInsideBlock(std::u16string_view text, const Syntax& syntax)
{
    BlockScanner scanner(syntax);
    while (scanner.Feed(text) != npos) {
    }
    return scanner.InBlock();
}
