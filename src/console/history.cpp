#include "console/history.h"

#include "core/substitution.h"
#include "engine/console_entry.h"
#include "engine/state.h"
#include "text/words.h"

CString LastArgumentOf(std::u16string_view line)
{
    const Syntax syntax = CurrentSyntax();
    const int count = CountArguments(line, syntax);
    return count == 0 ? CString() : GetNthArgument(line, count - 1, syntax);
}

void AddToHistory(CString& line, bool force)
{
    line.TrimRight();
    if (line.empty() && !force)
        return;
    aTexts.substitutionLine = aTexts.newestLine;
    aTexts.lastArgument = LastArgumentOf(aTexts.newestLine);
    aTexts.newestLine = line;
    // What a substitution makes is the line to go on from.
    QuickSubstitution(aTexts.newestLine, aTexts.substitutionLine);
}
