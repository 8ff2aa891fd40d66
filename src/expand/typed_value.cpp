#include "expand/typed_value.h"

#include <algorithm>

#include "text/compare.h"
#include "text/numbers.h"

namespace {

using Check = bool (*)(std::u16string_view value);

bool IsBoolean(std::u16string_view value)
{
    constexpr std::u16string_view words[] = {u"0", u"1", u"true", u"false", u"yes", u"no", u"on", u"off"};
    return std::any_of(std::begin(words), std::end(words),
                       [&](std::u16string_view word) { return EqualNoCase(value, word); });
}

bool IsCharacter(std::u16string_view value) { return value.size() == 1; }
bool IsInteger(std::u16string_view value) { return ParseInteger(value).has_value(); }

std::size_t PassDigits(std::u16string_view value, std::size_t at)
{
    while (at < value.size() && IsDigit(value[at]))
        ++at;
    return at;
}

std::size_t PassSign(std::u16string_view value, std::size_t at)
{
    return at < value.size() && (value[at] == u'+' || value[at] == u'-') ? at + 1 : at;
}

bool IsNumber(std::u16string_view value)
{
    const std::size_t start = PassSign(value, 0);
    std::size_t at = PassDigits(value, start);
    std::size_t digits = at - start;
    if (at < value.size() && value[at] == u'.') {
        const std::size_t end = PassDigits(value, at + 1);
        digits += end - at - 1;
        at = end;
    }
    if (digits > 0 && at < value.size() && UpperCase(value[at]) == u'E') {
        const std::size_t exponent = PassSign(value, at + 1);
        at = PassDigits(value, exponent);
        digits = at - exponent;
    }
    return digits > 0 && at == value.size();
}

bool IsPath(std::u16string_view value)
{
    return value.find_first_of(u"<>|\"*?") == std::u16string_view::npos &&
           std::none_of(value.begin(), value.end(), [](char16_t unit) { return unit < u' '; });
}

bool IsText(std::u16string_view) { return true; }

struct TypeRow {
    std::u16string_view name;
    Check check;
};

constexpr TypeRow types[] = {
    {u"bool", IsBoolean},   {u"boolean", IsBoolean}, {u"char", IsCharacter},  {u"character", IsCharacter},
    {u"decimal", IsNumber}, {u"int", IsInteger},     {u"integer", IsInteger}, {u"number", IsNumber},
    {u"path", IsPath},      {u"string", IsText},     {u"text", IsText},
};

} // namespace

TypeCheck CheckValueType(std::u16string_view type, std::u16string_view value)
{
    for (const TypeRow& row : types)
        if (EqualNoCase(type, row.name))
            return row.check(value) ? TypeCheck::Fits : TypeCheck::DoesNotFit;
    return TypeCheck::UnknownType;
}
