#include "console/history_recall.h"

#include "text/compare.h"

namespace {

bool Begins(std::u16string_view line, std::u16string_view prefix, bool caseCounts)
{
    return caseCounts ? line.starts_with(prefix) : BeginsNoCase(line, prefix);
}

} // namespace

void HistoryRecall::Take(std::vector<CString> newLines)
{
    Forget();
    lines = std::move(newLines);
    taken = true;
    firstUnits.reserve(lines.size());
    for (const CString& line : lines)
        firstUnits.push_back(LowerCase(line.front()));
}

void HistoryRecall::Forget()
{
    lines.clear();
    firstUnits.clear();
    taken = false;
    askedBefore = false;
    at = CString::npos;
}

bool HistoryRecall::Matches(std::size_t line, std::u16string_view present, const Rules& rules) const
{
    return Begins(lines[line], typed.view().substr(0, prefixLength), rules.caseCounts) &&
           lines[line].view() != present;
}

void HistoryRecall::StandAt(std::size_t place, std::u16string_view present)
{
    if (!Walking()) {
        typed = present;
        prefixLength = 0;
    }
    at = place;
}

const CString* HistoryRecall::Older(std::u16string_view present, std::size_t prefix, const Rules& rules)
{
    if (!Walking()) {
        typed = present;
        prefixLength = prefix;
    }
    const std::size_t from = Walking() ? at : lines.size();
    for (std::size_t line = from; line-- > 0;)
        if (Matches(line, present, rules))
            return &lines[at = line];
    if (!rules.wraps || !Walking())
        return nullptr;
    for (std::size_t line = lines.size(); line-- > from;)
        if (Matches(line, present, rules))
            return &lines[at = line];
    return nullptr;
}

const CString* HistoryRecall::Newer(std::u16string_view present, std::size_t prefix, const Rules& rules)
{
    const bool walking = Walking();
    if (!walking) {
        typed = present;
        prefixLength = prefix;
    }
    for (std::size_t line = walking ? at + 1 : 0; walking && line < lines.size(); ++line)
        if (Matches(line, present, rules))
            return &lines[at = line];
    if (walking) {
        at = CString::npos;
        return &typed;
    }
    for (std::size_t line = 0; rules.wraps && line < lines.size(); ++line)
        if (Matches(line, present, rules))
            return &lines[at = line];
    return nullptr;
}

void HistoryRecall::RemovePresent()
{
    if (!Walking())
        return;
    lines.erase(lines.begin() + static_cast<std::ptrdiff_t>(at));
    firstUnits.erase(firstUnits.begin() + static_cast<std::ptrdiff_t>(at));
    askedBefore = false;
}

const CString* HistoryRecall::Suggest(std::u16string_view text, bool caseCounts)
{
    if (text.empty())
        return nullptr;
    // A longer text has its newest line no later than the shorter one had it.
    std::size_t from = lines.size();
    if (askedBefore && answered == lines.size() && Begins(text, unknown, true))
        return nullptr;
    if (askedBefore && answered < lines.size() && text.size() > askedLength &&
        Begins(text, lines[answered].view().substr(0, askedLength), caseCounts))
        from = answered + 1;
    askedLength = text.size();
    askedBefore = true;
    answered = lines.size();
    const char16_t first = LowerCase(text.front());
    for (std::size_t line = from; line-- > 0;)
        if (firstUnits[line] == first && lines[line].size() > text.size() &&
            Begins(lines[line], text, caseCounts)) {
            answered = line;
            return &lines[line];
        }
    unknown = text;
    return nullptr;
}
