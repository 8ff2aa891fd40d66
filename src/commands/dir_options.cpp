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

// The single letters of one line: those given, and those taken back ("/-X").
class Letters {
public:
    void TakeBack(CString& arguments)
    {
        for (std::size_t bit = 0; bit < list.size(); ++bit)
            while (TakeSwitchWord(arguments, Format(u"-%c", list[bit])))
                taken |= std::uint64_t{1} << bit;
    }
    int Read(CString& arguments) { return ReadSwitches(arguments, list, given); }

    bool Off(char16_t letter) const { return (taken >> list.find(letter) & 1) != 0; }
    bool On(char16_t letter) const { return (given >> list.find(letter) & 1) != 0 && !Off(letter); }
    // `off` is what the option is without the switch.
    void Set(char16_t letter, bool& option, bool off = false) const
    {
        if (On(letter) || Off(letter))
            option = On(letter) != off;
    }

private:
    static constexpr std::u16string_view list = u"BCDEFGHKLMNPQRVWXZ124";
    std::uint64_t given = 0;
    std::uint64_t taken = 0;
};

void TakeBackTexts(CString& arguments, DirOptions& options)
{
    const DirOptions fresh;
    if (TakeSwitchWord(arguments, u"-A"))
        options.attributes = fresh.attributes;
    if (TakeSwitchWord(arguments, u"-T")) {
        options.time = fresh.time;
        options.utc = fresh.utc;
    }
    if (TakeSwitchWord(arguments, u"-U"))
        options.summary = fresh.summary;
    if (TakeSwitchWord(arguments, u"-O"))
        options.order.clear();
    if (TakeSwitchWord(arguments, u"-S"))
        options.deepest = fresh.deepest;
}

// Each line that is read starts with the layout that the one before it asked for.
void ReadLayout(const Letters& letters, DirOptions& options)
{
    const bool was[] = {letters.Off(u'B') || letters.Off(u'F'), letters.Off(u'D') || letters.Off(u'V'),
                        letters.Off(u'W')};
    const DirLayout of[] = {DirLayout::Bare, DirLayout::Down, DirLayout::Across};
    for (std::size_t i = 0; i < std::size(of); ++i)
        if (was[i] && options.layout == of[i])
            options.layout = DirLayout::Long;
    if (letters.On(u'N') || letters.Off(u'1') || letters.Off(u'2')) {
        options.layout = DirLayout::Long;
        options.columns = 0;
    }
    const bool counted = letters.On(u'1') || letters.On(u'2');
    if (counted)
        options.columns = letters.On(u'1') ? 1 : 2;
    if (letters.On(u'D') || letters.On(u'V'))
        options.layout = DirLayout::Down;
    if (letters.On(u'W') || (counted && options.layout != DirLayout::Down))
        options.layout = DirLayout::Across;
    if (letters.On(u'B') || letters.On(u'F'))
        options.layout = DirLayout::Bare;
    letters.Set(u'F', options.fullNames);
}

} // namespace

int ReadDirOptions(CString& arguments, DirOptions& options)
{
    if (const int code = GetRange(arguments, &options.ranges, 0))
        return code;
    Letters letters;
    letters.TakeBack(arguments);
    if (const int code = ReadTexts(arguments, options))
        return code;
    TakeBackTexts(arguments, options);
    if (const int code = letters.Read(arguments))
        return code;
    ReadLayout(letters, options);
    letters.Set(u'P', options.pauses);
    letters.Set(u'G', options.allocated);
    letters.Set(u'Z', options.fatNames);
    letters.Set(u'Q', options.owners);
    letters.Set(u'R', options.streams);
    letters.Set(u'X', options.shortNames);
    letters.Set(u'K', options.header, true);
    letters.Set(u'M', options.footer, true);
    letters.Set(u'H', options.dots, true);
    letters.Set(u'C', options.thousands);
    letters.Set(u'E', options.upperCase);
    letters.Set(u'L', options.lowerCase);
    if (letters.On(u'E') && !letters.On(u'L'))
        options.lowerCase = false;
    return 0;
}
