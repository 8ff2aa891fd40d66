#include "expand/path_modifiers.h"

#include <algorithm>

#include "text/compare.h"
#include "text/path_names.h"
#include "text/words.h"

namespace {

bool Holds(std::u16string_view letters, char16_t upper)
{
    return letters.find(upper) != letters.npos || letters.find(LowerCase(upper)) != letters.npos;
}

std::size_t DriveLength(std::u16string_view path)
{
    if (path.size() >= 2 && path[1] == u':')
        return 2;
    if (path.size() < 3 || !IsPathSeparator(path[0]) || !IsPathSeparator(path[1]))
        return 0;
    // A share's name belongs to its server's.
    const std::size_t server = path.find_first_of(u"\\/", 2);
    const std::size_t share = server == path.npos ? server : path.find_first_of(u"\\/", server + 1);
    return share == path.npos ? path.size() : share;
}

CString ChosenParts(std::u16string_view path, std::u16string_view letters)
{
    if (Holds(letters, u'F'))
        return CString(path);
    const PathParts parts = SplitPath(path);
    CString result;
    if (Holds(letters, u'D'))
        result.Append(parts.drive);
    if (Holds(letters, u'P'))
        result.Append(parts.directory);
    if (Holds(letters, u'N'))
        result.Append(parts.name);
    if (Holds(letters, u'X'))
        result.Append(parts.extension);
    return result;
}

void AppendWord(CString& text, std::u16string_view word)
{
    if (!text.empty() && !word.empty())
        text.Append(u' ');
    text.Append(word);
}

} // namespace

PathParts SplitPath(std::u16string_view path)
{
    const std::size_t drive = DriveLength(path);
    const std::size_t name = std::max(FileNameStart(path), drive);
    const std::size_t extension = std::max(ExtensionStart(path), name);
    return {path.substr(0, drive), path.substr(drive, name - drive), path.substr(name, extension - name),
            path.substr(extension)};
}

CString ApplyPathModifiers(std::u16string_view value, const PathModifiers& modifiers, PathSource& source)
{
    const CString bare = WithoutOuterQuotes(value);
    std::u16string_view letters = modifiers.letters;
    if (letters.empty() && modifiers.searchList.empty())
        return bare;
    // Without a name there is nothing to complete to a path.
    if (bare.empty())
        return {};
    CString path =
        modifiers.searchList.empty() ? source.FullPath(bare) : source.FindInPath(modifiers.searchList, bare);
    if (path.empty())
        return {};
    const bool facts = Holds(letters, u'A') || Holds(letters, u'T') || Holds(letters, u'Z');
    const bool parts = letters.find_first_of(u"DFNPXdfnpx") != letters.npos;
    CString result;
    if (facts) {
        const PathFacts known = source.Facts(path);
        if (Holds(letters, u'A'))
            AppendWord(result, known.attributes);
        if (Holds(letters, u'T'))
            AppendWord(result, known.time);
        if (Holds(letters, u'Z'))
            AppendWord(result, known.size);
    }
    if (Holds(letters, u'S'))
        path = source.ShortPath(path);
    if (parts || !facts)
        AppendWord(result, ChosenParts(path, parts ? letters : u"F"));
    return result;
}
