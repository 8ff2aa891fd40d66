#include "config/key_names.h"

#include <iterator>

#include "text/compare.h"
#include "text/format.h"
#include "text/numbers.h"

namespace {

struct NamedKey {
    const char16_t* name;
    std::uint8_t code;
};
constexpr NamedKey namedKeys[] = {
    {u"Backspace", 8}, {u"Bksp", 8}, {u"Tab", 9},     {u"LF", 10},
    {u"Enter", 13},    {u"Esc", 27}, {u"Escape", 27}, {u"Space", 32},
};

constexpr std::int64_t highestCode = 0xFF;

std::optional<std::uint8_t> CheckedCode(std::int64_t code)
{
    if (code < 1 || code > highestCode)
        return std::nullopt;
    return static_cast<std::uint8_t>(code);
}

std::optional<std::uint8_t> NumericCode(std::u16string_view word)
{
    if (word.empty() || !IsDigit(word.front())) // no signs and blanks
        return std::nullopt;
    std::size_t used = 0;
    const auto code = BeginsNoCase(word, u"0x") ? ReadInteger(word, &used) : ReadDecimal(word, &used);
    if (!code || used != word.size())
        return std::nullopt;
    return CheckedCode(*code);
}

constexpr const char16_t* modifiers[] = {u"Ctrl-", u"Alt-", u"Shift-", u"Win-"};
constexpr unsigned altBit = 2;
constexpr unsigned shiftBit = 4;

constexpr const char16_t* specialKeys[] = {u"Backspace", u"Tab",   u"Enter", u"Esc",  u"Space",
                                           u"Left",      u"Right", u"Up",    u"Down", u"Home",
                                           u"End",       u"PgUp",  u"PgDn",  u"Ins",  u"Del"};

struct OtherKeyName {
    const char16_t* name;
    const char16_t* usual;
};
constexpr OtherKeyName otherKeyNames[] = {
    {u"Bksp", u"Backspace"}, {u"Escape", u"Esc"}, {u"PageUp", u"PgUp"},
    {u"PageDown", u"PgDn"},  {u"Insert", u"Ins"}, {u"Delete", u"Del"},
};

// Passes the modifiers at the start of the word and answers their bits.
unsigned TakeModifiers(std::u16string_view& word)
{
    unsigned bits = 0;
    for (bool found = true; found;) {
        found = false;
        for (unsigned i = 0; i < std::size(modifiers); ++i) {
            const std::u16string_view modifier = modifiers[i];
            if (word.size() > modifier.size() && BeginsNoCase(word, modifier)) {
                word.remove_prefix(modifier.size());
                bits |= 1u << i;
                found = true;
            }
        }
    }
    return bits;
}

CString FunctionKey(std::u16string_view word)
{
    constexpr std::int64_t highest = 24;
    if (word.size() < 2 || UpperCase(word[0]) != u'F' || word[1] == u'0')
        return {};
    std::size_t used = 0;
    const auto number = IsDigit(word[1]) ? ReadDecimal(word.substr(1), &used) : std::nullopt;
    return number && used + 1 == word.size() && *number <= highest ? Format(u"F%d", *number) : CString();
}

CString PlainKey(std::u16string_view word, unsigned modifierBits)
{
    if (word.size() == 1)
        return word[0] > u' ' ? CString(1, UpperCase(word[0])) : CString();
    for (const OtherKeyName& other : otherKeyNames)
        if (EqualNoCase(word, other.name))
            return other.usual;
    for (const char16_t* special : specialKeys)
        if (EqualNoCase(word, special))
            return special;
    const bool coded = modifierBits == altBit && word.size() <= 3 && IsDigit(word[0]) && NumericCode(word);
    return coded ? CString(word) : FunctionKey(word);
}

} // namespace

CString KeyName(std::u16string_view word)
{
    const unsigned bits = TakeModifiers(word);
    const CString key = PlainKey(word, bits);
    if (key.empty())
        return {};
    CString name;
    for (unsigned i = 0; i < std::size(modifiers); ++i)
        if ((bits >> i & 1) != 0)
            name.Append(modifiers[i]);
    return name.Append(key);
}

bool IsTypingKey(std::u16string_view name)
{
    const unsigned bits = TakeModifiers(name);
    return (bits & ~shiftBit) == 0 && (name.size() == 1 || name == u"Space");
}

std::optional<std::uint8_t> CharacterCode(std::u16string_view word)
{
    constexpr std::u16string_view ctrl = u"Ctrl-";
    constexpr std::u16string_view alt = u"Alt-";
    if (word.size() == 1)
        return CheckedCode(word.front());
    for (const NamedKey& key : namedKeys)
        if (EqualNoCase(word, key.name))
            return key.code;
    if (BeginsNoCase(word, ctrl) && word.size() == ctrl.size() + 1 && IsAsciiLetter(word.back()))
        return static_cast<std::uint8_t>(word.back() & 0x1F);
    if (BeginsNoCase(word, alt))
        return NumericCode(word.substr(alt.size()));
    return NumericCode(word);
}
