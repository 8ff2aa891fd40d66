#include "files/attribute_masks.h"

#include "lang/errors.h"
#include "text/compare.h"

namespace {

struct Letter {
    char16_t letter;
    std::uint32_t attribute;
};

constexpr Letter letters[] = {
    {u'R', 0x1},    {u'H', 0x2},    {u'S', 0x4},    {u'D', 0x10},    {u'A', 0x20},    {u'N', 0},
    {u'T', 0x100},  {u'F', 0x200},  {u'J', 0x400},  {u'L', 0x400},   {u'C', 0x800},   {u'O', 0x1000},
    {u'I', 0x2000}, {u'E', 0x4000}, {u'V', 0x8000}, {u'X', 0x20000}, {u'P', 0x80000}, {u'U', 0x100000},
};

const Letter* FindLetter(char16_t unit)
{
    for (const Letter& row : letters)
        if (row.letter == UpperCase(unit))
            return &row;
    return nullptr;
}

constexpr std::uint32_t anyOfNormal =
    0x1000; // "+N" has always asked for offline files; scripts may rely on it

} // namespace

bool AttributeMasks::Shows(std::uint32_t attributes) const noexcept
{
    constexpr std::uint32_t marked = file_attribute::hidden | file_attribute::system;
    return (attributes & marked & ~included) == 0;
}

bool AttributeMasks::Select(std::uint32_t attributes) const noexcept
{
    return Shows(attributes) && (attributes & required) == required && (attributes & forbidden) == 0 &&
           (anyOf == 0 || (attributes & anyOf) != 0);
}

int GetSearchAttributes(std::u16string_view text, AttributeMasks& masks)
{
    if (text == u":=")
        return static_cast<int>(errors::unbuiltDialog);
    masks = AttributeMasks::Everything();
    if (text.starts_with(u':'))
        text.remove_prefix(1);
    char16_t sign = 0;
    for (const char16_t unit : text) {
        if (unit == u'-' || unit == u'+') {
            sign = unit;
            continue;
        }
        if (unit != u'_') {
            const Letter* row = FindLetter(unit);
            if (!row)
                break;
            if (sign == u'-')
                masks.forbidden |= row->attribute;
            else if (sign == u'+')
                masks.anyOf |= row->letter == u'N' ? anyOfNormal : row->attribute;
            else
                masks.required |= row->attribute;
        }
        sign = 0;
    }
    return 0;
}

CString AttributeLetters(std::uint32_t attributes)
{
    constexpr std::uint32_t atTheirPlaces = 0x37;
    CString text;
    for (const Letter& row : letters) {
        if (row.letter == u'J')
            continue; // the same as L
        if (attributes & row.attribute)
            text.Append(row.letter);
        else if (row.attribute & atTheirPlaces)
            text.Append(u'_');
    }
    return text;
}

std::optional<AttributeChange> ReadAttributeChange(std::u16string_view text)
{
    constexpr std::u16string_view changeable = u"RHSATOIPU";
    AttributeChange change;
    char16_t sign = u'+';
    for (const char16_t unit : text) {
        if (unit == u'-' || unit == u'+') {
            sign = unit;
        } else if (unit != u'_') {
            const Letter* row = FindLetter(unit);
            if (!row || changeable.find(row->letter) == changeable.npos)
                return std::nullopt;
            (sign == u'-' ? change.clear : change.set) |= row->attribute;
            sign = u'+';
        }
    }
    return change;
}
