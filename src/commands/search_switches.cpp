#include "commands/search_switches.h"

#include "core/command_switches.h"
#include "engine/results.h"

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
