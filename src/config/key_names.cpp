#include "config/key_names.h"

#include "text/compare.h"
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

} // namespace

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
