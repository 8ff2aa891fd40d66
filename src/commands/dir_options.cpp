#include "commands/dir_options.h"

#include "commands/search_switches.h"
#include "core/command_switches.h"
#include "engine/results.h"
#include "engine/state.h"
#include "files/file_search.h"
#include "text/compare.h"
#include "text/format.h"

namespace {

int Refuse(char16_t letter, std::u16string_view text)
{
    return MVError(errors::invalidSwitch, Format(u"%c%c%s", CurrentSyntax().switchChar, letter, text));
}

std::u16string_view WithoutColon(std::u16string_view text)
{
    return text.starts_with(u':') ? text.substr(1) : text;
}

int ReadTime(std::u16string_view text, DirOptions& options)
{
    std::u16string_view letters = text;
    if (letters.size() == 2 && UpperCase(letters.back()) == u'U') {
        options.utc = true;
        letters.remove_suffix(1);
    }
    switch (letters.size() == 1 ? UpperCase(letters.front()) : u'\0') {
    case u'C': options.time = WhichTime::Created; return 0;
    case u'A': options.time = WhichTime::Accessed; return 0;
    case u'W': options.time = WhichTime::Written; return 0;
    case u'U': options.utc = true; return 0;
    default: return Refuse(u'T', text);
    }
}

int ReadSummary(std::u16string_view text, DirSummary& summary)
{
    switch (text.size() > 1 ? u'?' : text.empty() ? u'0' : UpperCase(text.front())) {
    case u'0': summary = DirSummary::Everything; return 0;
    case u'1': summary = DirSummary::EachDirectory; return 0;
    case u'2': summary = DirSummary::Whole; return 0;
    case u'E': summary = DirSummary::Extensions; return 0;
    default: return Refuse(u'U', text);
    }
}

// Switches with text behind their letter.
int ReadTexts(CString& arguments, DirOptions& options)
{
    CString text;
    int code = TakeAttributeSwitches(arguments, options.attributes);
    while (code == 0 && TakeSwitchLetters(arguments, u"O", text))
        code = ReadFileOrder(WithoutColon(text), options.order);
    while (code == 0 && TakeSwitchLetters(arguments, u"T", text))
        code = ReadTime(WithoutColon(text), options);
    while (code == 0 && TakeSwitchLetters(arguments, u"U", text))
        code = ReadSummary(WithoutColon(text), options.summary);
    if (code == 0)
        code = TakeDepthSwitch(arguments, options.deepest);
    return code;
}

} // namespace

int ReadDirOptions(CString& arguments, DirOptions& options)
{
    constexpr std::u16string_view letters = u"BCDEFGHKLMNPQRVWXZ124";
    if (const int code = GetRange(arguments, &options.ranges, 0))
        return code;
    // "/-X" takes back what DIRCMD asked for.
    std::uint64_t taken = 0;
    for (std::size_t bit = 0; bit < letters.size(); ++bit)
        while (TakeSwitchWord(arguments, Format(u"-%c", letters[bit])))
            taken |= std::uint64_t{1} << bit;
    const bool noOrder = TakeSwitchWord(arguments, u"-O");
    const bool noDepth = TakeSwitchWord(arguments, u"-S");
    if (const int code = ReadTexts(arguments, options))
        return code;
    std::uint64_t flags = 0;
    if (const int code = ReadSwitches(arguments, letters, flags))
        return code;
    auto off = [&](char16_t letter) { return (taken >> letters.find(letter) & 1) != 0; };
    auto on = [&](char16_t letter) { return (flags >> letters.find(letter) & 1) != 0 && !off(letter); };
    if (noOrder)
        options.order.clear();
    if (noDepth)
        options.deepest = 0;
    if (on(u'1') || on(u'2'))
        options.columns = on(u'1') ? 1 : 2;
    if (on(u'D') || on(u'V'))
        options.layout = DirLayout::Down;
    if (on(u'W') || (options.columns > 0 && options.layout == DirLayout::Long))
        options.layout = DirLayout::Across;
    if (on(u'B') || on(u'F'))
        options.layout = DirLayout::Bare;
    options.fullNames = on(u'F');
    options.pauses = on(u'P');
    options.lowerCase = on(u'L');
    options.upperCase = on(u'E');
    options.allocated = on(u'G');
    options.fatNames = on(u'Z');
    options.owners = on(u'Q');
    options.streams = on(u'R');
    options.shortNames = on(u'X');
    options.header = !on(u'K');
    options.footer = !on(u'M');
    options.dots = !on(u'H');
    options.thousands = !off(u'C');
    return 0;
}
