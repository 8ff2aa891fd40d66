#include "commands/search_switches.h"

#include <windows.h>

#include "core/command_switches.h"
#include "engine/results.h"
#include "engine/state.h"
#include "files/file_walk.h"
#include "text/format.h"
#include "text/numbers.h"
#include "text/words.h"

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

int TakeSelection(CString& arguments, FILESEARCH& search)
{
    const int code = GetRange(arguments, &search.ranges, 0);
    return code ? code : TakeAttributeSwitches(arguments, search.attributes);
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

int ForEachMatch(FILESEARCH& search, const std::vector<CString>& names, const std::function<void()>& visit)
{
    int code = result::success;
    for (const CString& name : names) {
        bool any = false;
        for (bool found = FindFiles(search, name); found; found = FindFiles(search)) {
            any = true;
            visit();
        }
        ForEachFailure(search, [&](unsigned why, const CString& failed) { code = MVError(why, failed); });
        if (!any && search.error == 0)
            code = MVError(ERROR_FILE_NOT_FOUND, WithoutQuotes(name));
    }
    return code;
}
