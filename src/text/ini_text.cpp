#include "text/ini_text.h"

#include <algorithm>

#include "text/compare.h"

namespace {

using View = std::u16string_view;

constexpr std::size_t npos = View::npos;

View Trimmed(View text)
{
    constexpr View blanks = u" \t\r\n";
    const std::size_t start = text.find_first_not_of(blanks);
    return start == npos ? View() : text.substr(start, text.find_last_not_of(blanks) + 1 - start);
}

View WithoutQuotes(View value)
{
    const bool quoted = value.size() >= 2 && value.front() == value.back() &&
                        (value.front() == u'"' || value.front() == u'\'');
    return quoted ? value.substr(1, value.size() - 2) : value;
}

void AddOnce(std::vector<CString>& names, View name)
{
    const bool known =
        std::any_of(names.begin(), names.end(), [&](const CString& one) { return EqualNoCase(one, name); });
    if (!known)
        names.emplace_back(name);
}

} // namespace

struct IniText::Line {
    std::size_t start = 0; // in the text
    std::size_t end = 0;   // behind its line end
    bool isHeader = false;
    View section; // that it stands in, or opens
    View name;    // "" for a line that is no entry
    View value;   // without blanks around it
};

// Goes on from the line that was found last; its section stays until another begins.
bool IniText::NextLine(Line& line) const
{
    const View all = text;
    if (line.end >= all.size())
        return false;
    line.start = line.end;
    const std::size_t feed = all.find(u'\n', line.start);
    line.end = feed == npos ? all.size() : feed + 1;
    line.isHeader = false;
    line.name = line.value = View();
    const View content = Trimmed(all.substr(line.start, line.end - line.start));
    if (content.starts_with(u'[')) {
        line.isHeader = true;
        line.section = Trimmed(content.substr(1, content.find(u']') - 1));
    } else if (!content.starts_with(u';')) {
        const std::size_t equals = content.find(u'=');
        if (equals != npos) {
            line.name = Trimmed(content.substr(0, equals));
            line.value = Trimmed(content.substr(equals + 1));
        }
    }
    return true;
}

std::vector<CString> IniText::Sections() const
{
    std::vector<CString> names;
    for (Line line; NextLine(line);)
        if (line.isHeader)
            AddOnce(names, line.section);
    return names;
}

std::vector<CString> IniText::Entries(View section) const
{
    std::vector<CString> names;
    for (Line line; NextLine(line);)
        if (!line.name.empty() && EqualNoCase(line.section, section))
            AddOnce(names, line.name);
    return names;
}

std::optional<IniText::Line> IniText::Find(View section, View entry) const
{
    for (Line line; NextLine(line);)
        if (!line.name.empty() && EqualNoCase(line.section, section) && EqualNoCase(line.name, entry))
            return line;
    return std::nullopt;
}

std::optional<CString> IniText::Value(View section, View entry) const
{
    const auto line = Find(section, entry);
    return line ? std::optional(CString(WithoutQuotes(line->value))) : std::nullopt;
}

View IniText::LineEnd() const
{
    const std::size_t feed = text.Find(u'\n');
    return feed == npos || (feed > 0 && text[feed - 1] == u'\r') ? u"\r\n" : u"\n";
}

void IniText::InsertLine(std::size_t at, const CString& content)
{
    const CString end(LineEnd());
    CString line = content + end;
    if (at > 0 && text[at - 1] != u'\n')
        line.Insert(0, end);
    text.Insert(at, line);
}

void IniText::Set(View section, View entry, View value)
{
    if (const auto line = Find(section, entry)) {
        const std::size_t from = line->value.empty()
                                     ? text.Find(u'=', line->start) + 1
                                     : static_cast<std::size_t>(line->value.data() - text.c_str());
        text.Replace(from, line->value.size(), value);
        return;
    }
    std::size_t behind = section.empty() ? 0 : npos; // entries may stand in front of all sections
    for (Line line; NextLine(line);) {
        const bool filled = !Trimmed(text.view().substr(line.start, line.end - line.start)).empty();
        if (EqualNoCase(line.section, section) && (line.isHeader || (behind != npos && filled)))
            behind = line.end;
        else if (line.isHeader && behind != npos)
            break;
    }
    if (behind == npos) {
        InsertLine(text.size(), CString(u"[") + section + u"]");
        behind = text.size();
    }
    InsertLine(behind, CString(entry) + u"=" + value);
}

void IniText::Remove(View section, View entry)
{
    for (auto line = Find(section, entry); line; line = Find(section, entry))
        text.Erase(line->start, line->end - line->start);
}

void IniText::Remove(View section)
{
    CString rest;
    for (Line line; NextLine(line);)
        if (line.section.data() == nullptr || !EqualNoCase(line.section, section))
            rest.Append(text.view().substr(line.start, line.end - line.start));
    text = rest;
}
