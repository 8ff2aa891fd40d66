#include "batch/switch_block.h"

#include "batch/conditions.h"
#include "core/blocks.h"
#include "core/command_lookup.h"
#include "engine/batch_entry.h"
#include "engine/condition_entry.h"
#include "engine/expansion_entry.h"
#include "engine/results.h"
#include "engine/state.h"
#include "text/compare.h"

namespace {

constexpr std::u16string_view alternative = u" .or. ";

// The next line of the block: continuation lines joined, blanks around it and a leading "*" dropped.
bool ReadBlockLine(CString& line)
{
    if (!ReadBatchLine(line))
        return false;
    const Syntax syntax = CurrentSyntax();
    CString next;
    while (EndsInEscape(line, syntax) && ReadBatchLine(next))
        line.Truncate(line.size() - 1).Append(next);
    line.Trim();
    if (line.front() == u'*')
        line.Erase(0, 1);
    return true;
}

// Text that stands for itself in a condition, whatever blanks and operators it holds.
CString AsOperand(std::u16string_view text)
{
    const bool quoted = text.size() >= 2 && text.front() == u'"' && text.back() == u'"';
    if (quoted || text.find(u'`') != text.npos)
        return CString(text);
    return CString(u"`").Append(text).Append(u'`');
}

bool FitsAlternative(std::u16string_view value, std::u16string_view choice)
{
    CString text(choice);
    text.Trim();
    const bool regex = text.view().starts_with(u"::");
    if (regex)
        text.Erase(0, 2);
    else if (VariableExpansion(text, true) != 0)
        return false;
    CString test = AsOperand(value);
    test.Append(regex ? u" =~ " : u" EQ ").Append(AsOperand(text));
    return TestExpandedCondition(test) > 0;
}

// Whether one of the values behind CASE is the value.
bool Fits(std::u16string_view value, std::u16string_view choices)
{
    for (;;) {
        const std::size_t end = FindNoCase(choices, alternative);
        if (FitsAlternative(value, choices.substr(0, end)))
            return true;
        if (end == choices.npos)
            return false;
        choices.remove_prefix(end + alternative.size());
    }
}

} // namespace

int ChooseGroup(std::u16string_view value)
{
    if (!OpenBatchFile())
        return result::abandonBatch;
    const bool comments = QueryIsCommandEnabled(u"COMMENT");
    CString line;
    int depth = 0;
    while (ReadBlockLine(line)) {
        if (comments && EqualNoCase(line, u"COMMENT"))
            ReadTextBlock(u"ENDCOMMENT", nullptr);
        else if (BeginsNoCase(line, u"switch "))
            ++depth;
        else if (depth > 0)
            depth -= EqualNoCase(line, u"EndSwitch") ? 1 : 0;
        else if (EqualNoCase(line, u"Default") || EqualNoCase(line, u"EndSwitch"))
            return result::success;
        else if (BeginsNoCase(line, u"Case ") && Fits(value, line.view().substr(5)))
            return result::success;
    }
    return fileEnded;
}

int LeaveGroup()
{
    if (!OpenBatchFile())
        return result::abandonBatch;
    CString line;
    int depth = 0;
    while (ReadBlockLine(line)) {
        if (EqualNoCase(line, u"caseall"))
            return result::success;
        if (BeginsNoCase(line, u"switch "))
            ++depth;
        else if (EqualNoCase(line, u"EndSwitch") && depth-- == 0)
            return result::success;
    }
    return fileEnded;
}

bool ReadTextBlock(std::u16string_view closing, void (*visit)(const CString& line))
{
    CString line;
    while (ReadBatchLine(line)) {
        CString word(line);
        if (EqualNoCase(word.Trim(), closing))
            return true;
        if (visit)
            visit(line);
    }
    return false;
}
