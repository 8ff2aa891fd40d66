#include "core/substitution.h"

#include "text/words.h"

bool QuickSubstitution(CString& line, std::u16string_view previous)
{
    constexpr std::size_t longestText = 255;
    const std::u16string_view text = line;
    if (text.size() <= 3 || text.front() != u'!' || text.back() != u'!')
        return false;
    const std::size_t middle = text.find(u'!', 1);
    if (middle == 1 || middle + 1 >= text.size())
        return false;
    const std::size_t end = text.find(u'!', middle + 1);
    const CString from(text.substr(1, middle - 1));
    const CString to(text.substr(middle + 1, end - middle - 1));
    if (to.empty() || end + 1 != text.size() || from.size() > longestText || to.size() > longestText)
        return false;
    CString changed(previous);
    for (std::size_t at = changed.Find(from.view()); at != CString::npos;
         at = changed.Find(from.view(), at + to.size()))
        changed.Replace(at, from.size(), to);
    line = changed;
    return true;
}

void UnixAFStoWindows(CString& line, const Syntax& syntax)
{
    bool first = true;
    for (Word word = NextWord(line, 0, syntax); word.length > 0; word = NextWord(line, word.end(), syntax)) {
        const std::u16string_view text = line.view().substr(word.start, word.length);
        const bool path = text.front() == u'/' && (first || text.find(u'/', 1) != text.npos);
        first = false;
        if (!path)
            continue;
        for (std::size_t at = word.start; at < word.end(); ++at)
            if (line[at] == u'/')
                line.Set(at, u'\\');
    }
}
