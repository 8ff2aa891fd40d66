#include "lifecycle/start_options.h"

#include "config/colors.h"
#include "expand/list_keeper.h"
#include "text/compare.h"
#include "text/format.h"
#include "text/words.h"

namespace {

constexpr std::size_t npos = std::u16string_view::npos;

std::size_t PassBlanks(std::u16string_view text, std::size_t at)
{
    while (at < text.size() && IsBlank(text[at]))
        ++at;
    return at;
}

// Behind the word at `at`: blanks part words, but for those in double quotes.
std::size_t PassWord(std::u16string_view text, std::size_t at)
{
    bool quoted = false;
    for (; at < text.size() && (quoted || !IsBlank(text[at])); ++at)
        quoted = quoted != (text[at] == u'"');
    return at;
}

// The text as one argument in the quoting that programs' start-up code undoes; false when it is not exactly
// one quoted argument.
bool ReadQuotedArgument(std::u16string_view text, CString& argument)
{
    if (text.empty() || text.front() != u'"')
        return false;
    argument.Clear();
    for (std::size_t at = 1; at < text.size(); ++at) {
        std::size_t slashes = 0;
        while (at < text.size() && text[at] == u'\\') {
            ++slashes;
            ++at;
        }
        const bool quote = at < text.size() && text[at] == u'"';
        argument.Append(CString(quote ? slashes / 2 : slashes, u'\\'));
        if (at >= text.size())
            return false;
        if (quote && slashes % 2 == 0)
            return at + 1 == text.size();
        argument.Append(text[at]);
    }
    return false;
}

class OptionReader {
public:
    explicit OptionReader(std::u16string_view commandLine) : text(commandLine) {}

    StartOptions Run()
    {
        at = PassBlanks(text, PassWord(text, 0));
        while (at < text.size() && ReadWord())
            at = PassBlanks(text, at);
        return std::move(options);
    }

private:
    // False when the rest of the line has been taken as commands.
    bool ReadWord()
    {
        const std::size_t end = PassWord(text, at);
        const CString word = WithoutOuterQuotes(text.substr(at, end - at));
        if (word.front() == u'@') {
            options.iniFile = WithoutQuotes(word.view().substr(1));
        } else if (word.front() != u'/') {
            return TakeCommands(at, StartOptions::Mode::RunAndStay);
        } else if (word[1] == u'/') {
            options.directives.push_back(word);
        } else if (!ReadSwitch(word)) {
            return false;
        }
        at = end;
        return true;
    }

    bool TakeCommands(std::size_t from, StartOptions::Mode mode)
    {
        options.mode = mode;
        from = PassBlanks(text, from);
        options.commands = text.substr(from);
        options.commands.TrimRight();
        return false;
    }

    bool ReadSwitch(const CString& word)
    {
        const char16_t letter = UpperCase(word[1]);
        if (letter == u'C' || letter == u'R')
            return TakeCommands(at + 2, StartOptions::Mode::RunAndExit);
        if (letter == u'K')
            return TakeCommands(at + 2, StartOptions::Mode::RunAndStay);
        const std::u16string_view name = word.view().substr(1);
        if (letter == u'L' && ReadLocalLists(name))
            return true;
        if (EqualNoCase(word, listKeeperSwitch))
            options.mode = StartOptions::Mode::KeepLists;
        else if (EqualNoCase(name, u"X"))
            options.noInheritance = true;
        else if (EqualNoCase(name, u"D"))
            options.noAutoRun = true;
        else if (EqualNoCase(name, u"U"))
            options.unicodeOutput = true;
        else if (EqualNoCase(name, u"A"))
            options.unicodeOutput = false;
        else if (EqualNoCase(name, u"Q"))
            options.echoOff = true;
        else if (EqualNoCase(name, u"V") || BeginsNoCase(name, u"V:"))
            options.directives.emplace_back(EndsNoCase(name, u":OFF") ? u"//DelayedExpansion=No"
                                                                      : u"//DelayedExpansion=Yes");
        else if (BeginsNoCase(name, u"E:"))
            options.directives.emplace_back(EndsNoCase(name, u":OFF") ? u"//CMDExtensions=No"
                                                                      : u"//CMDExtensions=Yes");
        else if (EqualNoCase(name, u"S"))
            options.stripsQuotes = true;
        else if (BeginsNoCase(name, u"T:"))
            return TakeColors(name.substr(2), word);
        // Switches completion of names on or off elsewhere; it is always there.
        else if (!BeginsNoCase(name, u"F:") && options.refused.empty())
            options.refused = word;
        return true;
    }

    bool TakeColors(std::u16string_view digits, const CString& word)
    {
        const std::optional<unsigned> colors = ParseColorDigits(digits);
        if (colors && (*colors & 15) != *colors >> 4)
            options.directives.push_back(Format(u"//StdColors=%s", ColorText(*colors)));
        else if (options.refused.empty())
            options.refused = word;
        return true;
    }

    bool ReadLocalLists(std::u16string_view name)
    {
        constexpr std::u16string_view letters = u"AFHD";
        if (name.size() == 1)
            options.localLists = 0xF;
        const std::size_t bit = name.size() == 2 ? letters.find(UpperCase(name[1])) : npos;
        if (bit != npos)
            options.localLists |= 1u << bit;
        return name.size() == 1 || bit != npos;
    }

    std::u16string_view text;
    std::size_t at = 0;
    StartOptions options;
};

} // namespace

StartOptions ParseStartOptions(std::u16string_view commandLine) { return OptionReader(commandLine).Run(); }

CString UnquoteCommands(std::u16string_view text, bool stripsQuotes)
{
    const std::size_t last = text.rfind(u'"');
    if (text.empty() || text.front() != u'"' || last == 0)
        return CString(text);
    const CString stripped = CString(text.substr(1, last - 1)) + text.substr(last + 1);
    if (stripsQuotes)
        return stripped;
    CString argument;
    if (ReadQuotedArgument(text, argument))
        return argument;
    // A quote that opens inside stands behind a blank, and what it quotes follows it at once.
    const std::size_t next = text.find(u'"', 1);
    const bool isAround = last == text.size() - 1 && (next == last || !IsBlank(text[next + 1]));
    return isAround ? stripped : CString(text);
}
