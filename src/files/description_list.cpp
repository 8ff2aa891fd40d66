#include "files/description_list.h"

#include <algorithm>

#include "text/compare.h"

namespace {

constexpr std::size_t npos = std::u16string_view::npos;
constexpr char16_t programData = 4; // Ctrl+D: what follows belongs to some program

CString InQuotes(std::u16string_view name)
{
    if (name.find_first_of(u" \t") == npos)
        return CString(name);
    CString quoted(u"\"");
    return quoted.Append(name).Append(u'"');
}

} // namespace

DescriptionList::DescriptionList(std::u16string_view fileText)
{
    while (!fileText.empty()) {
        const std::u16string_view raw = fileText.substr(0, fileText.find(u'\n'));
        fileText.remove_prefix(std::min(raw.size() + 1, fileText.size()));
        CString text(raw);
        text.TrimRight(u"\r");
        if (text.empty())
            continue;
        Line line = Analyse(std::move(text));
        // The first line of a name counts; another would come to light when that one is removed.
        if (!places.emplace(Key(NameOf(line)), lines.size()).second)
            continue;
        lines.push_back(std::move(line));
        ++used;
    }
}

DescriptionList::Line DescriptionList::Analyse(CString text)
{
    Line line;
    const std::u16string_view view = text;
    std::size_t end = view.front() == u'"' ? view.find(u'"', 1) : view.find_first_of(u" \t");
    if (end != npos && view.front() == u'"')
        ++end;
    line.nameEnd = std::min(end, view.size());
    line.textStart = std::min(line.nameEnd + 1, view.size());
    line.textEnd = std::min(view.find(programData, line.textStart), view.size());
    line.text = std::move(text);
    return line;
}

CString DescriptionList::NameOf(const Line& line)
{
    std::u16string_view name = line.text.view().substr(0, line.nameEnd);
    if (name.starts_with(u'"'))
        name.remove_prefix(1);
    if (name.ends_with(u'"'))
        name.remove_suffix(1);
    return CString(name);
}

std::u16string DescriptionList::Key(std::u16string_view name)
{
    std::u16string key(name);
    std::transform(key.begin(), key.end(), key.begin(), UpperCase);
    return key;
}

CString DescriptionList::Find(std::u16string_view name) const
{
    const auto place = places.find(Key(name));
    if (place == places.end())
        return {};
    const Line& line = lines[place->second];
    return line.text.Substr(line.textStart, line.textEnd - line.textStart).TrimRight();
}

void DescriptionList::Put(std::u16string_view name, std::u16string_view rest)
{
    Line line = Analyse(InQuotes(name).Append(u' ').Append(rest));
    const auto [place, isNew] = places.emplace(Key(name), lines.size());
    if (isNew) {
        lines.push_back(std::move(line));
        ++used;
    } else {
        lines[place->second] = std::move(line);
    }
}

void DescriptionList::Remove(std::u16string_view name)
{
    const auto place = places.find(Key(name));
    if (place == places.end())
        return;
    lines[place->second].text.Clear();
    places.erase(place);
    --used;
}

void DescriptionList::Set(std::u16string_view name, std::u16string_view description)
{
    CString rest(description);
    for (std::size_t at = 0; at < rest.size(); ++at)
        if (rest[at] == u'\r' || rest[at] == u'\n' || rest[at] == programData)
            rest.Set(at, u' ');
    rest.Trim();
    if (rest.empty())
        return Remove(name);
    const auto place = places.find(Key(name));
    if (place != places.end())
        rest.Append(lines[place->second].text.view().substr(lines[place->second].textEnd));
    Put(name, rest);
}

void DescriptionList::Rename(std::u16string_view name, std::u16string_view newName)
{
    const auto place = places.find(Key(name));
    if (place == places.end() || EqualNoCase(name, newName))
        return;
    const Line& line = lines[place->second];
    const CString rest = line.text.Substr(line.textStart);
    Remove(name);
    Put(newName, rest);
}

CString DescriptionList::Text() const
{
    CString text;
    for (const Line& line : lines)
        if (!line.text.empty())
            text.Append(line.text).Append(u"\r\n");
    return text;
}
