// Finding internal variables by name.
#include "engine/internal_entry.h"

#include <windows.h>

#include "engine/break.h"
#include "engine/random.h"
#include "engine/state.h"
#include "engine/tables.h"
#include "internals/clock_texts.h"
#include "internals/result_counters.h"
#include "internals/values.h"
#include "platform/file_facts.h"

namespace {

using View = std::u16string_view;

bool AnswerHighestNode(CString& value)
{
    ULONG node = 0;
    GetNumaHighestNodeNumber(&node);
    return AnswerNumber(value, node);
}

bool AnswerCommandLine(CString& value)
{
    return AnswerText(value, reinterpret_cast<const char16_t*>(GetCommandLineW()));
}

// The names without "_" that every command prompt of Windows computes. ERRORLEVEL is answered before all
// others.
constexpr InternalVariableRow compatibleVariables[] = {
    {u"CD", [](CString& value) { return AnswerText(value, CurrentDirectory()); }},
    {u"CMDCMDLINE", AnswerCommandLine},
    {u"CMDEXTVERSION", [](CString& value) { return AnswerText(value, u"2"); }},
    {u"DATE", [](CString& value) { return AnswerText(value, ShortDateText()); }},
    {u"HIGHESTNUMANODENUMBER", AnswerHighestNode},
    {u"RANDOM", [](CString& value) { return AnswerNumber(value, static_cast<int>(NextRandom() % 32768)); }},
    {u"TIME", [](CString& value) { return AnswerText(value, DetailedTimeText()); }},
};

constexpr int compatibleCount = static_cast<int>(std::size(compatibleVariables));
static_assert(IsSortedByName(compatibleVariables, compatibleCount), "the rows stand in alphabetical order");

} // namespace

bool InternalVariableValue(View name, CString& value)
{
    if (name == u"?" || EqualNoCase(name, u"ERRORLEVEL"))
        return AnswerNumber(value, int{Tls().errorLevel});
    if (name.empty() || QueryBreak())
        return false;
    if (name == u"!")
        return AnswerText(value, aTexts.lastArgument);
    if (name[0] != u'_') {
        const int row = FindRow(compatibleVariables, compatibleCount, name);
        return row >= 0 && compatibleVariables[row].value(value);
    }
    name.remove_prefix(1);
    const int row = FindRow(aInternalVariables, nInternalVariables, name);
    if (row < 0)
        return ReadResultCounter(name, value);
    value.Clear();
    if (aInternalVariables[row].value)
        aInternalVariables[row].value(value);
    return true;
}
