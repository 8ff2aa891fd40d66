#include "console/key_codes.h"

#include "config/key_names.h"
#include "text/compare.h"
#include "text/format.h"
#include "text/numbers.h"

namespace {

constexpr unsigned altPressed = 1 | 2;
constexpr unsigned ctrlPressed = 4 | 8;
constexpr unsigned shiftPressed = 16;

constexpr char16_t enterUnit = 13;
constexpr unsigned enterCode = 28;
constexpr unsigned firstButton = 240;

// Codes of a key alone, with Shift, with Ctrl and with Alt; 0 where it types a character.
struct KeyRow {
    const char16_t* name; // as in config/key_names.h
    unsigned virtualKey;
    unsigned alone, shift, ctrl, alt;
};
constexpr KeyRow keyRows[] = {
    {u"F1", 0x70, 59, 84, 94, 104},    {u"F2", 0x71, 60, 85, 95, 105},     {u"F3", 0x72, 61, 86, 96, 106},
    {u"F4", 0x73, 62, 87, 97, 107},    {u"F5", 0x74, 63, 88, 98, 108},     {u"F6", 0x75, 64, 89, 99, 109},
    {u"F7", 0x76, 65, 90, 100, 110},   {u"F8", 0x77, 66, 91, 101, 111},    {u"F9", 0x78, 67, 92, 102, 112},
    {u"F10", 0x79, 68, 93, 103, 113},  {u"F11", 0x7A, 133, 135, 137, 139}, {u"F12", 0x7B, 134, 136, 138, 140},
    {u"Home", 0x24, 71, 71, 119, 151}, {u"Up", 0x26, 72, 72, 141, 152},    {u"PgUp", 0x21, 73, 73, 132, 153},
    {u"Left", 0x25, 75, 75, 115, 155}, {u"Right", 0x27, 77, 77, 116, 157}, {u"End", 0x23, 79, 79, 117, 159},
    {u"Down", 0x28, 80, 80, 145, 160}, {u"PgDn", 0x22, 81, 81, 118, 161},  {u"Ins", 0x2D, 82, 82, 146, 162},
    {u"Del", 0x2E, 83, 83, 147, 163},  {u"Tab", 0x09, 0, 15, 148, 165},    {u"Enter", 0x0D, 28, 28, 0, 166},
    {u"Backspace", 0x08, 0, 0, 0, 14}, {u"Esc", 0x1B, 0, 0, 0, 1},         {u"Space", 0x20, 0, 0, 0, 57},
};

// The rows of the keyboard from the scan code of their first letter on.
constexpr std::u16string_view letterRows[] = {u"QWERTYUIOP", u"ASDFGHJKL", u"ZXCVBNM"};
constexpr unsigned letterCodes[] = {16, 30, 44};
constexpr std::u16string_view digitRow = u"1234567890-=";
constexpr unsigned digitCode = 120;

CString Coded(unsigned code) { return Format(u"@%u", code); }

unsigned CodeIn(const KeyRow& row, bool alt, bool ctrl, bool shift)
{
    return alt ? row.alt : ctrl ? row.ctrl : shift ? row.shift : row.alone;
}

// Of a letter, digit or sign pressed with Alt; 0 for any other.
unsigned AltCode(char16_t character)
{
    const char16_t upper = UpperCase(character);
    for (std::size_t i = 0; i < std::size(letterRows); ++i)
        if (const std::size_t at = letterRows[i].find(upper); at != letterRows[i].npos)
            return letterCodes[i] + static_cast<unsigned>(at);
    const std::size_t at = digitRow.find(upper);
    return at == digitRow.npos ? 0 : digitCode + static_cast<unsigned>(at);
}

bool TakePrefix(std::u16string_view& name, std::u16string_view prefix)
{
    const bool there = BeginsNoCase(name, prefix) && name.size() > prefix.size();
    if (there)
        name.remove_prefix(prefix.size());
    return there;
}

// The code of a key by its name; empty when there is no such key, or when it has no code.
CString CodeOfName(std::u16string_view word)
{
    if (word.starts_with(u'@') && ParseInteger(word.substr(1)))
        return CString(word);
    const CString spelled = KeyName(word);
    std::u16string_view name = spelled;
    const bool ctrl = TakePrefix(name, u"Ctrl-");
    const bool alt = TakePrefix(name, u"Alt-");
    const bool shift = TakePrefix(name, u"Shift-");
    for (const KeyRow& row : keyRows)
        if (const unsigned code = CodeIn(row, alt, ctrl, shift); code != 0 && name == row.name)
            return Coded(code);
    if (alt && name.size() == 1 && AltCode(name.front()) != 0)
        return Coded(AltCode(name.front()));
    const auto character = CharacterCode(word);
    return character ? CString(1, *character) : CString();
}

} // namespace

CString KeyCode(const KeyFacts& key)
{
    const bool alt = (key.modifiers & altPressed) != 0;
    const bool ctrl = (key.modifiers & ctrlPressed) != 0;
    const bool shift = (key.modifiers & shiftPressed) != 0;
    if (key.unit == enterUnit && !alt)
        return Coded(enterCode);
    // Ctrl and Alt together are the key that types the third character of many keyboards.
    if (key.unit != 0 && (!alt || ctrl) && !(key.virtualKey == 0x09 && shift))
        return CString(1, key.unit);
    for (const KeyRow& row : keyRows)
        if (row.virtualKey == key.virtualKey && CodeIn(row, alt, ctrl, shift) != 0)
            return Coded(CodeIn(row, alt, ctrl, shift));
    const bool named = key.virtualKey < 0x80 && IsLetterOrDigit(static_cast<char16_t>(key.virtualKey));
    const char16_t character = named ? static_cast<char16_t>(key.virtualKey) : key.unit;
    return Coded(alt && AltCode(character) != 0 ? AltCode(character) : key.scanCode);
}

CString ButtonCode(MouseButton button) { return Coded(firstButton + static_cast<unsigned>(button)); }

std::optional<std::vector<CString>> ReadKeyList(std::u16string_view list)
{
    std::vector<CString> codes;
    for (std::size_t at = 0; at < list.size(); ++at) {
        const std::size_t closing = list[at] == u'[' ? list.find(u']', at + 1) : list.npos;
        if (closing == list.npos) {
            codes.emplace_back(1, list[at]);
            continue;
        }
        CString code = CodeOfName(list.substr(at + 1, closing - at - 1));
        if (code.empty())
            return std::nullopt;
        codes.push_back(std::move(code));
        at = closing;
    }
    return codes;
}
