#include "commands/dir_options.h"

#include "commands/search_switches.h"
#include "core/command_switches.h"
#include "engine/results.h"
#include "engine/state.h"
#include "files/file_search.h"
#include "text/compare.h"
#include "text/format.h"
#include "text/numbers.h"

namespace {

int Refuse(char16_t letter, std::u16string_view text)
{
    return MVError(errors::invalidSwitch, Format(u"%c%c%s", CurrentSyntax().switchChar, letter, text));
}

std::u16string_view WithoutColon(std::u16string_view text)
{
    return text.starts_with(u':') ? text.substr(1) : text;
}

int ReadOrder(std::u16string_view text, std::vector<DirSortKey>& order)
{
    constexpr std::u16string_view letters = u"NESDTG";
    order.clear();
    bool reverse = false;
    for (const char16_t unit : text) {
        if (unit == u'-') {
            reverse = true;
            continue;
        }
        const char16_t letter = UpperCase(unit);
        if (letters.find(letter) == letters.npos)
            return Refuse(u'O', text);
        order.push_back({letter, reverse});
        reverse = false;
    }
    if (order.empty())
        order = {{u'G', false}, {u'N', false}};
    return 0;
}

int ReadTime(std::u16string_view text, WhichTime& time)
{
    const char16_t letter = text.size() == 1 ? UpperCase(text.front()) : u'\0';
    switch (letter) {
    case u'C': time = WhichTime::Created; return 0;
    case u'A': time = WhichTime::Accessed; return 0;
    case u'W': time = WhichTime::Written; return 0;
    default: return Refuse(u'T', text);
    }
}

int ReadDepth(std::u16string_view text, int& deepest)
{
    if (text.empty()) {
        deepest = allLevels;
        return 0;
    }
    std::size_t used = 0;
    const std::optional<std::int64_t> levels = ReadDecimal(text, &used);
    if (!levels || used != text.size() || *levels < 0 || *levels > allLevels)
        return Refuse(u'S', text);
    deepest = static_cast<int>(*levels);
    return 0;
}

// Switches with text behind their letter.
int ReadTexts(CString& arguments, DirOptions& options)
{
    CString text;
    int code = TakeAttributeSwitches(arguments, options.attributes);
    while (code == 0 && TakeSwitchLetters(arguments, u"O", text))
        code = ReadOrder(WithoutColon(text), options.order);
    while (code == 0 && TakeSwitchLetters(arguments, u"T", text))
        code = ReadTime(WithoutColon(text), options.time);
    while (code == 0 && TakeSwitchLetters(arguments, u"S", text))
        code = ReadDepth(WithoutColon(text), options.deepest);
    return code;
}

} // namespace

int ReadDirOptions(CString& arguments, DirOptions& options)
{
    constexpr std::u16string_view letters = u"BCDFHKLMNPQRWX4";
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
    if (on(u'D'))
        options.layout = DirLayout::Down;
    if (on(u'W'))
        options.layout = DirLayout::Across;
    if (on(u'B') || on(u'F'))
        options.layout = DirLayout::Bare;
    options.fullNames = on(u'F');
    options.pauses = on(u'P');
    options.lowerCase = on(u'L');
    options.owners = on(u'Q');
    options.streams = on(u'R');
    options.shortNames = on(u'X');
    options.header = !on(u'K');
    options.footer = !on(u'M');
    options.dots = !on(u'H');
    options.thousands = !off(u'C');
    return 0;
}
