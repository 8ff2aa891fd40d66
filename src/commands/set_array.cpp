#include "commands/set_array.h"

#include "commands/definition_text.h"
#include "core/command_switches.h"
#include "engine/expansion_entry.h"
#include "engine/output.h"
#include "engine/results.h"
#include "engine/state.h"
#include "expand/lists.h"
#include "files/wildcards.h"
#include "text/compare.h"
#include "text/words.h"

const CommandHelp setarrayHelp = {
    u"Makes or shows array variables.",
    u"SETARRAY [name ...]\n"
    u"SETARRAY name[size,size,...] ...",
    u"An array has one to four dimensions, whose elements count from 0; sizes may be expressions. All "
    u"elements are empty at first, also those of an array that existed before. Without sizes the arrays of "
    u"these names are shown with theirs; without names, all.",
    u"setarray squares[10]\n"
    u"set squares[3]=9\n"
    u"echo %squares[3]%\n"
    u"setarray table[10,20] names[%count]",
};

const CommandHelp unsetarrayHelp = {
    u"Removes array variables.",
    u"UNSETARRAY [/Q] name ...",
    u"/Q  no message when nothing was there to remove\n"
    u"Names may hold the wildcards * and ?; * alone removes every array.",
    u"unsetarray squares\n"
    u"unsetarray *",
};

namespace {

// "name[10,20]"
CString Describe(const ARRAYS& array)
{
    CString text(array.name);
    for (int i = 0; i < array.sizes.count; ++i)
        text += Format(i == 0 ? u"[%d" : u",%d", array.sizes.values[i]);
    return text.Append(u']');
}

int Show(std::u16string_view name)
{
    const int index = QueryArrayVariable(name);
    if (index < 0)
        return MVError(errors::notAnArray, name);
    return PrintLine(Describe(ArrayVariables().At(index))) ? result::success : MVError(0);
}

int ShowAll()
{
    for (int i = 0; i < maximumArrays; ++i)
        if (!ArrayVariables().At(i).name.empty() && !PrintLine(Describe(ArrayVariables().At(i))))
            return MVError(0);
    return result::success;
}

int Make(const CString& argument)
{
    std::u16string_view name;
    std::u16string_view sizes;
    if (!SplitArrayElement(argument, name, sizes))
        return argument.Find(u'[') == CString::npos ? Show(argument) : MVError(errors::syntax, argument);
    if (!IsArrayName(name))
        return MVError(errors::syntax, argument);
    ArrayIndexes indexes;
    auto evaluate = [](CString& expression) { return EvaluateExpression(expression); };
    ArrayStatus status = ReadArrayIndexes(sizes, evaluate, CurrentSyntax(), indexes);
    if (status == ArrayStatus::Ok)
        status = ArrayVariables().Define(name, indexes);
    return ReportArrayStatus(status, argument);
}

bool RemoveMatching(std::u16string_view pattern)
{
    if (!HasNamePattern(pattern))
        return ArrayVariables().Remove(pattern);
    bool found = false;
    for (int i = 0; i < maximumArrays; ++i) {
        const CString name = ArrayVariables().At(i).name;
        if (!name.empty() && WildcardComparison(pattern, name, false, true) == 0)
            found = ArrayVariables().Remove(name);
    }
    return found;
}

} // namespace

int Setarray_Command(CString& arguments)
{
    std::uint64_t switches = 0;
    if (const int code = ReadSwitches(arguments, u"", switches, SwitchPlace::Leading))
        return code;
    const std::vector<CString> names = SplitArguments(arguments, true, CurrentSyntax());
    if (names.empty())
        return ShowAll();
    int code = result::success;
    for (const CString& name : names)
        if (Make(name) != result::success)
            code = result::error;
    return code;
}

int Unsetarray_Command(CString& arguments)
{
    constexpr std::uint64_t quiet = 1;
    std::uint64_t switches = 0;
    if (const int code = ReadSwitches(arguments, u"Q", switches, SwitchPlace::Leading))
        return code;
    const std::vector<CString> names = SplitArguments(arguments, true, CurrentSyntax());
    if (names.empty())
        return UsageError();
    int code = result::success;
    for (const CString& name : names)
        if (!RemoveMatching(name))
            code = (switches & quiet) != 0 ? result::error : MVError(errors::notAnArray, name);
    return code;
}
