#include "commands/search_switches.h"

#include "core/command_switches.h"
#include "engine/results.h"
#include "engine/state.h"
#include "files/file_walk.h"
#include "text/format.h"
#include "text/numbers.h"

int TakeAttributeSwitches(CString& arguments, AttributeMasks& masks)
{
    CString letters;
    while (TakeSwitchLetters(arguments, u"A", letters)) {
        // The reader of switches takes a colon away, and the dialog's form has one.
        if (letters == u"=")
            letters = u":=";
        if (const int code = GetSearchAttributes(letters, masks))
            return error(code, letters);
    }
    return result::success;
}

int TakeDepthSwitch(CString& arguments, int& deepest)
{
    CString text;
    while (TakeSwitchLetters(arguments, u"S", text)) {
        std::u16string_view digits = text;
        if (digits.starts_with(u':'))
            digits.remove_prefix(1);
        std::size_t used = 0;
        const std::optional<std::int64_t> levels =
            digits.empty() ? std::optional<std::int64_t>(allLevels) : ReadDecimal(digits, &used);
        if (!levels || used != digits.size() || *levels < 0 || *levels > allLevels)
            return MVError(errors::invalidSwitch, Format(u"%cS%s", CurrentSyntax().switchChar, text));
        deepest = static_cast<int>(*levels);
    }
    return result::success;
}
