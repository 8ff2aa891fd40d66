#include "expand/expansion_world.h"

#include <windows.h>

#include "engine/condition_entry.h"
#include "engine/expansion_entry.h"
#include "engine/function_entry.h"
#include "engine/inifile.h"
#include "engine/internal_entry.h"
#include "engine/results.h"
#include "expand/lists.h"
#include "platform/environment.h"
#include "platform/file_facts.h"
#include "text/format.h"

namespace {

constexpr char16_t emptyParameter[] = u"\x01"; // what a subroutine's missing parameter is kept as

// "drahscotl", a "-" in the place of each that is not set.
CString AttributeText(std::uint32_t attributes)
{
    constexpr struct {
        std::uint32_t bit;
        char16_t letter;
    } letters[] = {
        {FILE_ATTRIBUTE_DIRECTORY, u'd'},     {FILE_ATTRIBUTE_READONLY, u'r'},
        {FILE_ATTRIBUTE_ARCHIVE, u'a'},       {FILE_ATTRIBUTE_HIDDEN, u'h'},
        {FILE_ATTRIBUTE_SYSTEM, u's'},        {FILE_ATTRIBUTE_COMPRESSED, u'c'},
        {FILE_ATTRIBUTE_OFFLINE, u'o'},       {FILE_ATTRIBUTE_TEMPORARY, u't'},
        {FILE_ATTRIBUTE_REPARSE_POINT, u'l'},
    };
    CString text;
    for (const auto& [bit, letter] : letters)
        text.Append(attributes & bit ? letter : u'-');
    return text;
}

// Short date and time of day without seconds, as the user's settings show them.
CString FileTimeText(const FILETIME& time)
{
    SYSTEMTIME universal;
    SYSTEMTIME local;
    wchar_t date[80] = L"";
    wchar_t clock[80] = L"";
    if (!FileTimeToSystemTime(&time, &universal) ||
        !SystemTimeToTzSpecificLocalTime(nullptr, &universal, &local))
        return {};
    GetDateFormatW(LOCALE_USER_DEFAULT, DATE_SHORTDATE, &local, nullptr, date, 80);
    GetTimeFormatW(LOCALE_USER_DEFAULT, TIME_NOSECONDS, &local, nullptr, clock, 80);
    return Format(u"%s %s", reinterpret_cast<const char16_t*>(date),
                  reinterpret_cast<const char16_t*>(clock));
}

class EngineWorld : public ExpansionWorld {
public:
    ExpansionSettings Settings() override
    {
        ExpansionSettings settings;
        settings.syntax = CurrentSyntax();
        settings.mask = aGlobals.expansionMask;
        settings.cmdVariables = aIniFile.CMDVariables != 0;
        settings.delayedExpansion = aGlobals.delayedExpansion != 0;
        settings.pseudoVariables = aIniFile.ExpandPseudovariables != 0;
        return settings;
    }

    ExpansionProgress& Progress() override { return Tls().expansion; }

    // Their names in the environment begin with the codes of frame and subroutine level.
    bool SubroutineParameter(std::u16string_view name, CString& value) override
    {
        TLS_VARIABLES& state = Tls();
        const BATCH_FRAME* frame = state.Frame();
        if (!frame || frame->labels.empty() || name.empty())
            return false;
        CString full;
        full.Append(static_cast<char16_t>(state.batchIndex + 1));
        full.Append(static_cast<char16_t>(frame->labels.size() + 1)).Append(name);
        if (!ReadEnvironment(full, value))
            return false;
        if (value == emptyParameter)
            value.Clear();
        return true;
    }

    bool EnvironmentVariable(std::u16string_view name, CString& value) override
    {
        return !name.empty() && ReadEnvironment(name, value);
    }

    bool ComputedVariable(std::u16string_view name, CString& value) override
    {
        return InternalVariableValue(name, value);
    }

    bool LoopVariable(char16_t name, CString& value) override
    {
        const std::vector<::LoopVariable>& running = Tls().loopVariables;
        for (auto variable = running.rbegin(); variable != running.rend(); ++variable) {
            if (variable->name == name) {
                value = variable->value;
                return true;
            }
        }
        return false;
    }

    bool BatchParameters(Parameters& parameters) override
    {
        const BATCH_FRAME* frame = Tls().Frame();
        if (!frame || frame->arguments.empty())
            return false;
        parameters.entries = frame->arguments.data();
        parameters.count = frame->arguments.size();
        parameters.shift = frame->shiftCount;
        parameters.text = frame->argumentText;
        parameters.wholeTail = frame->EndsInCmd();
        return true;
    }

    bool IsArray(std::u16string_view name) override { return QueryArrayVariable(name) >= 0; }

    int ArrayElement(std::u16string_view name, std::u16string_view indexes, CString& value) override
    {
        return QueryArrayElement(name, indexes, value);
    }

    int CallFunction(std::u16string_view name, std::u16string_view arguments, CString& value) override
    {
        return CallVariableFunction(name, arguments, value, CurrentSyntax());
    }

    int Evaluate(CString& expression) override { return EvaluateExpression(expression); }

    int TestCondition(CString& condition) override
    {
        return ::TestCondition(condition, ConditionMode::Whole);
    }

    int ExpandAliases(CString& line) override { return Tls().aliasBypass ? 0 : ::ExpandAliases(line); }

    void SetEndLocal(bool on) override
    {
        aGlobals.expansionMask = on ? aGlobals.expansionMask | expansion_mask::endLocal
                                    : aGlobals.expansionMask & ~expansion_mask::endLocal;
    }

    int Report(unsigned code, std::u16string_view argument) override { return MVError(code, argument); }

    CString FullPath(std::u16string_view name) override { return LongPathName(FullPathName(name)); }

    CString ShortPath(std::u16string_view fullPath) override { return ShortPathName(fullPath); }

    PathFacts Facts(std::u16string_view fullPath) override
    {
        const auto known = ReadFileFacts(fullPath);
        if (!known)
            return {};
        return {AttributeText(known->attributes), FileTimeText(known->written), Format(u"%u", known->size)};
    }

    CString FindInPath(std::u16string_view variable, std::u16string_view name) override
    {
        CString list;
        if (!ReadEnvironment(variable, list))
            return {};
        const CString file(name);
        CString result;
        const DWORD size = SearchPathW(list.w(), file.w(), nullptr, 0, nullptr, nullptr);
        wchar_t* buffer = reinterpret_cast<wchar_t*>(result.Edit(size));
        const DWORD length = size == 0 ? 0 : SearchPathW(list.w(), file.w(), nullptr, size, buffer, nullptr);
        result.SetLength(length < size ? length : 0);
        return result;
    }
};

} // namespace

ExpansionWorld& EngineExpansionWorld()
{
    static EngineWorld world;
    return world;
}

int VariableExpansion(CString& line, bool nested)
{
    return VariableExpansion(line, nested, EngineExpansionWorld());
}
