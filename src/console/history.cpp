// What the shell remembers of typed lines: the text that quick substitution edits and the word that "%!"
// gives. Both belong to the line before the newest one, which is the one that runs.
#include "core/substitution.h"
#include "engine/console_entry.h"
#include "engine/state.h"
#include "text/words.h"

namespace {

// As it stands, quotes and all; "" when the line has no word.
CString LastArgumentOf(std::u16string_view line)
{
    const Syntax syntax = CurrentSyntax();
    const int count = CountArguments(line, syntax);
    return count == 0 ? CString() : GetNthArgument(line, count - 1, syntax);
}

} // namespace

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
