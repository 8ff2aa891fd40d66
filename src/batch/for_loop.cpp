#include "batch/for_loop.h"

#include <algorithm>
#include <limits>
#include <utility>

#include <windows.h>

#include "batch/file_sets.h"
#include "batch/for_header.h"
#include "batch/for_tokens.h"
#include "batch/isolated_command.h"
#include "core/output_capture.h"
#include "engine/break.h"
#include "engine/command_entry.h"
#include "engine/expansion_entry.h"
#include "engine/results.h"
#include "engine/state.h"
#include "expand/lists.h"
#include "files/text_lines.h"
#include "platform/environment.h"
#include "platform/file_facts.h"
#include "text/block_scanner.h"
#include "text/escapes.h"
#include "text/format.h"
#include "text/numbers.h"
#include "text/path_names.h"
#include "text/words.h"

namespace {

// The variables of a loop for as long as it runs: single characters live beside the environment, longer names
// in it.
class LoopVariables {
public:
    LoopVariables(const CString& firstName, std::size_t variableCount) : name(firstName), count(variableCount)
    {
        TLS_VARIABLES& tls = Tls();
        ++tls.blocks.forRunning;
        base = tls.loopVariables.size();
        if (name.size() > 1) {
            ReadEnvironment(name, before);
            return;
        }
        for (std::size_t i = 0; i < count; ++i)
            tls.loopVariables.push_back({static_cast<char16_t>(name.front() + i), CString()});
    }
    ~LoopVariables()
    {
        TLS_VARIABLES& tls = Tls();
        // A GOTO out of the loop has cleared the count already.
        tls.blocks.forRunning = static_cast<std::uint16_t>(std::max(tls.blocks.forRunning - 1, 0));
        tls.loopVariables.resize(std::min(base, tls.loopVariables.size()));
        if (name.size() > 1 && before.empty())
            RemoveEnvironment(name);
        else if (name.size() > 1)
            WriteEnvironment(name, before);
    }
    LoopVariables(const LoopVariables&) = delete;
    LoopVariables& operator=(const LoopVariables&) = delete;

    void Set(std::size_t index, std::u16string_view value)
    {
        if (name.size() == 1)
            Tls().loopVariables[base + index].value = value;
        else if (index == 0)
            WriteEnvironment(name, value);
    }

private:
    CString name;
    std::size_t count;
    std::size_t base = 0;
    CString before;
};

class ForLoop {
public:
    ForLoop(const ForHeader& of, std::size_t variableCount)
        : header(of), variables(of.variable, variableCount), command(WithoutParentheses(of.command))
    {}

    int OverNumbers();
    int OverEntries();
    int OverDirectories();
    int OverLines(const ForOptions& options);

private:
    static CString WithoutParentheses(const CString& command)
    {
        if (command.front() == u'(' && FindBlockEnd(command, 0, CurrentSyntax()) == command.size() - 1)
            return command.Substr(1, command.size() - 2);
        return command;
    }

    // One pass; false when the loop is to end.
    bool Pass();
    bool PassWith(std::u16string_view value)
    {
        variables.Set(0, value);
        return Pass();
    }
    bool PassEntries(std::u16string_view directory);
    bool PassLines(std::u16string_view fileName, const ForOptions& options);
    bool PassLine(std::u16string_view line, const ForOptions& options);
    bool PassOutput(const CString& text, const ForOptions& options);

    const ForHeader& header;
    LoopVariables variables;
    CString command;
    int answer = result::success;
    unsigned linesSkipped = 0;
    std::vector<std::u16string_view> values;
};

bool ForLoop::Pass()
{
    ThrowIfBroken();
    answer = Command_S(command, 0);
    if (!EndsLine(answer))
        return true;
    TLS_VARIABLES& tls = Tls();
    if (answer == result::abandonBatch && tls.loopSignal == LoopSignal::LeaveFor) {
        tls.loopSignal = LoopSignal::None;
        answer = result::success;
    }
    return false;
}

int ForLoop::OverNumbers()
{
    std::int64_t numbers[3] = {0, 0, 0}; // start, step, end
    SetReader reader{header.set};
    std::u16string_view entry;
    for (std::int64_t& number : numbers)
        if (reader.Next(entry))
            number = ReadInteger(entry).value_or(0);
    const auto [start, step, end] = numbers;
    using Limits = std::numeric_limits<std::int64_t>;
    std::int64_t number = start;
    while (step >= 0 ? number <= end : number >= end) {
        if (!PassWith(Format(u"%d", number)))
            break;
        if (step >= 0 ? number > Limits::max() - step : number < Limits::min() - step)
            break;
        number += step;
    }
    return answer;
}

// The entries of a plain set; with /R below one directory after the other.
bool ForLoop::PassEntries(std::u16string_view directory)
{
    SetReader reader{header.set};
    std::u16string_view entry;
    std::vector<CString> names;
    while (reader.Next(entry)) {
        const CString bare = WithoutQuotes(entry);
        if (HasWildcards(bare)) {
            names.clear();
            const CString pattern = directory.empty() ? CString(entry) : Format(u"\"%s%s\"", directory, bare);
            AppendMatches(pattern, header.directories ? MatchKind::Directories : MatchKind::Files, names);
            for (const CString& name : names)
                if (!PassWith(name))
                    return false;
        } else if (entry.front() == u'@' && entry.size() > 1 && QueryIsFile(bare.view().substr(1))) {
            if (!PassLines(bare.view().substr(1), ForOptions{0, 0, CString(), 1, false, false}))
                return false;
        } else if (!PassWith(directory.empty() ? CString(entry) : CString(directory) + bare)) {
            return false;
        }
    }
    return true;
}

int ForLoop::OverEntries()
{
    PassEntries({});
    return answer;
}

int ForLoop::OverDirectories()
{
    CString root = FullPathName(header.root.empty() ? CString(u".") : WithoutQuotes(header.root));
    if (!QueryIsDirectory(root))
        return result::success;
    if (!IsPathSeparator(root.back()))
        root.Append(u'\\');
    WalkDirectories(root, [&](const CString& directory) { return PassEntries(directory); });
    return answer;
}

bool ForLoop::PassLine(std::u16string_view line, const ForOptions& options)
{
    if (linesSkipped < options.skip) {
        ++linesSkipped;
        return true;
    }
    if (!CutForLine(line, options, values))
        return true;
    for (std::size_t i = 0; i < values.size(); ++i)
        variables.Set(i, values[i]);
    return Pass();
}

bool ForLoop::PassLines(std::u16string_view fileName, const ForOptions& options)
{
    TextLines lines;
    linesSkipped = 0;
    if (!lines.Open(fileName)) {
        answer = MVError(GetLastError(), fileName);
        return true;
    }
    std::u16string_view line;
    while (lines.Next(line))
        if (!PassLine(line, options))
            return false;
    return true;
}

// The output of a command, which runs as in a shell of its own: nothing it changes stays.
bool ForLoop::PassOutput(const CString& text, const ForOptions& options)
{
    OutputCapture capture;
    bool ran = false;
    {
        const IsolatedCommand isolated;
        capture.Run(text, ran);
    }
    if (!ran) {
        answer = MVError(GetLastError());
        return true;
    }
    return PassLines(capture.File(), options);
}

bool IsIn(std::u16string_view text, char16_t quote)
{
    return text.size() >= 2 && text.front() == quote && text.back() == quote;
}

int ForLoop::OverLines(const ForOptions& options)
{
    CString set(header.set);
    set.Trim(u" \t\r\n");
    const CString inner = set.Substr(1, set.size() < 2 ? 0 : set.size() - 2);
    if (IsIn(set, options.backQuotes ? u'`' : u'\'')) {
        PassOutput(inner, options);
        return answer;
    }
    if (IsIn(set, options.backQuotes ? u'\'' : u'"')) {
        PassLine(inner, options);
        return answer;
    }
    SetReader reader{set};
    std::u16string_view entry;
    while (reader.Next(entry))
        if (!PassLines(WithoutQuotes(entry), options))
            break;
    return answer;
}

bool Expand(CString& text) { return VariableExpansion(text, true) == 0; }

// The part between the quotes that tell the kind of a /F set is unescaped; the marks themselves would hide
// it.
void UnescapeSet(CString& set, const Syntax& syntax)
{
    set.Trim(u" \t\r\n");
    if (set.size() >= 2 && set.front() == u'`' && set.back() == u'`') {
        CString inner = set.Substr(1, set.size() - 2);
        UnEscapeLine(inner, syntax);
        set.Replace(1, set.size() - 2, inner);
    } else {
        UnEscapeLine(set, syntax);
    }
}

std::size_t CountValues(const ForOptions& options)
{
    std::size_t count = options.rest ? 1 : 0;
    for (std::uint32_t tokens = options.tokens; tokens != 0; tokens &= tokens - 1)
        ++count;
    return count;
}

int RunForLines(ForHeader& header, const Syntax& syntax)
{
    ForOptions options;
    if (!header.options.empty()) {
        UnEscapeLine(header.options, syntax);
        const CString text = WithoutOuterQuotes(header.options);
        if (!ReadForOptions(text, options))
            return MVError(errors::syntax, text);
    }
    return ForLoop(header, CountValues(options)).OverLines(options);
}

} // namespace

int RunFor(ForHeader& header)
{
    const Syntax syntax = CurrentSyntax();
    if (!Expand(header.root) || !Expand(header.options) || !Expand(header.set))
        return result::error;
    UnescapeSet(header.set, syntax);
    if (header.parsing)
        return RunForLines(header, syntax);
    ForLoop loop(header, 1);
    if (header.counting)
        return loop.OverNumbers();
    return header.recursive ? loop.OverDirectories() : loop.OverEntries();
}
