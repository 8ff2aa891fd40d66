#include "batch/labels.h"

#include "text/compare.h"
#include "text/words.h"

namespace {

std::u16string_view WithoutFront(std::u16string_view text, std::u16string_view set)
{
    const std::size_t first = text.find_first_not_of(set);
    return first == text.npos ? std::u16string_view() : text.substr(first);
}

std::u16string_view WithoutBack(std::u16string_view text, std::u16string_view set)
{
    return text.substr(0, text.find_last_not_of(set) + 1);
}

std::u16string_view FirstWord(std::u16string_view text, const Syntax& syntax)
{
    const Word word = NextWord(text, 0, syntax);
    return text.substr(word.start, word.length);
}

} // namespace

bool ReadLabelLine(std::u16string_view line, bool hashLabels, const Syntax& syntax, LabelLine& label)
{
    line = WithoutFront(line, u" \t");
    if (hashLabels && line.starts_with(u"#:"))
        line.remove_prefix(1);
    if (!line.starts_with(u':') || line.starts_with(u"::"))
        return false;
    line = WithoutFront(line.substr(1), u"= \t");
    std::u16string_view word = FirstWord(line, syntax);
    word = word.substr(0, word.find(u'['));
    label.label = WithoutBack(word, u":=");
    // The list may follow the label directly or behind blanks.
    const std::u16string_view behind = WithoutFront(line.substr(line.find(word) + word.size()), u" \t");
    label.parameters = behind.starts_with(u'[') ? WithoutBack(WithoutFront(behind.substr(1), u" \t"), u" \t]")
                                                : std::u16string_view();
    return !label.label.empty();
}

std::u16string_view WantedLabel(std::u16string_view arguments, const Syntax& syntax)
{
    std::u16string_view label = FirstWord(arguments, syntax);
    if (label.starts_with(u'@'))
        label.remove_prefix(1);
    if (label.starts_with(u':'))
        label.remove_prefix(1);
    return WithoutBack(label, u"+=:[/");
}
