#include "commands/box_switches.h"

#include "engine/output.h"
#include "engine/state.h"
#include "text/compare.h"
#include "text/numbers.h"
#include "text/switches.h"
#include "text/words.h"

std::optional<POINT> ReadPoint(std::u16string_view text)
{
    const std::size_t comma = text.find(u',');
    if (comma == text.npos)
        return std::nullopt;
    const auto x = ParseInteger(text.substr(0, comma));
    const auto y = ParseInteger(text.substr(comma + 1));
    constexpr std::int64_t farthest = 32767;
    if (!x || !y || *x < -farthest || *x > farthest || *y < -farthest || *y > farthest)
        return std::nullopt;
    return POINT{static_cast<LONG>(*x), static_cast<LONG>(*y)};
}

bool TakeBoxSwitch(std::u16string_view one, BoxSwitches& switches)
{
    if (EqualNoCase(one, u"S"))
        return switches.manners.topmost = true;
    if (EqualNoCase(one, u"U"))
        return switches.unattended = true;
    if (const auto place = SwitchValue(one, u"P"))
        return (switches.manners.place = ReadPoint(*place)).has_value();
    const auto seconds = SwitchValue(one, u"T");
    return seconds && (switches.manners.milliseconds = ParseDuration(*seconds, 1000)).has_value();
}

bool MayShowBox(const BoxSwitches& switches) { return switches.unattended || IsConsole(0); }

CString WithLineEnds(std::u16string_view quoted)
{
    const Syntax syntax = CurrentSyntax();
    CString text;
    for (std::size_t at = 0; at < quoted.size(); ++at) {
        const bool ends = syntax.escapes && quoted[at] == syntax.escapeChar && at + 1 < quoted.size() &&
                          UpperCase(quoted[at + 1]) == u'N';
        text.Append(ends ? u'\n' : quoted[at]);
        at += ends ? 1 : 0;
    }
    return text;
}

CString TakeBoxTitle(CString& text)
{
    const auto unquoted = [](const CString& from) {
        const CString bare = WithoutOuterQuotes(from);
        return bare.size() < from.size() ? WithLineEnds(bare) : from;
    };
    text.TrimLeft();
    const Word word = NextBlankWord(text, 0);
    if (text.front() != u'"' || word.length < 2 || text[word.end() - 1] != u'"')
        return Tls().commandName;
    const CString title = WithoutOuterQuotes(text.view().substr(0, word.end()));
    if (!text.Erase(0, word.end()).TrimLeft().empty()) {
        text = unquoted(text);
        return title;
    }
    text = WithLineEnds(title);
    return Tls().commandName;
}
