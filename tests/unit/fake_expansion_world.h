// A world in memory for expansion: a handful of variables, loops, arrays, files and functions, and a record
// of what was reported. Shared by the unit tests and the fuzz target.
#pragma once

#include <map>
#include <string>
#include <vector>

#include "expand/expansion.h"
#include "lang/errors.h"
#include "text/compare.h"
#include "text/format.h"
#include "text/numbers.h"

struct LessNoCase {
    using is_transparent = void;
    bool operator()(std::u16string_view a, std::u16string_view b) const { return CompareNoCase(a, b) < 0; }
};

class FakeExpansionWorld : public ExpansionWorld {
public:
    ExpansionSettings settings;
    ExpansionProgress progress;
    std::map<std::u16string, std::u16string, LessNoCase> environment;
    std::map<std::u16string, std::u16string, LessNoCase> computed;
    std::map<std::u16string, std::u16string, LessNoCase> subroutine;
    std::map<std::u16string, std::u16string, LessNoCase> aliases;
    std::map<char16_t, std::u16string> loops;
    std::map<std::u16string, std::u16string, LessNoCase> files; // full name to size
    std::vector<CString> batch;                                 // %0 and up; empty outside a batch file
    std::size_t shift = 0;
    std::u16string batchText;
    std::vector<std::u16string> array; // of the name "arr"
    std::vector<unsigned> reported;
    CString lastReport;
    bool endLocal = false;
    bool sawEndLocal = false;

    ExpansionSettings Settings() override { return settings; }
    ExpansionProgress& Progress() override { return progress; }

    bool SubroutineParameter(std::u16string_view name, CString& value) override
    {
        return Find(subroutine, name, value);
    }
    bool EnvironmentVariable(std::u16string_view name, CString& value) override
    {
        return Find(environment, name, value);
    }
    bool ComputedVariable(std::u16string_view name, CString& value) override
    {
        return Find(computed, name, value);
    }
    bool LoopVariable(char16_t name, CString& value) override
    {
        const auto found = loops.find(name);
        if (found == loops.end())
            return false;
        value = found->second;
        return true;
    }
    bool BatchParameters(Parameters& parameters) override
    {
        if (batch.empty())
            return false;
        parameters = Parameters{batch.data(), batch.size(), shift, batchText, settings.syntax.openQuotes};
        return true;
    }

    bool IsArray(std::u16string_view name) override { return EqualNoCase(name, u"arr") && !array.empty(); }
    int ArrayElement(std::u16string_view, std::u16string_view indexes, CString& value) override
    {
        CString index(indexes);
        if (const int code = Evaluate(index))
            return code;
        const std::int64_t at = ReadDecimal(index).value_or(-1);
        if (indexes.empty() || at < 0 || at >= static_cast<std::int64_t>(array.size()))
            return Report(errors::arrayIndex, indexes), static_cast<int>(errors::arrayIndex);
        value = array[static_cast<std::size_t>(at)];
        return 0;
    }

    int CallFunction(std::u16string_view name, std::u16string_view arguments, CString& value) override
    {
        value = arguments;
        if (EqualNoCase(name, u"upper"))
            MakeUpper(value);
        else if (EqualNoCase(name, u"len"))
            value = Format(u"%u", arguments.size());
        else if (EqualNoCase(name, u"double"))
            value.Append(arguments);
        else if (EqualNoCase(name, u"eval"))
            return -Evaluate(value);
        else if (EqualNoCase(name, u"never"))
            return -6666;
        else if (EqualNoCase(name, u"again"))
            return -6667;
        else if (EqualNoCase(name, u"fail"))
            return 87;
        else if (EqualNoCase(name, u"silent"))
            return -5;
        else if (EqualNoCase(name, u"body"))
            return CallBody(arguments, value);
        else
            value = Format(u"<%s:%s>", name, arguments);
        return 0;
    }
    // A user function: the text before the first "|" is its body, the rest its one argument.
    int CallBody(std::u16string_view arguments, CString& value)
    {
        const std::size_t bar = arguments.find(u'|');
        value = arguments.substr(0, bar);
        for (std::size_t at; (at = value.Find(u'$')) != CString::npos;)
            value.Set(at, u'%');
        const CString entries[] = {u"body", bar == arguments.npos ? u"" : arguments.substr(bar + 1)};
        return ExpandFunctionBody(value, Parameters{entries, 2, 0, entries[1], true, u','}, *this);
    }

    // Sums, which is enough to see that the text arrives.
    int Evaluate(CString& expression) override
    {
        std::int64_t sum = 0;
        std::u16string_view text = expression;
        for (std::size_t used = 0; !text.empty(); text.remove_prefix(used)) {
            used = 0;
            const auto number = ReadDecimal(text, &used);
            if (!number)
                return Report(errors::syntax, expression), static_cast<int>(errors::syntax);
            sum += *number % 1000000007;
            used += used < text.size() && text[used] == u'+' ? 1 : 0;
        }
        expression = Format(u"%d", sum);
        return 0;
    }
    // "a==b", as far as a condition is needed here; an empty one is an error.
    int TestCondition(CString& condition) override
    {
        const std::size_t equals = condition.Find(u"==");
        if (equals == CString::npos)
            return -1;
        return condition.view().substr(0, equals) == condition.view().substr(equals + 2);
    }
    int ExpandAliases(CString& line) override
    {
        for (const auto& [name, value] : aliases) {
            const std::size_t end = line.view().find_first_of(u" ");
            if (EqualNoCase(line.view().substr(0, end), name))
                line.Replace(0, end, value);
        }
        return 0;
    }
    void SetEndLocal(bool on) override
    {
        endLocal = on;
        sawEndLocal = sawEndLocal || on;
    }
    int Report(unsigned code, std::u16string_view argument) override
    {
        reported.push_back(code);
        lastReport = argument;
        return 2;
    }

    CString FullPath(std::u16string_view name) override
    {
        const bool full = name.size() > 1 && (name[1] == u':' || name[0] == u'\\');
        return full ? CString(name) : Format(u"C:\\work\\%s", name);
    }
    CString ShortPath(std::u16string_view fullPath) override { return Format(u"SHORT(%s)", fullPath); }
    PathFacts Facts(std::u16string_view fullPath) override
    {
        const auto found = files.find(fullPath);
        if (found == files.end())
            return {};
        return {u"--a------", u"2026-11-21 10:00", CString(found->second)};
    }
    CString FindInPath(std::u16string_view variable, std::u16string_view name) override
    {
        const CString path = Format(u"C:\\%s\\%s", variable, name);
        return files.contains(path.view()) ? path : CString();
    }

private:
    template <typename Map> static bool Find(const Map& map, std::u16string_view name, CString& value)
    {
        const auto found = map.find(name);
        if (found == map.end())
            return false;
        value = found->second;
        return true;
    }
};
