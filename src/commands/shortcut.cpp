#include "commands/shortcut.h"

#include <optional>

#include <windows.h>

#include <commctrl.h>

#include "commands/file_work.h"
#include "config/key_names.h"
#include "core/command_switches.h"
#include "core/path_search.h"
#include "engine/output.h"
#include "engine/results.h"
#include "engine/state.h"
#include "lang/file_messages.h"
#include "platform/file_facts.h"
#include "platform/shortcut_files.h"
#include "text/numbers.h"
#include "text/path_names.h"
#include "text/words.h"

const CommandHelp shortcutHelp = {
    u"Shows, makes and changes shortcuts: the .LNK files of the desktop and the start menu.",
    u"SHORTCUT [/A\"arguments\"] [/C\"comment\"] [/D\"directory\"] [/I\"icon[,number]\"] [/Kkey] [/R] "
    u"[/Wstate] shortcut [target]",
    u"/A  the arguments that the target gets\n"
    u"/C  the description that is shown beside the pointer\n"
    u"/D  the directory that the target starts in\n"
    u"/I  the file that holds the icon, and which one of several\n"
    u"/K  the key that starts it from anywhere, such as Ctrl-Alt-N; \"\" for none\n"
    u"/R  start with an administrator's rights\n"
    u"/W  the window: NORMAL, MIN or MAX\n"
    u"A shortcut alone is shown. With switches one that exists is changed in these; with a target a new one "
    u"is made in its place. The extension .lnk need not be written. A target without directory that is not "
    u"in the current one is searched as commands are.",
    u"shortcut notes.lnk\n"
    u"shortcut /d\"C:\\work\" /kCtrl-Alt-N \"%_desktop\\Notes\" notepad.exe\n"
    u"shortcut /wmax Notes",
};

namespace {

// The bits of a hotkey's modifiers, in the order in which names spell them.
struct Modifier {
    std::u16string_view name;
    unsigned bit;
};
constexpr Modifier modifiers[] = {
    {u"Ctrl-", HOTKEYF_CONTROL}, {u"Alt-", HOTKEYF_ALT}, {u"Shift-", HOTKEYF_SHIFT}};

// Letters, digits and function keys; nothing for any other.
std::optional<unsigned> VirtualKeyOf(std::u16string_view key)
{
    if (key.size() == 1 && (IsAsciiLetter(key[0]) || IsDigit(key[0])))
        return static_cast<unsigned>(UpperCase(key[0]));
    std::size_t used = 0;
    const std::optional<std::int64_t> number =
        key.starts_with(u'F') ? ReadDecimal(key.substr(1), &used) : std::nullopt;
    if (!number || used + 1 != key.size() || *number < 1 || *number > 24)
        return std::nullopt;
    return VK_F1 + static_cast<unsigned>(*number) - 1;
}

std::optional<unsigned short> ReadHotkey(std::u16string_view text)
{
    if (text.empty())
        return 0;
    const CString spelled = KeyName(text);
    std::u16string_view rest = spelled;
    unsigned bits = 0;
    for (const Modifier& modifier : modifiers)
        if (rest.starts_with(modifier.name)) {
            bits |= modifier.bit;
            rest.remove_prefix(modifier.name.size());
        }
    const std::optional<unsigned> key = VirtualKeyOf(rest);
    if (!key)
        return std::nullopt;
    return static_cast<unsigned short>(bits << 8 | *key);
}

CString HotkeyText(unsigned short hotkey)
{
    CString text;
    for (const Modifier& modifier : modifiers)
        if ((hotkey >> 8 & modifier.bit) != 0)
            text += modifier.name;
    const unsigned key = hotkey & 0xFF;
    if (key >= VK_F1 && key <= VK_F24)
        return text + Format(u"F%u", key - VK_F1 + 1);
    return key == 0 ? CString() : text.Append(static_cast<char16_t>(key));
}

struct WindowState {
    std::u16string_view name;
    int show;
};
constexpr WindowState windowStates[] = {
    {u"NORMAL", SW_SHOWNORMAL}, {u"MIN", SW_SHOWMINNOACTIVE}, {u"MAX", SW_SHOWMAXIMIZED}};

CString WindowText(int show)
{
    for (const WindowState& state : windowStates)
        if (state.show == show)
            return state.name;
    return show == SW_SHOWMINIMIZED ? CString(u"MIN") : Format(u"%d", show);
}

// What the switches ask for; the rest stays as it is.
struct ShortcutChange {
    std::optional<CString> arguments;
    std::optional<CString> description;
    std::optional<CString> directory;
    std::optional<CString> icon;
    int iconNumber = 0;
    std::optional<unsigned short> hotkey;
    std::optional<int> showWindow;
    bool elevated = false;

    bool Empty() const
    {
        return !arguments && !description && !directory && !icon && !hotkey && !showWindow && !elevated;
    }

    void Apply(ShortcutFacts& facts) const
    {
        facts.arguments = arguments.value_or(facts.arguments);
        facts.description = description.value_or(facts.description);
        facts.directory = directory.value_or(facts.directory);
        if (icon) {
            facts.icon = *icon;
            facts.iconNumber = iconNumber;
        }
        facts.hotkey = hotkey.value_or(facts.hotkey);
        facts.showWindow = showWindow.value_or(facts.showWindow);
        facts.elevated = facts.elevated || elevated;
    }
};

void TakeText(CString& arguments, std::u16string_view name, std::optional<CString>& value)
{
    CString text;
    if (TakeSwitchText(arguments, name, text))
        value = text;
}

// "file,number".
void SplitIcon(ShortcutChange& change)
{
    if (!change.icon)
        return;
    const std::size_t comma = change.icon->view().rfind(u',');
    if (comma == std::u16string_view::npos)
        return;
    if (const auto number = ParseInteger(change.icon->view().substr(comma + 1))) {
        change.iconNumber = static_cast<int>(*number);
        change.icon->Truncate(comma);
    }
}

// 0, or the result of a reported error.
int ReadChange(CString& arguments, ShortcutChange& change)
{
    std::optional<CString> key;
    std::optional<CString> window;
    TakeText(arguments, u"A", change.arguments);
    TakeText(arguments, u"C", change.description);
    TakeText(arguments, u"D", change.directory);
    TakeText(arguments, u"I", change.icon);
    TakeText(arguments, u"K", key);
    TakeText(arguments, u"W", window);
    std::uint64_t flags = 0;
    if (const int code = ReadSwitches(arguments, u"R", flags))
        return code;
    change.elevated = flags != 0;
    SplitIcon(change);
    if (key && !(change.hotkey = ReadHotkey(*key)))
        return MVError(errors::unknownHotkey, *key);
    if (window) {
        for (const WindowState& state : windowStates)
            if (EqualNoCase(*window, state.name))
                change.showWindow = state.show;
        if (!change.showWindow)
            return MVError(errors::unknownWindowState, *window);
    }
    return result::success;
}

void ShowFact(unsigned label, const CString& text)
{
    if (!text.empty())
        PrintLine(Format(u"%-12s %s", LoadMessage(label), text));
}

int ShowShortcut(const CString& name)
{
    ShortcutFacts facts;
    if (const unsigned failed = ReadShortcut(name, facts))
        return MVError(failed, name);
    ShowFact(message::shortcutTarget, facts.target);
    ShowFact(message::shortcutArguments, facts.arguments);
    ShowFact(message::shortcutDirectory, facts.directory);
    ShowFact(message::shortcutComment, facts.description);
    if (!facts.icon.empty())
        ShowFact(message::shortcutIcon, Format(u"%s,%d", facts.icon, facts.iconNumber));
    ShowFact(message::shortcutKey, HotkeyText(facts.hotkey));
    ShowFact(message::shortcutWindow, WindowText(facts.showWindow));
    if (facts.elevated)
        PrintLine(LoadMessage(message::shortcutElevated));
    return result::success;
}

CString TargetName(const CString& given)
{
    if (!HasDirectory(given) && !ReadFileAttributes(given))
        if (const CString found = SearchPaths(given); !found.empty())
            return found;
    return FullPathName(given);
}

} // namespace

int Shortcut_Command(CString& arguments)
{
    ShortcutChange change;
    if (const int code = ReadChange(arguments, change))
        return code;
    const std::vector<CString> names = SplitArguments(arguments, true, CurrentSyntax());
    if (names.empty() || names.size() > 2 || WithoutQuotes(names[0]).empty() ||
        WithoutQuotes(names.back()).empty())
        return UsageError();
    CString name = WithoutQuotes(names[0]);
    if (!EqualNoCase(ExtensionPart(name), u".lnk"))
        name += u".lnk";
    if (names.size() == 1 && change.Empty())
        return ShowShortcut(name);
    ShortcutFacts facts;
    if (names.size() == 2)
        facts.target = TargetName(WithoutQuotes(names[1]));
    else if (const unsigned failed = ReadShortcut(name, facts))
        return MVError(failed, name);
    change.Apply(facts);
    if (const unsigned failed = WriteShortcut(name, facts))
        return MVError(failed, name);
    NotifyOfChange(FolderChange::FileUpdated, name);
    return result::success;
}
