#include "files/name_colors.h"

#include <algorithm>
#include <iterator>

#include "config/colors.h"
#include "files/wildcards.h"
#include "text/compare.h"
#include "text/path_names.h"
#include "text/words.h"

namespace {

struct AttributeWord {
    const char16_t* name;
    std::uint32_t attribute;
};
constexpr AttributeWord attributeWords[] = {
    {u"dirs", 0x10},      {u"rdonly", 0x1},       {u"hidden", 0x2},  {u"system", 0x4},
    {u"archive", 0x20},   {u"temporary", 0x100},  {u"links", 0x400}, {u"compressed", 0x800},
    {u"offline", 0x1000}, {u"encrypted", 0x4000},
};

std::u16string_view CutRule(std::u16string_view& list)
{
    const std::u16string_view rule = list.substr(0, list.find(u';'));
    list.remove_prefix(std::min(rule.size() + 1, list.size()));
    return rule;
}

bool OnlyBlanks(std::u16string_view text) { return std::all_of(text.begin(), text.end(), IsBlank); }

} // namespace

NameColors::NameColors(std::u16string_view setting)
{
    while (!setting.empty()) {
        const std::u16string_view text = CutRule(setting);
        const std::size_t colon = text.rfind(u':');
        if (colon == text.npos)
            continue;
        const std::u16string_view color = text.substr(colon + 1);
        std::size_t end = 0;
        Rule rule;
        const auto pair = ReadColorPair(color, end);
        const auto foreground = pair ? pair : ReadColor(color, end);
        if (!foreground || !OnlyBlanks(color.substr(end)))
            continue;
        rule.color = *foreground;
        rule.background = pair.has_value();
        const std::u16string_view words = text.substr(0, colon);
        for (Word at = NextBlankWord(words, 0); at.length > 0; at = NextBlankWord(words, at.end()))
            rule.words.emplace_back(words.substr(at.start, at.length));
        rules.push_back(std::move(rule));
    }
}

bool NameColors::Fits(const CString& word, std::u16string_view name, std::uint32_t attributes)
{
    const auto* known = std::find_if(std::begin(attributeWords), std::end(attributeWords),
                                     [&](const AttributeWord& row) { return EqualNoCase(row.name, word); });
    if (known != std::end(attributeWords))
        return (attributes & known->attribute) != 0;
    if (word.Find(u'.') != CString::npos)
        return WildcardComparison(word, name, true, true) == 0;
    const std::u16string_view extension = ExtensionPart(name);
    return extension.size() > 1 && WildcardComparison(word, extension.substr(1), false, true) == 0;
}

std::optional<unsigned> NameColors::Of(std::u16string_view name, std::uint32_t attributes,
                                       unsigned screen) const
{
    for (const Rule& rule : rules)
        for (const CString& word : rule.words)
            if (Fits(word, name, attributes))
                return rule.background ? rule.color : (screen & 0xF0) | rule.color;
    return std::nullopt;
}
