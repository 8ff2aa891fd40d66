#include "expand/expander.h"

#include "lang/errors.h"
#include "text/block_scanner.h"
#include "text/compare.h"
#include "text/scanner.h"
#include "text/words.h"

namespace {

constexpr std::size_t npos = std::u16string_view::npos;
constexpr int mostRepeats = 16;         // at one position without getting ahead
constexpr int deepestValue = 100;       // values inside values inside values ...
constexpr unsigned mostSteps = 1000000; // keeps values that double at every step from running for ever
constexpr int mostAliases = 16;         // how often a changed first word may name an alias

} // namespace

int Expander::Run()
{
    while (SeekPercent()) {
        if (const int code = CountVisit())
            return code;
        if (const int code = ExpandReference())
            return code;
    }
    return 0;
}

// Moves what stands before the next reference to what is done; false at the end of the line.
bool Expander::SeekPercent()
{
    for (;;) {
        const View rest = line.Rest();
        std::size_t at = 0;
        while (at < rest.size()) {
            const char16_t unit = rest[at];
            if (unit == u'%' || unit == u'`' || (unit == u'(' && topLevel && line.Done().size() + at == 0))
                break;
            if (unit == u'"')
                inQuotes = !inQuotes;
            else if (unit == u'\n' && settings.syntax.openQuotes)
                inQuotes = false;
            else if (unit == settings.syntax.escapeChar && settings.syntax.escapes && !inQuotes)
                ++at;
            ++at;
        }
        if (at >= rest.size()) {
            line.Keep(rest.size());
            return false;
        }
        line.Keep(at);
        if (rest[at] == u'%')
            return true;
        PassQuoted(rest[at]);
    }
}

// Passes over back-quoted text, and over a group, whose commands are expanded when they run. A lone
// back-quote is an ordinary character.
void Expander::PassQuoted(char16_t quote)
{
    const View rest = line.Rest();
    if (quote == u'(') {
        const std::size_t closing = FindBlockEnd(rest, 0, settings.syntax);
        line.Keep(closing == npos ? rest.size() : closing + 1);
    } else {
        const std::size_t closing = rest.find(u'`', 1);
        line.Keep(closing == npos ? 1 : closing + 1);
    }
}

// Refuses references that lead back to themselves.
int Expander::CountVisit()
{
    const std::size_t position = line.Done().size();
    const std::size_t rest = line.Rest().size();
    if (position != lastPosition || rest < leastRest) {
        lastPosition = position;
        leastRest = rest;
        repeats = 0;
    } else if (++repeats > mostRepeats) {
        return Fail(errors::variableLoop, Shown(line.Rest()));
    }
    while (!regions.empty() && regions.back().end >= rest)
        regions.pop_back();
    if (Depth() > deepestValue)
        return Fail(errors::variableLoop, Shown(line.Rest()));
    return Depth() > 0 ? CountSteps(1) : 0;
}

int Expander::ExpandReference()
{
    const View rest = line.Rest();
    const char16_t next = rest.size() > 1 ? rest[1] : u' ';
    const char16_t third = rest.size() > 2 ? rest[2] : u'\0';
    if (IsSpace(next))
        return Keep(1);
    int code = 0;
    switch (next) {
    case u'%': return ReadDoublePercent();
    case u'(': return ReadParenthesis();
    case u'{': return ReadBraces();
    case u'@':
        if (!IsLetter(third) && !(third == u'*' && rest.size() > 3 && IsLetter(rest[3])))
            return Keep(2);
        return ReadFunction();
    case u'[':
        if (third == u'[')
            return ReadCondition();
        break;
    case u'~':
        if (ReadTilde(code))
            return code;
        break;
    default: break;
    }
    if (IsArrayElement())
        return ReadArrayElement();
    if (ReadParameters(code) || ReadSpecialName(code))
        return code;
    return ReadVariable();
}

// Puts the value in the place of the reference, which takes `length` units of the rest.
int Expander::Insert(View value, std::size_t length, Scan scan)
{
    const bool firstWord = InFirstWord();
    changed = true;
    line.Drop(length);
    if (line.Length() + value.size() > longestExpansion)
        return Fail(errors::lineTooLong, Shown(line.Done()));
    // Long values that an outer function swallows never make the line long, only slow.
    if (const int code = CountSteps(value.size() / 256))
        return code;
    if (scan == Scan::Past) {
        for (const char16_t unit : value)
            inQuotes = inQuotes != (unit == u'"');
        line.Add(value);
    } else if (!value.empty()) {
        const std::size_t end = line.Rest().size();
        const int depth = Depth();
        while (!regions.empty() && regions.back().end >= end)
            regions.pop_back();
        regions.push_back({end, depth + 1});
        line.PutBack(value);
    }
    return firstWord ? ExpandFirstWord() : 0;
}

// Whether the reference that stands at the front of the rest belongs to the first word of the line.
bool Expander::InFirstWord()
{
    if (!topLevel || firstWordDone)
        return false;
    constexpr std::size_t longestAlias = 1000; // no alias has a longer name
    const View done = line.Done();
    const Word word = NextWord(done.substr(0, longestAlias), 0, settings.syntax);
    firstWordDone = done.size() > longestAlias || (word.length != 0 && word.end() != done.size());
    return !firstWordDone;
}

// The first word has changed and may name an alias now; if it does, the line begins anew.
int Expander::ExpandFirstWord()
{
    CString whole(line.Done());
    whole.Append(line.Rest());
    const CString before = whole;
    if (const int code = world.ExpandAliases(whole))
        return code;
    if (whole == before)
        return 0;
    if (++aliasRounds > mostAliases)
        return Fail(errors::aliasLoop, Shown(before));
    line.Reset(whole);
    regions.clear();
    inQuotes = false;
    firstWordDone = false;
    return 0;
}

// Expands a piece of the line. `quoted` makes the escape character an ordinary one.
int Expander::ExpandNested(CString& text, bool quoted)
{
    if (text.Find(u'%') == npos)
        return 0;
    ExpansionProgress& progress = world.Progress();
    if (progress.depth >= deepestExpansion)
        return Fail(errors::variableLoop, Shown(text));
    Expander piece(text, world, settings);
    piece.inQuotes = quoted;
    piece.startDepth = Depth();
    piece.parameters = parameters;
    ++progress.depth;
    const int code = piece.Run();
    --world.Progress().depth;
    if (piece.Changed())
        text = piece.Text();
    return code;
}

int Expander::RunDelayed()
{
    bool quoted = false;
    if (topLevel && line.Rest().starts_with(u'('))
        PassQuoted(u'(');
    for (;;) {
        const View rest = line.Rest();
        const DelayedReference found = FindDelayedReference(rest, 0, quoted, settings.syntax);
        if (found.length == 0)
            return Keep(rest.size());
        const CString name(found.name);
        line.Keep(found.start);
        if (name.empty()) {
            line.Drop(found.length);
            changed = true;
            const std::size_t protectedUnits = quoted ? 1 : 2;
            line.Keep(protectedUnits);
            continue;
        }
        const int code = settings.syntax.openQuotes ? InsertDelayedText(name, found.length, quoted)
                                                    : InsertDelayed(name, found.length);
        if (code != 0)
            return code;
    }
}

int Expander::InsertDelayed(View reference, std::size_t length)
{
    CString name(reference);
    if (const int code = ExpandNested(name, false))
        return code;
    line.Drop(length);
    changed = true;
    std::size_t plain = 0;
    while (plain < name.size() && IsNameUnit(name[plain]))
        ++plain;
    if (settings.cmdVariables || plain == name.size() || name[plain] == u':' || name[plain] == u'%') {
        line.Add(u"%");
        for (std::size_t at = 0; at < name.size(); ++at) {
            if (name[at] == u'%')
                line.Add(View(&settings.syntax.escapeChar, 1));
            line.Add(name.view().substr(at, 1));
        }
        line.Add(u"%");
    } else {
        // A name that the line's own pass would not read to its end.
        CString value;
        const std::size_t colon = name.Find(u':');
        if (Lookup(name.view().substr(0, colon), value) && colon != npos) {
            if (const int code = Modify(value, name.view().substr(colon + 1)))
                return code;
        }
        line.Add(value);
    }
    return line.Length() > longestExpansion ? Fail(errors::lineTooLong, Shown(line.Done())) : 0;
}

// In .bat and .cmd files what such a reference brings is text and nothing else: that is what authors use it
// for. Signs that would part commands or redirect are escaped where quotes do not protect them.
CString Expander::Protected(View value, bool quoted) const
{
    CString text;
    const char16_t escape = settings.syntax.escapeChar;
    for (const char16_t& unit : value) {
        quoted = quoted != (unit == u'"');
        if (!quoted && (unit == escape || View(u"&|<>").find(unit) != View::npos))
            text.Append(escape);
        text.Append(unit);
    }
    return text;
}

// The value of a FOR variable, often the name of a file or a line of one.
int Expander::InsertLoopValue(View value, std::size_t length)
{
    if (!settings.syntax.openQuotes)
        return InsertValue(value, length);
    // A piece of a line is a name or an argument, in which escapes would stay.
    return Insert(topLevel && settings.syntax.escapes ? Protected(value, inQuotes) : CString(value), length,
                  Scan::Past);
}

int Expander::InsertDelayedText(View reference, std::size_t length, bool& quoted)
{
    CString name(reference);
    if (const int code = ExpandNested(name, quoted))
        return code;
    CString value(u"%");
    value.Append(name).Append(u"%");
    if (const int code = ExpandNested(value, quoted))
        return code;
    line.Drop(length);
    changed = true;
    const CString text = Protected(value, quoted);
    for (const char16_t& unit : text.view()) {
        quoted = quoted != (unit == u'"');
        line.Add(View(&unit, 1));
        if (unit == u'%') // the line's own pass comes later
            line.Add(u"%");
    }
    return line.Length() > longestExpansion ? Fail(errors::lineTooLong, Shown(line.Done())) : 0;
}

int Expander::InsertValue(View value, std::size_t length)
{
    const bool past = (settings.mask & expansion_mask::valuesNotRescanned) != 0;
    return Insert(value, length, past ? Scan::Past : Scan::Again);
}

int Expander::Keep(std::size_t units)
{
    line.Keep(units);
    return 0;
}

int Expander::CountSteps(std::size_t steps)
{
    unsigned& count = world.Progress().steps;
    count += static_cast<unsigned>(steps);
    return count > mostSteps ? Fail(errors::variableLoop, Shown(line.Rest())) : 0;
}

int Expander::Fail(unsigned code, View argument)
{
    world.Report(code, argument);
    return static_cast<int>(code);
}
