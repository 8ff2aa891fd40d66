#include "commands/setdos.h"

#include <algorithm>
#include <iterator>

#include "commands/definitions.h"
#include "commands/option_effects.h"
#include "config/ini_file.h"
#include "core/command_lookup.h"
#include "core/command_switches.h"
#include "engine/command_state.h"
#include "engine/inifile.h"
#include "engine/output.h"
#include "engine/results.h"
#include "engine/state.h"
#include "text/compare.h"
#include "text/words.h"

const CommandHelp setdosHelp = {
    u"Shows or changes how the command line behaves, for this shell.",
    u"SETDOS [/A0 | /A1] [/Cc] [/D0 | /D1 | /Dname] [/Ec] [/Fmin.max] [/Gdt | /G0] [/I+name | /I-name] "
    u"[/Mn] [/N0 | /N1] [/Pc] [/So:i] [/T0 | /T1] [/V0 | /V1] [/X[+|-]list]",
    u"/A  escape sequences in output: 1 on, 0 off\n"
    u"/C  the character that parts commands\n"
    u"/D  file descriptions: 1 on, 0 off, or the name of the file that holds them\n"
    u"/E  the escape character\n"
    u"/F  decimal places that calculations show, at least and at most; either may be left out\n"
    u"/G  the characters before decimals and between thousands, each one of . , '; 0 for the country's\n"
    u"/I  switches an internal command on (+) or off (-); /I+* switches all on\n"
    u"/M  line editing: 0 overstrike, 1 insert, 2 and 3 the same for each new line only\n"
    u"/N  redirection keeps existing files: 1 on, 0 off\n"
    u"/P  the character behind a parameter number that means \"and all after it\"\n"
    u"/S  height of the cursor in percent, for overstrike and insert; -1 leaves it alone\n"
    u"/T  each line of a batch file is shown on standard error before it runs, with its depth, file and "
    u"number: 1 on, 0 off\n"
    u"/V  batch files begin with their commands shown: 1 on, 0 off\n"
    u"/X  switches parts of expansion off (-) or on (+): 1 aliases, 2 aliases in aliases, 3 %=, 4 "
    u"references in values, 6 redirection and pipes, 7 brackets of regular expressions, 8 the escape "
    u"character, A references in the results of functions. 0 stands for all of them; /X0 switches all on\n"
    u"Without arguments all of this is shown as it is now. A character may be given by its code, too: 0x7E.",
    u"setdos /i-del /n1\n"
    u"setdos /x-68 & type odd.txt & setdos /x+68\n"
    u"setdos /c~ /e0x60",
};

namespace {

using View = std::u16string_view;

struct Part {
    char16_t digit;
    unsigned bit;
};
constexpr Part parts[] = {
    {u'1', expansion_mask::noAliases},         {u'2', expansion_mask::noNestedAliases},
    {u'3', expansion_mask::noPseudoVariables}, {u'4', expansion_mask::valuesNotRescanned},
    {u'6', expansion_mask::noRedirection},     {u'7', expansion_mask::noBracketRule},
    {u'8', expansion_mask::noEscapes},         {u'A', expansion_mask::resultsNotRescanned},
};

constexpr int refused = -1; // the value makes no sense; to be reported with its switch

CString Behind(View value)
{
    return CString(value.starts_with(u':') || value.starts_with(u'=') ? value.substr(1) : value);
}

int SetYesNo(View setting, View text)
{
    const CString value = Behind(text);
    for (const View on : {u"1", u"on", u"yes"})
        if (EqualNoCase(value, on))
            return ChangeSetting(setting, u"Yes");
    for (const View off : {u"0", u"off", u"no"})
        if (EqualNoCase(value, off))
            return ChangeSetting(setting, u"No");
    return refused;
}

// A character that a line of an INI file gives another meaning is handed on by its code.
int SetCharacter(View setting, View text)
{
    const bool coded = text.size() == 1 && text[0] < 0x100;
    return ChangeSetting(setting, coded ? Format(u"0x%02X", unsigned{text[0]}) : CString(text));
}

int SetEditMode(View setting, View text)
{
    constexpr View modes[] = {u"Overstrike", u"Insert", u"InitOverstrike", u"InitInsert"};
    const CString value = Behind(text);
    const std::size_t mode = value.size() == 1 ? static_cast<std::size_t>(value[0] - u'0') : std::size(modes);
    return mode < std::size(modes) ? ChangeSetting(setting, modes[mode]) : refused;
}

int SetDescriptions(View, View text)
{
    const CString value = Behind(text);
    if (value.empty())
        return refused;
    return value == u"0" || value == u"1" ? SetYesNo(u"Descriptions", value)
                                          : ChangeSetting(u"DescriptionName", value);
}

// Two numbers with one of `separators` between them; either may be missing, but not both.
bool CutPair(View value, View separators, View& first, View& second)
{
    const std::size_t at = std::min(value.find_first_of(separators), value.size());
    first = value.substr(0, at);
    second = at < value.size() ? value.substr(at + 1) : View();
    return !first.empty() || !second.empty();
}

int SetPair(View text, View separators, View firstSetting, View secondSetting)
{
    const CString value = Behind(text);
    View first;
    View second;
    if (!CutPair(value, separators, first, second))
        return refused;
    int code = first.empty() ? result::success : ChangeSetting(firstSetting, first);
    if (code == result::success && !second.empty())
        code = ChangeSetting(secondSetting, second);
    return code;
}

int SetPlaces(View, View text) { return SetPair(text, u".,", u"EvalMin", u"EvalMax"); }
int SetCursor(View, View text) { return SetPair(text, u":,", u"CursorOver", u"CursorIns"); }

int SetSeparators(View, View text)
{
    View value = text;
    if (value == u"0")
        value = u"00";
    if (value.size() != 2 || (value[0] == value[1] && value[0] != u'0'))
        return refused;
    auto name = [&](std::size_t i) { return value[i] == u'0' ? View(u"Auto") : value.substr(i, 1); };
    const int code = ChangeSetting(u"DecimalChar", name(0));
    return code == result::success ? ChangeSetting(u"ThousandsChar", name(1)) : code;
}

// A bit of the setting Debug.
int SetTracing(View setting, View text)
{
    const CString value = Behind(text);
    if (value != u"0" && value != u"1")
        return refused;
    const std::uint32_t others = aIniFile.Debug & ~debug_bits::traceLines;
    return ChangeSetting(setting, Format(u"%u", value == u"1" ? others | debug_bits::traceLines : others));
}

int SwitchCommand(View, View text)
{
    const View name = text.substr(std::min<std::size_t>(1, text.size()));
    if (name.empty() || (text[0] != u'+' && text[0] != u'-'))
        return refused;
    const bool on = text[0] == u'+';
    const bool all = on && name == u"*";
    if (!all && FindRow(aInternalCommands, nInternalCommands, name) < 0)
        return MVError(errors::unknownCommand, name);
    return on ? EnableInternalCommand(all ? View() : name) : DisableInternalCommand(name);
}

int SwitchExpansion(View, View text)
{
    const bool sign = text.starts_with(u'+') || text.starts_with(u'-');
    const View digits = text.substr(sign ? 1 : 0);
    if (digits.empty() || (!sign && digits != u"0"))
        return refused;
    unsigned bits = 0;
    for (const char16_t digit : digits) {
        const Part* part = std::find_if(std::begin(parts), std::end(parts),
                                        [&](const Part& each) { return each.digit == UpperCase(digit); });
        if (part != std::end(parts))
            bits |= part->bit;
        else if (digit != u'0')
            return refused;
        else
            for (const Part& each : parts)
                bits |= each.bit;
    }
    if (text[0] == u'-')
        aGlobals.expansionMask |= bits;
    else
        aGlobals.expansionMask &= ~bits;
    return result::success;
}

// One row for each line that is shown; the first row of a letter carries it out.
struct SetdosRow {
    char16_t letter;
    const char16_t* setting; // null: shown in a way of its own
    int (*set)(View setting, View value);
};
constexpr SetdosRow rows[] = {
    {u'A', u"ANSI", SetYesNo},
    {u'C', u"CommandSep", SetCharacter},
    {u'D', u"Descriptions", SetDescriptions},
    {u'D', u"DescriptionName", SetDescriptions},
    {u'E', u"EscapeChar", SetCharacter},
    {u'F', u"EvalMin", SetPlaces},
    {u'F', u"EvalMax", SetPlaces},
    {u'G', u"DecimalChar", SetSeparators},
    {u'G', u"ThousandsChar", SetSeparators},
    {u'I', nullptr, SwitchCommand},
    {u'M', u"EditMode", SetEditMode},
    {u'N', u"NoClobber", SetYesNo},
    {u'P', u"ParameterChar", SetCharacter},
    {u'S', u"CursorOver", SetCursor},
    {u'S', u"CursorIns", SetCursor},
    {u'T', u"Debug", SetTracing},
    {u'V', u"BatchEcho", SetYesNo},
    {u'X', nullptr, SwitchExpansion},
};

CString DisabledCommands()
{
    CString names;
    for (int i = 0; i < nInternalCommands; ++i)
        if (!IsCommandEnabled(aInternalCommands[i]))
            names.Append(Format(u" -%s", aInternalCommands[i].name));
    return names.TrimLeft();
}

CString DisabledParts()
{
    CString digits;
    for (const Part& part : parts)
        if ((aGlobals.expansionMask & part.bit) != 0)
            digits.Append(part.digit);
    return digits.empty() ? CString(u"0") : CString(u"-") + digits;
}

int ShowAll()
{
    CString text;
    for (const SetdosRow& row : rows) {
        CString value;
        if (row.setting) {
            GetOptionValue(row.setting, value);
            value = Format(u"%s=%s", row.setting, value);
        } else {
            value = row.letter == u'I' ? DisabledCommands() : DisabledParts();
        }
        CString line = Format(u"%c%c  %s", CurrentSyntax().switchChar, row.letter, value);
        text.Append(line.TrimRight()).Append(u"\r\n");
    }
    return Print(text) ? result::success : MVError(0);
}

int ObeySwitch(const CString& word)
{
    const SetdosRow* row = std::find_if(std::begin(rows), std::end(rows), [&](const SetdosRow& each) {
        return each.letter == UpperCase(word[1]);
    });
    if (row == std::end(rows))
        return MVError(errors::invalidSwitch, word);
    const int code = row->set(row->setting ? View(row->setting) : View(), word.view().substr(2));
    return code == refused ? MVError(errors::invalidNumber, word) : code;
}

} // namespace

int Setdos_Command(CString& arguments)
{
    int code = result::success;
    if (RefuseDialog(arguments, code))
        return code;
    arguments.Trim();
    if (arguments.empty())
        return ShowAll();
    const char16_t switchChar = CurrentSyntax().switchChar;
    for (Word at = NextBlankWord(arguments, 0); at.length > 0; at = NextBlankWord(arguments, at.end())) {
        const CString word = WithoutQuotes(arguments.view().substr(at.start, at.length));
        if (word.front() != switchChar)
            return UsageError();
        if (const int answer = ObeySwitch(word))
            code = answer;
    }
    return code;
}
