#include "commands/start_switches.h"

#include <algorithm>

#include "lang/errors.h"
#include "text/compare.h"
#include "text/numbers.h"
#include "text/words.h"

namespace {

constexpr std::size_t npos = std::u16string_view::npos;

class Reader {
public:
    Reader(std::u16string_view commandText, const Syntax& syntaxInForce, StartSwitches& target)
        : text(commandText), syntax(syntaxInForce), read(target)
    {}

    unsigned Run(CString& place)
    {
        for (SkipBlanks(); !text.empty(); SkipBlanks()) {
            if (text.front() == u'"' && !read.hasTitle) {
                TakeTitle();
            } else if (text.front() == syntax.switchChar) {
                if (const unsigned code = TakeSwitch(place); code != 0)
                    return code;
                if (!read.program.empty())
                    break;
            } else {
                break;
            }
        }
        read.command = text;
        read.command.Trim();
        return 0;
    }

private:
    struct Row {
        const char16_t* name;
        void (*apply)(StartSwitches& read);
    };
    struct ValueRow {
        const char16_t* name;
        bool (*apply)(StartSwitches& read, const CString& value);
    };
    static const Row rows[];
    static const ValueRow valueRows[];

    void SkipBlanks()
    {
        const std::size_t at = text.find_first_not_of(u" \t,");
        text.remove_prefix(std::min(at, text.size()));
    }

    void TakeTitle()
    {
        const std::size_t end = text.find(u'"', 1);
        read.title = text.substr(1, end == npos ? npos : end - 1);
        read.hasTitle = true;
        text.remove_prefix(end == npos ? text.size() : end + 1);
    }

    unsigned TakeSwitch(CString& place);
    CString TakeValue();

    std::u16string_view text;
    const Syntax& syntax;
    StartSwitches& read;
};

template <StartPriority value> void SetPriority(StartSwitches& read) { read.priority = value; }
template <StartWindow value> void SetWindow(StartSwitches& read) { read.window = value; }
template <StartShell value> void SetShell(StartSwitches& read) { read.shell = value; }
template <bool StartSwitches::*field> void SetFlag(StartSwitches& read) { read.*field = true; }
template <char16_t letter> void AddShellSwitch(StartSwitches& read)
{
    read.shellSwitches.Append(u" /L");
    if (letter != 0)
        read.shellSwitches.Append(letter);
}
void Accept(StartSwitches&) {}

const Reader::Row Reader::rows[] = {
    {u"ABOVENORMAL", SetPriority<StartPriority::AboveNormal>},
    {u"B", SetFlag<&StartSwitches::sameConsole>},
    {u"BELOWNORMAL", SetPriority<StartPriority::BelowNormal>},
    {u"C", SetShell<StartShell::Ends>},
    {u"HIGH", SetPriority<StartPriority::High>},
    {u"I", SetFlag<&StartSwitches::originalEnvironment>},
    {u"INV", SetWindow<StartWindow::Invisible>},
    {u"K", SetShell<StartShell::Stays>},
    {u"L", AddShellSwitch<u'\0'>},
    {u"LA", AddShellSwitch<u'A'>},
    {u"LD", AddShellSwitch<u'D'>},
    {u"LF", AddShellSwitch<u'F'>},
    {u"LH", AddShellSwitch<u'H'>},
    {u"LOW", SetPriority<StartPriority::Low>},
    {u"MAX", SetWindow<StartWindow::Maximized>},
    {u"MIN", SetWindow<StartWindow::Minimized>},
    {u"NORMAL", SetPriority<StartPriority::Normal>},
    {u"REALTIME", SetPriority<StartPriority::Realtime>},
    {u"RUNAS", SetFlag<&StartSwitches::elevated>},
    {u"SEPARATE", Accept}, // for the 16-bit programs of long ago
    {u"SHARED", Accept},
    {u"TAB", Accept},                      // a tab of the graphical host; without it, a window like any other
    {u"W", SetFlag<&StartSwitches::wait>}, // as scripts write it
    {u"WAIT", SetFlag<&StartSwitches::wait>},
};

bool SetDirectory(StartSwitches& read, const CString& value)
{
    read.directory = value;
    return !value.empty();
}

bool SetProgram(StartSwitches& read, const CString& value)
{
    read.program = value;
    return !value.empty();
}

bool SetNode(StartSwitches& read, const CString& value)
{
    const auto number = ParseInteger(value);
    if (!number || *number < 0 || *number > 0xFFFF)
        return false;
    read.node = static_cast<unsigned>(*number);
    return true;
}

// Hexadecimal, with or without 0x.
bool SetAffinity(StartSwitches& read, const CString& value)
{
    const CString digits = BeginsNoCase(value, u"0x") ? value : CString(u"0x") + value;
    const auto number = ParseInteger(digits);
    if (!number || *number <= 0)
        return false;
    read.affinity = static_cast<std::uint64_t>(*number);
    return true;
}

// Numbers parted by commas; how many there were, or -1.
int ReadNumbers(std::u16string_view list, int* numbers, int most)
{
    for (int count = 0; count < most; ++count) {
        const std::size_t end = std::min(list.find(u','), list.size());
        const auto number = ParseInteger(list.substr(0, end));
        if (!number || *number < -32768 || *number > 32767)
            return -1;
        numbers[count] = static_cast<int>(*number);
        if (end == list.size())
            return count + 1;
        list.remove_prefix(end + 1);
    }
    return -1;
}

bool SetPlace(StartSwitches& read, const CString& value)
{
    int numbers[4] = {};
    const int count = ReadNumbers(value, numbers, 4);
    if ((count != 2 && count != 4) || numbers[2] < 0 || numbers[3] < 0)
        return false;
    read.place = StartRectangle{numbers[0], numbers[1], numbers[2], numbers[3]};
    return true;
}

bool SetSize(StartSwitches& read, const CString& value)
{
    int numbers[2] = {};
    if (ReadNumbers(value, numbers, 2) != 2 || numbers[0] <= 0 || numbers[1] <= 0)
        return false;
    read.size = StartRectangle{0, 0, numbers[0], numbers[1]};
    return true;
}

const Reader::ValueRow Reader::valueRows[] = {
    {u"AFFINITY", SetAffinity}, {u"D", SetDirectory}, {u"NODE", SetNode},
    {u"PGM", SetProgram},       {u"POS", SetPlace},   {u"SIZE", SetSize},
};

unsigned Reader::TakeSwitch(CString& place)
{
    std::size_t end = 1;
    while (end < text.size() && IsAsciiLetter(text[end]))
        ++end;
    const std::u16string_view name = text.substr(1, end - 1);
    const Word word = NextWord(text, 0, syntax);
    place = text.substr(0, std::max<std::size_t>(word.length, 1));
    auto named = [&](const auto& row) { return EqualNoCase(row.name, name); };
    const bool isWhole = end == text.size() || IsBlank(text[end]) || text[end] == syntax.switchChar ||
                         text[end] == u'"' || text[end] == u',';
    if (const auto row = std::find_if(std::begin(rows), std::end(rows), named);
        row != std::end(rows) && isWhole) {
        row->apply(read);
        text.remove_prefix(end);
        return 0;
    }
    auto valueRow = std::find_if(std::begin(valueRows), std::end(valueRows), named);
    if (valueRow == std::end(valueRows)) {
        // "/Dfolder": the value begins right behind the letter.
        if (name.empty() || UpperCase(name[0]) != u'D')
            return errors::invalidSwitch;
        end = 2;
        valueRow = std::find_if(std::begin(valueRows), std::end(valueRows),
                                [](const ValueRow& row) { return EqualNoCase(row.name, u"D"); });
    }
    text.remove_prefix(end);
    return valueRow->apply(read, TakeValue()) ? 0 : errors::invalidSwitch;
}

// The value behind a switch's name, "=", ":" or blanks between them; quotes around it removed.
CString Reader::TakeValue()
{
    if (!text.empty() && (text.front() == u'=' || text.front() == u':'))
        text.remove_prefix(1);
    const std::size_t start = text.find_first_not_of(u" \t");
    text.remove_prefix(std::min(start, text.size()));
    std::size_t end = 0;
    for (bool quoted = false; end < text.size() && (quoted || !IsBlank(text[end])); ++end)
        quoted = quoted != (text[end] == u'"');
    CString value = WithoutQuotes(text.substr(0, end));
    text.remove_prefix(end);
    return value;
}

} // namespace

unsigned ReadStartSwitches(std::u16string_view text, const Syntax& syntax, StartSwitches& read,
                           CString& place)
{
    return Reader(text, syntax, read).Run(place);
}
