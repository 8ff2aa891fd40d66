#include "commands/definition_text.h"

#include <utility>

#include "text/compare.h"

namespace {

constexpr std::size_t npos = std::u16string_view::npos;

bool BeginsWithSwitch(std::u16string_view text, char16_t letter, char16_t switchChar)
{
    return text.size() >= 2 && text[0] == switchChar && UpperCase(text[1]) == letter;
}

// One switch goes up to the next one or a blank outside quotes.
std::size_t EndOfSwitch(std::u16string_view text, char16_t switchChar)
{
    bool quoted = false;
    std::size_t end = 1;
    for (; end < text.size() && (quoted || (!IsBlank(text[end]) && text[end] != switchChar)); ++end)
        quoted = quoted != (text[end] == u'"');
    return end;
}

bool* FlagOf(SetSwitches& switches, char16_t letter)
{
    switch (letter) {
    case u'A': return &switches.arithmetic;
    case u'D': return &switches.standard;
    case u'E': return &switches.process;
    case u'N': return &switches.quiet;
    case u'O': return &switches.keepExisting;
    case u'P': return &switches.prompt;
    case u'R': return &switches.readFiles;
    case u'S': return &switches.system;
    case u'U': return &switches.user;
    case u'V': return &switches.isVolatile;
    default: return nullptr;
    }
}

bool EndsContinued(std::u16string_view line, char16_t escape)
{
    return !line.empty() && line.back() == escape && (line.size() < 2 || line[line.size() - 2] != escape);
}

} // namespace

DefinitionForm FormOf(std::u16string_view text, bool nameEndsAtBlank)
{
    const std::size_t start = text.find_first_not_of(u" \t");
    if (start == npos)
        return DefinitionForm::All;
    const std::size_t end = text.find_first_of(nameEndsAtBlank ? u"= \t" : u"=", start);
    const bool more = end != npos && text.find_first_not_of(u" \t", end) != npos;
    return more ? DefinitionForm::Define : DefinitionForm::Query;
}

void DropDefinitionQuotes(CString& text)
{
    if (text.front() != u'"')
        return;
    text.Erase(0, 1);
    const std::size_t last = text.view().rfind(u'"');
    if (last != npos)
        text.Truncate(last);
}

bool HasNamePattern(std::u16string_view name) { return name.find_first_of(u"*?[") != npos; }

bool AsksForDialog(std::u16string_view text, char16_t switchChar)
{
    return BeginsWithSwitch(text, u'=', switchChar);
}

SetSwitches TakeSetSwitches(CString& text, char16_t switchChar)
{
    SetSwitches switches;
    while (!switches.arithmetic && !switches.prompt) {
        text.TrimLeft();
        if (text.size() < 2 || text[0] != switchChar)
            break;
        const std::size_t end = EndOfSwitch(text, switchChar);
        const std::u16string_view word = text.view().substr(0, end);
        if (word.size() == 1 && text[1] == switchChar && text[2] == switchChar) { // "///"
            text.Erase(0, 3).TrimLeft();
            break;
        }
        bool* flag = FlagOf(switches, UpperCase(text[1]));
        const bool takesAll = flag == &switches.arithmetic || flag == &switches.prompt;
        const bool typed = UpperCase(text[1]) == u'T' && (text[2] == u':' || text[2] == u'=');
        if (typed) {
            switches.typeSpec = word.substr(3);
        } else if (flag && (takesAll || word.size() == 2)) {
            *flag = true;
        } else {
            switches.refused = word;
            break;
        }
        text.Erase(0, takesAll ? 2 : end);
    }
    text.TrimLeft();
    return switches;
}

bool DefinitionLines::Add(std::u16string_view line, CString& definition)
{
    const std::size_t start = line.find_first_not_of(u" \t");
    line.remove_prefix(start == npos ? line.size() : start);
    if (!continued && (line.empty() || line[0] == u':' || line[0] == u';'))
        return false;
    continued = EndsContinued(line, escapeChar);
    pending.Append(continued ? line.substr(0, line.size() - 1) : line);
    return !continued && Finish(definition);
}

bool DefinitionLines::Finish(CString& definition)
{
    continued = false;
    definition = std::exchange(pending, CString());
    return !definition.empty();
}
