#include "batch/do_values.h"

#include <memory>
#include <utility>
#include <vector>

#include <windows.h>

#include "batch/do_header.h"
#include "batch/file_sets.h"
#include "batch/isolated_command.h"
#include "core/output_capture.h"
#include "engine/console_entry.h"
#include "engine/expansion_entry.h"
#include "engine/results.h"
#include "engine/state.h"
#include "files/text_lines.h"
#include "text/compare.h"
#include "text/format.h"
#include "text/numbers.h"
#include "text/path_names.h"
#include "text/words.h"

namespace {

ValueSource FromList(std::vector<CString> values)
{
    return [values = std::move(values), next = std::size_t{0}](CString& value) mutable {
        if (next == values.size())
            return false;
        value = values[next++];
        return true;
    };
}

ValueSource FromFile(const CString& name)
{
    auto lines = std::make_shared<TextLines>();
    if (!lines->Open(name))
        return MVError(GetLastError(), name), nullptr;
    return [lines](CString& value) {
        std::u16string_view line;
        const bool more = lines->Next(line);
        value = line;
        return more;
    };
}

ValueSource FromOutput(const CString& command)
{
    auto capture = std::make_shared<OutputCapture>();
    bool ran = false;
    {
        const IsolatedCommand isolated;
        capture->Run(command, ran);
    }
    if (!ran)
        return MVError(GetLastError()), nullptr;
    // The capture must outlive the reading: its file goes with it.
    return [capture, source = FromFile(capture->File())](CString& value) { return source && source(value); };
}

ValueSource FromLetters(const CString& text)
{
    return [text, at = std::size_t{0}](CString& value) mutable {
        if (at == text.size())
            return false;
        value = text.Substr(at++, 1);
        return true;
    };
}

ValueSource FromFiles(const std::vector<CString>& words)
{
    std::vector<CString> names;
    for (const CString& word : words) {
        const CString bare = WithoutQuotes(word);
        if (HasWildcards(bare))
            AppendMatches(word, MatchKind::Files, names);
        else
            names.push_back(bare);
    }
    return FromList(std::move(names));
}

} // namespace

bool ReadNumber(CString text, std::int64_t& number)
{
    if (VariableExpansion(text, true) != 0)
        return false;
    auto whole = ParseInteger(text);
    if (!whole && EvaluateExpression(text) == 0)
        whole = ReadDecimal(text);
    number = whole.value_or(0);
    return whole.has_value();
}

ValueSource OpenCounter(const DoHeader& header)
{
    std::int64_t number = 0;
    std::int64_t last = 0;
    std::int64_t step = 1;
    if (!ReadNumber(header.first, number) || !ReadNumber(header.last, last) ||
        (!header.step.empty() && !ReadNumber(header.step, step)))
        return nullptr;
    // Steps are counted up front, so that the last number may stand at the end of the range of numbers.
    const bool none = step == 0 || (step > 0 ? number > last : number < last);
    const auto distance = static_cast<std::uint64_t>(step > 0 ? last : number) -
                          static_cast<std::uint64_t>(step > 0 ? number : last);
    const auto stride = step > 0 ? static_cast<std::uint64_t>(step) : 0 - static_cast<std::uint64_t>(step);
    bool more = !none;
    std::uint64_t left = none ? 0 : distance / stride;
    return [=](CString& value) mutable {
        if (!more)
            return false;
        value = Format(u"%d", number);
        more = left-- > 0;
        number = more ? number + step : number;
        return true;
    };
}

ValueSource OpenWalk(const DoHeader& header)
{
    CString set(header.first);
    if (VariableExpansion(set, true) != 0)
        return nullptr;
    const Syntax syntax = CurrentSyntax();
    const CString first = GetNthArgument(set, 0, syntax);
    const CString behind(TailFromArgument(set, 1, syntax));
    if (first.front() == syntax.switchChar) {
        if (EqualNoCase(first.view().substr(1), u"L"))
            return FromList(SplitArguments(behind, true, syntax));
        if (EqualNoCase(first.view().substr(1), u"P"))
            return FromOutput(behind);
        if (EqualNoCase(first.view().substr(1), u"C"))
            return FromLetters(WithoutOuterQuotes(behind));
        return MVError(errors::invalidSwitch, first), nullptr;
    }
    if (EqualNoCase(first, u"@con"))
        return [](CString& value) { return ReadConsoleLine(value, {}); };
    if (first.front() == u'@')
        return FromFile(WithoutQuotes(first.view().substr(1)));
    return FromFiles(SplitArguments(set, true, syntax));
}
