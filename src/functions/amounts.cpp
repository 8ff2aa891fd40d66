#include "functions/amounts.h"

#include "engine/expansion_entry.h"
#include "text/compare.h"
#include "text/size_units.h"

bool ReadAmountUnit(std::u16string_view text, AmountUnit& unit)
{
    const CString letters = FileArgument(text);
    std::size_t at = 0;
    if (const auto bytes = UnitBytes(letters[0])) {
        unit.bytes = *bytes;
        ++at;
    }
    unit.separators = UpperCase(letters[at]) == u'C';
    return at + (unit.separators ? 1 : 0) == letters.size();
}

int AnswerAmount(FunctionCall& call, std::uint64_t bytes, const AmountUnit& unit)
{
    CString text = Format(u"%u", bytes / static_cast<std::uint64_t>(unit.bytes));
    if (unit.separators)
        AddCommas(text);
    return answer::ForeignText(call, text);
}
