#include "console/completion_hint.h"

#include <algorithm>

#include "files/wildcards.h"
#include "text/compare.h"
#include "text/path_names.h"

namespace {

constexpr std::size_t npos = std::u16string_view::npos;

bool IsBlankOrComma(char16_t unit) { return IsBlank(unit) || unit == u','; }

// The next word of a list parted by blanks or commas; empty at the end.
std::u16string_view TakeWord(std::u16string_view& rest)
{
    while (!rest.empty() && IsBlankOrComma(rest[0]))
        rest.remove_prefix(1);
    const std::size_t end =
        static_cast<std::size_t>(std::find_if(rest.begin(), rest.end(), IsBlankOrComma) - rest.begin());
    const std::u16string_view word = rest.substr(0, end);
    rest.remove_prefix(end);
    return word;
}

bool IsSwitch(std::u16string_view word, char16_t switchChar)
{
    return word.size() > 1 && word[0] == switchChar;
}

// The letter of "[/r]"; 0 for other items.
char16_t SwitchLetter(std::u16string_view item)
{
    return item.size() == 4 && item[1] == u'/' ? UpperCase(item[2]) : u'\0';
}

bool NamesSwitch(std::u16string_view hint, char16_t letter)
{
    while (!hint.empty())
        if (const std::u16string_view word = TakeWord(hint); SwitchLetter(word) == letter)
            return true;
    return false;
}

struct Position {
    int argument = 1;
    char16_t behindSwitch = 0; // its letter, when a hint speaks of what follows it
};

Position FindPosition(std::u16string_view hint, const std::vector<CString>& before, char16_t switchChar)
{
    Position position;
    for (const CString& word : before) {
        if (IsSwitch(word, switchChar)) {
            const char16_t letter = UpperCase(word.back());
            position.behindSwitch = NamesSwitch(hint, letter) ? letter : u'\0';
        } else if (position.behindSwitch != 0) {
            position.behindSwitch = 0;
        } else {
            ++position.argument;
        }
    }
    return position;
}

bool SpeaksOf(std::u16string_view item, const Position& position)
{
    if (const char16_t letter = SwitchLetter(item))
        return letter == position.behindSwitch;
    if (position.behindSwitch != 0)
        return false;
    int number = 0;
    std::size_t at = 1;
    for (; at < item.size() && IsDigit(item[at]); ++at)
        number = number * 10 + (item[at] - u'0');
    const bool andLater = at < item.size() && item[at] == u'*';
    return position.argument == number || (andLater && position.argument > number);
}

void Add(ArgumentKinds& kinds, std::u16string_view word)
{
    struct Kind {
        std::u16string_view name;
        bool ArgumentKinds::*field;
    };
    static constexpr Kind names[] = {
        {u"*", &ArgumentKinds::files},
        {u"dirs", &ArgumentKinds::directories},
        {u"aliases", &ArgumentKinds::aliases},
        {u"functions", &ArgumentKinds::functions},
        {u"variables", &ArgumentKinds::variables},
        {u"commands", &ArgumentKinds::commands},
        {u"topics", &ArgumentKinds::topics},
        {u"settings", &ArgumentKinds::settings},
    };
    for (const Kind& kind : names)
        if (EqualNoCase(kind.name, word)) {
            kinds.*kind.field = true;
            return;
        }
    kinds.extensions.emplace_back(word[0] == u'.' ? word.substr(1) : word);
}

} // namespace

bool ArgumentKinds::Nothing() const
{
    return !files && !directories && !aliases && !functions && !variables && !commands && !topics &&
           !settings && extensions.empty();
}

ArgumentKinds ReadCompletionHint(std::u16string_view hint, const std::vector<CString>& before,
                                 char16_t switchChar)
{
    const Position position = FindPosition(hint, before, switchChar);
    ArgumentKinds kinds;
    bool speaks = position.behindSwitch == 0;
    while (!hint.empty()) {
        const std::u16string_view word = TakeWord(hint);
        if (word.empty())
            break;
        if (word[0] == u'[')
            speaks = SpeaksOf(word, position);
        else if (speaks)
            Add(kinds, word);
    }
    return kinds;
}

bool FitsCommandNames(std::u16string_view names, std::u16string_view command)
{
    const std::u16string_view file = FileNamePart(command);
    const std::u16string_view stem = file.substr(0, file.size() - ExtensionPart(file).size());
    while (!names.empty()) {
        const std::u16string_view name = TakeWord(names);
        if (!name.empty() && (WildcardComparison(name, file, false, false) == 0 ||
                              WildcardComparison(name, stem, false, false) == 0))
            return true;
    }
    return false;
}

CString FileCompletionHint(std::u16string_view setting, std::u16string_view command)
{
    while (!setting.empty()) {
        const std::size_t end = std::min(setting.find(u';'), setting.size());
        const std::u16string_view entry = setting.substr(0, end);
        setting.remove_prefix(std::min(end + 1, setting.size()));
        const std::size_t colon = entry.find(u':');
        if (colon != npos && FitsCommandNames(entry.substr(0, colon), command))
            return entry.substr(colon + 1);
    }
    return {};
}

std::vector<SwitchTopic> SwitchesOfHelp(std::u16string_view lines)
{
    std::vector<SwitchTopic> topics;
    while (!lines.empty()) {
        const std::size_t lineEnd = std::min(lines.find(u'\n'), lines.size());
        const std::u16string_view line = lines.substr(0, lineEnd);
        lines.remove_prefix(std::min(lineEnd + 1, lines.size()));
        std::u16string_view names = line.substr(0, line.find(u"  "));
        const std::u16string_view what =
            line.substr(std::min(line.find_first_not_of(u' ', names.size()), line.size()));
        if (what.empty() || names.empty() || names[0] != u'/')
            continue;
        while (!names.empty()) {
            const std::u16string_view word = TakeWord(names);
            const std::size_t nameEnd = std::min(word.find_first_of(u":=[|\"", 1), word.size());
            if (nameEnd > 1 && word[0] == u'/')
                topics.push_back({word.substr(0, nameEnd), what});
        }
    }
    return topics;
}
