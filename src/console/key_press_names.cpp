#include "console/key_press_names.h"

#include "config/key_names.h"
#include "text/compare.h"
#include "text/format.h"
#include "text/numbers.h"

namespace {

constexpr unsigned altKeys = 1 | 2; // bits of the console's control key state
constexpr unsigned ctrlKeys = 4 | 8;
constexpr unsigned leftAlt = 2;
constexpr unsigned leftCtrl = 8;
constexpr unsigned shiftKey = 16;

constexpr unsigned firstFunctionKey = 0x70;
constexpr unsigned lastFunctionKey = 0x87;
constexpr unsigned altAlone = 0x12; // its release brings a character typed on the number pad

struct SpecialKey {
    const char16_t* name;
    unsigned virtualKey;
    char16_t unit; // that comes with it
};
constexpr SpecialKey specialKeys[] = {
    {u"Backspace", 0x08, 8}, {u"Tab", 0x09, 9},  {u"Enter", 0x0D, 13}, {u"Esc", 0x1B, 27},
    {u"Space", 0x20, u' '},  {u"PgUp", 0x21, 0}, {u"PgDn", 0x22, 0},   {u"End", 0x23, 0},
    {u"Home", 0x24, 0},      {u"Left", 0x25, 0}, {u"Up", 0x26, 0},     {u"Right", 0x27, 0},
    {u"Down", 0x28, 0},      {u"Ins", 0x2D, 0},  {u"Del", 0x2E, 0},
};

bool Alt(const KeyPress& key) { return (key.modifiers & altKeys) != 0; }
bool Ctrl(const KeyPress& key) { return (key.modifiers & ctrlKeys) != 0; }

CString SpecialName(unsigned virtualKey)
{
    for (const SpecialKey& special : specialKeys)
        if (special.virtualKey == virtualKey)
            return special.name;
    if (virtualKey >= firstFunctionKey && virtualKey <= lastFunctionKey)
        return Format(u"F%u", virtualKey - firstFunctionKey + 1);
    return {};
}

// Of a key that is none of the special ones.
CString CharacterName(const KeyPress& key)
{
    const bool named = key.virtualKey < 0x80 && IsLetterOrDigit(static_cast<char16_t>(key.virtualKey));
    if (named && (Ctrl(key) || Alt(key)))
        return CString(1, static_cast<char16_t>(key.virtualKey));
    if (key.unit > u' ')
        return CString(1, UpperCase(key.unit));
    // Control characters that come without a key, from a paste or a terminal.
    if (key.unit > 0 && key.unit <= 26 && Ctrl(key))
        return CString(1, static_cast<char16_t>(key.unit + u'A' - 1));
    return {};
}

// A control character without a key behind it: what types it on a keyboard.
CString ControlName(char16_t unit)
{
    switch (unit) {
    case 8: return u"Backspace";
    case 9: return u"Tab";
    case 13: return u"Enter";
    case 27: return u"Esc";
    default: break;
    }
    CString name(u"Ctrl-");
    return unit >= 1 && unit <= 26 ? name.Append(static_cast<char16_t>(unit + u'A' - 1)) : CString();
}

void TakeModifier(std::u16string_view& name, std::u16string_view modifier, unsigned bit, unsigned& bits)
{
    if (!name.starts_with(modifier) || name.size() == modifier.size())
        return;
    name.remove_prefix(modifier.size());
    bits |= bit;
}

bool FindSpecial(std::u16string_view name, KeyPress& key)
{
    for (const SpecialKey& special : specialKeys)
        if (name == special.name) {
            key.virtualKey = special.virtualKey;
            key.unit = special.unit;
            return true;
        }
    if (name.size() < 2 || name.front() != u'F')
        return false;
    key.virtualKey = firstFunctionKey - 1 + static_cast<unsigned>(ReadDecimal(name.substr(1)).value_or(1));
    return true;
}

} // namespace

bool TypesCharacter(const KeyPress& key)
{
    constexpr char16_t del = 0x7F;
    if (key.unit < u' ' || key.unit == del)
        return false;
    return key.virtualKey == altAlone || Alt(key) == Ctrl(key);
}

CString NameOfKey(const KeyPress& key)
{
    if (TypesCharacter(key) && key.unit != u' ')
        return CString(1, UpperCase(key.unit));
    CString plain = SpecialName(key.virtualKey);
    if (plain.empty() && key.virtualKey == 0 && key.unit < u' ')
        return ControlName(key.unit);
    if (plain.empty())
        plain = CharacterName(key);
    if (plain.empty())
        return {};
    CString name;
    if (Ctrl(key))
        name.Append(u"Ctrl-");
    if (Alt(key))
        name.Append(u"Alt-");
    if ((key.modifiers & shiftKey) != 0)
        name.Append(u"Shift-");
    return name.Append(plain);
}

std::optional<KeyPress> KeyPressOf(std::u16string_view name)
{
    const CString spelled = KeyName(name);
    std::u16string_view rest = spelled;
    KeyPress key;
    TakeModifier(rest, u"Ctrl-", leftCtrl, key.modifiers);
    TakeModifier(rest, u"Alt-", leftAlt, key.modifiers);
    TakeModifier(rest, u"Shift-", shiftKey, key.modifiers);
    if (rest.empty())
        return std::nullopt;
    if (rest.size() > 1)
        return FindSpecial(rest, key) ? std::optional(key) : std::nullopt;
    key.unit = (key.modifiers & shiftKey) != 0 ? rest[0] : LowerCase(rest[0]);
    if (rest[0] < 0x80 && IsLetterOrDigit(rest[0]))
        key.virtualKey = rest[0];
    if (Ctrl(key) && !Alt(key))
        key.unit = IsAsciiLetter(rest[0]) ? static_cast<char16_t>(rest[0] & 0x1F) : u'\0';
    return key;
}

KeyPress KeyPressTyping(char16_t unit) { return {unit, 0, 0, 0}; }
