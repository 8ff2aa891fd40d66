#include "commands/keyboard.h"

#include <algorithm>
#include <iterator>

#include <windows.h>

#include "batch/window_tests.h"
#include "commands/option_effects.h"
#include "commands/pager.h"
#include "config/key_functions.h"
#include "config/key_names.h"
#include "console/key_press_names.h"
#include "core/command_switches.h"
#include "engine/break.h"
#include "engine/inifile.h"
#include "engine/output.h"
#include "engine/results.h"
#include "engine/state.h"
#include "files/wildcards.h"
#include "lang/console_messages.h"
#include "lang/messages.h"
#include "platform/console.h"
#include "platform/console_typing.h"
#include "platform/desktop.h"
#include "platform/key_sending.h"
#include "platform/window_changes.h"
#include "text/cell_width.h"
#include "text/compare.h"
#include "text/numbers.h"
#include "text/words.h"

const CommandHelp keybdHelp = {
    u"Shows or sets the states of Caps Lock, Num Lock and Scroll Lock.",
    u"KEYBD [/C0 | /C1] [/N0 | /N1] [/S0 | /S1]",
    u"/C  Caps Lock: 1 on, 0 off\n"
    u"/N  Num Lock\n"
    u"/S  Scroll Lock\n"
    u"Without switches the states are shown; the variables %_capslock, %_numlock and %_scrolllock tell "
    u"them, too.",
    u"keybd\n"
    u"keybd /c0 /n1",
};

const CommandHelp keysHelp = {
    u"Shows and changes what keys do on the command line.",
    u"KEYS [ON | OFF]\n"
    u"KEYS [/K:key | /P | /R] [LIST | name ...]\n"
    u"KEYS name=[key ...]",
    u"/K  the functions that a key has\n"
    u"/P  wait for a key after each screen\n"
    u"/R  the functions named, or all with LIST, have their usual keys again\n"
    u"ON   lines are edited by the shell, with its keys\n"
    u"OFF  lines are read by the console's own line input (the setting ReadConsole)\n"
    u"LIST  all functions with their keys and what they do\n"
    u"A name is that of a function and may hold the wildcards * and ?. With \"=\" the function has just the "
    u"keys that follow, such as Ctrl-F5 or Alt-Shift-Left; without any it has none. Keys that type a "
    u"character are for LIST and windows only. That lasts until the shell ends; lines of the same form in "
    u"the INI file last.",
    u"keys list\n"
    u"keys *hist*\n"
    u"keys /k:f8\n"
    u"keys EraseLine=Esc Ctrl-U",
};

const CommandHelp keystackHelp = {
    u"Presses keys for programs that are to come, or for another window.",
    u"KEYSTACK [/A | /T:\"title\"] [!] [/Wticks] [\"text\" | key ...] ...",
    u"/A  the keys go to the window that is in front now\n"
    u"/T  the keys go to the window of this title, which comes to the front; wildcards are allowed\n"
    u"/W  the next key comes so many eighteenths of a second later\n"
    u"!   keys that wait already are forgotten\n"
    u"Text in double quotes is typed. A key is named as in INI files: Enter, F1, Ctrl-F5, Alt-X; \"*n\" "
    u"behind a name repeats it. A number of two or three digits is the code of a character. Without /A and "
    u"/T the keys wait in this console for whoever reads it next, the shell or a program; keys behind a /W "
    u"come when their time has come, while the script goes on.",
    u"keystack \"dir /w\" Enter\n"
    u"keystack Tab*3 \"yes\" Enter & setup.exe\n"
    u"keystack /w36 Esc & slideshow.exe\n"
    u"keystack /t:\"*Notepad\" \"Dear all,\" Enter",
};

namespace {

constexpr std::uint64_t millisecondsPerTick = 55;

// KEYBD

struct LockKey {
    char16_t letter;
    int virtualKey;
    unsigned name;
};
constexpr LockKey lockKeys[] = {
    {u'C', VK_CAPITAL, message::capsLock},
    {u'N', VK_NUMLOCK, message::numLock},
    {u'S', VK_SCROLL, message::scrollLock},
};

int ShowLockKeys()
{
    for (const LockKey& key : lockKeys)
        if (!PrintLine(LoadMessage(message::keyState, LoadMessage(key.name)) +
                       OnOffText(IsKeyOn(key.virtualKey))))
            return MVError(0);
    return result::success;
}

// KEYS

// The first columns of a row, and a text whose words go on below it where the console ends.
bool PrintRow(Pager& pager, CString columns, std::u16string_view text)
{
    constexpr int narrowest = 10; // cells for the text; with fewer the row is left as it is
    const std::size_t indent = columns.size();
    const int room = IsConsole(1) ? OutputSize().columns - 1 - static_cast<int>(indent) : 0;
    for (;;) {
        const std::size_t cut = room < narrowest ? text.size() : WordsThatFit(text, room);
        if (!pager.Line(columns.Append(text.substr(0, cut)).TrimRight()))
            return false;
        if (cut == text.size())
            return true;
        columns = CString(indent, u' ');
        text.remove_prefix(std::min(text.find_first_not_of(u' ', cut), text.size()));
    }
}

int ShowFunction(Pager& pager, std::size_t function)
{
    const KeyFunctionRow& row = aKeyFunctions[function];
    const CString columns = Format(u"%-20s %-28s ", row.name, aKeyBindings.Keys(static_cast<int>(function)));
    return PrintRow(pager, columns, row.description) ? result::success : MVError(0);
}

template <typename Act> int ForFunctions(std::u16string_view pattern, Act act)
{
    bool found = false;
    for (std::size_t i = 0; i < nKeyFunctions; ++i) {
        if (WildcardComparison(pattern, aKeyFunctions[i].name, false, true) != 0)
            continue;
        found = true;
        if (const int code = act(i))
            return code;
    }
    return found ? result::success : MVError(errors::unknownKeyFunction, pattern);
}

int ResetFunction(std::size_t function)
{
    aKeyBindings.Reset(static_cast<int>(function));
    return result::success;
}

int ShowKey(std::u16string_view word)
{
    const CString key = KeyName(word);
    if (key.empty())
        return MVError(errors::unknownKey, word);
    bool found = false;
    Pager pager(false);
    for (unsigned category = key_category::editing; KeyCategoryName(category); category <<= 1) {
        const int function = aKeyBindings.FindKeyFunction(category, key);
        if (function < 0)
            continue;
        found = true;
        const KeyFunctionRow& row = aKeyFunctions[static_cast<std::size_t>(function)];
        if (!PrintRow(pager, Format(u"%-20s %-20s ", KeyCategoryName(category), row.name), row.description))
            return MVError(0);
    }
    return found || PrintLine(LoadMessage(message::unboundKey, key)) ? result::success : MVError(0);
}

int BindKeys(std::u16string_view name, std::u16string_view keys)
{
    const int function = KeyBindings::Find(CString(name).Trim());
    if (CString(name).Trim().empty())
        return UsageError();
    if (function < 0)
        return MVError(errors::unknownKeyFunction, name);
    // Where a line is edited such a key types its character, whatever it is bound to.
    const bool typed =
        (aKeyFunctions[static_cast<std::size_t>(function)].category & key_category::lineEditor) != 0;
    CString spelled;
    std::vector<CString> bound;
    for (Word word = NextBlankWord(keys, 0); word.length > 0; word = NextBlankWord(keys, word.end())) {
        const CString key = KeyName(keys.substr(word.start, word.length));
        if (key.empty())
            return MVError(errors::unknownKey, keys.substr(word.start, word.length));
        if (typed && IsTypingKey(key))
            return MVError(errors::invalidKey, key);
        if (std::find(bound.begin(), bound.end(), key) != bound.end())
            continue;
        bound.push_back(key);
        spelled.Append(spelled.empty() ? u"" : u" ").Append(key);
    }
    aKeyBindings.SetKeys(function, spelled);
    return result::success;
}

// ON, OFF and no argument; nothing for anything else.
std::optional<int> SwitchEditor(std::u16string_view argument)
{
    if (argument.empty())
        return PrintLine(LoadMessage(message::keysState, OnOffText(!aIniFile.ReadConsole))) ? result::success
                                                                                            : MVError(0);
    const auto on = ReadOnOff(argument);
    return on ? std::optional(ChangeSetting(u"ReadConsole", *on ? u"No" : u"Yes")) : std::nullopt;
}

// KEYSTACK

struct KeyScript {
    std::optional<CString> title;
    bool toActive = false;
    bool drop = false;
    std::vector<TypedKey> keys;
};

class KeyScriptReader {
public:
    explicit KeyScriptReader(KeyScript& filled) : script(filled) {}

    int Read(std::u16string_view text)
    {
        for (Word word = NextBlankWord(text, 0); word.length > 0; word = NextBlankWord(text, word.end()))
            if (const int code = TakeWord(text.substr(word.start, word.length)))
                return code;
        const bool nothing = script.keys.empty() && !script.drop;
        return nothing || (script.toActive && script.title) ? UsageError() : result::success;
    }

private:
    int TakeWord(std::u16string_view word)
    {
        if (word.front() == CurrentSyntax().switchChar && word.size() > 1)
            return TakeSwitch(word.substr(1));
        if (word.front() == u'"') {
            const CString typed = WithoutOuterQuotes(word);
            for (const char16_t unit : typed.view())
                Add(KeyPressTyping(unit));
            return result::success;
        }
        if (word == u"!") {
            script.drop = true;
            return result::success;
        }
        return TakeKey(word);
    }

    int TakeSwitch(std::u16string_view one)
    {
        if (EqualNoCase(one, u"A")) {
            script.toActive = true;
            return result::success;
        }
        if (const auto title = SwitchValue(one, u"T")) {
            script.title = *title;
            return title->empty() ? RefuseSwitch(one) : result::success;
        }
        const auto ticks = SwitchValue(one, u"W");
        const auto time = ticks ? ParseDuration(*ticks, millisecondsPerTick) : std::nullopt;
        if (!time)
            return RefuseSwitch(one);
        delay += *time;
        return result::success;
    }

    int TakeKey(std::u16string_view word)
    {
        constexpr std::int64_t mostRepeats = 1000;
        std::int64_t repeats = 1;
        std::u16string_view name = word;
        const std::size_t star = word.rfind(u'*');
        if (star != word.npos && star > 0) {
            const auto number = ParseInteger(word.substr(star + 1));
            if (!number || *number < 1 || *number > mostRepeats)
                return MVError(errors::invalidNumber, word);
            repeats = *number;
            name = word.substr(0, star);
        }
        std::optional<KeyPress> key = KeyPressOf(name);
        if (const auto code = key ? std::nullopt : CharacterCode(name))
            key = KeyPressTyping(static_cast<char16_t>(*code));
        if (!key)
            return MVError(errors::unknownKey, word);
        for (; repeats > 0; --repeats)
            Add(*key);
        return result::success;
    }

    void Add(const KeyPress& key) { script.keys.push_back({key, std::exchange(delay, 0)}); }

    KeyScript& script;
    std::uint64_t delay = 0;
};

int SendToWindow(const KeyScript& script)
{
    if (script.title) {
        const HWND window = FindTopWindow(*script.title);
        if (!window)
            return MVError(errors::noWindow, *script.title);
        if (!BringToFront(window))
            return MVError(0, *script.title);
    }
    for (const TypedKey& key : script.keys) {
        SleepOrBreak(key.delay);
        if (!SendKey(key.key))
            return MVError(0);
    }
    return result::success;
}

} // namespace

int Keybd_Command(CString& arguments)
{
    std::vector<std::pair<int, bool>> wanted; // keys and their states
    CString one;
    while (TakeLeadingSwitch(arguments, one)) {
        const bool valid = one.size() == 2 && (one[1] == u'0' || one[1] == u'1');
        const auto* const key =
            std::find_if(std::begin(lockKeys), std::end(lockKeys),
                         [&](const LockKey& row) { return valid && UpperCase(one[0]) == row.letter; });
        if (key == std::end(lockKeys))
            return RefuseSwitch(one);
        wanted.emplace_back(key->virtualKey, one[1] == u'1');
    }
    if (!arguments.empty())
        return UsageError();
    for (const auto& [key, on] : wanted)
        if (!SetLockKey(key, on))
            return MVError(0);
    return wanted.empty() ? ShowLockKeys() : result::success;
}

int Keys_Command(CString& arguments)
{
    CString key;
    std::uint64_t flags = 0;
    if (const std::size_t equals = arguments.Find(u'='); equals != CString::npos && arguments.front() != u'/')
        return BindKeys(arguments.Substr(0, equals), arguments.Substr(equals + 1));
    if (TakeSwitchText(arguments, u"K", key))
        return !key.empty() && arguments.Trim().empty() ? ShowKey(key) : UsageError();
    if (const int code = ReadSwitches(arguments, u"PR", flags))
        return code;
    arguments.Trim();
    const bool resets = (flags & 2) != 0;
    Pager pager((flags & 1) != 0);
    const auto act = [&](std::size_t function) {
        return resets ? ResetFunction(function) : ShowFunction(pager, function);
    };
    if (const auto code = flags == 0 ? SwitchEditor(arguments) : std::nullopt)
        return *code;
    int code = arguments.empty() ? UsageError() : result::success;
    for (const CString& name : SplitArguments(arguments, true, CurrentSyntax()))
        if (const int failed = ForFunctions(EqualNoCase(name, u"list") ? CString(u"*") : name, act))
            code = failed;
    return code;
}

int Keystack_Command(CString& arguments)
{
    KeyScript script;
    if (const int code = KeyScriptReader(script).Read(arguments))
        return code;
    if (script.title || script.toActive)
        return SendToWindow(script);
    if (!HasConsole())
        return MVError(errors::needsConsole, Tls().commandName);
    if (script.drop)
        DropTypedKeys();
    return TypeKeys(script.keys) ? result::success : MVError(0);
}
