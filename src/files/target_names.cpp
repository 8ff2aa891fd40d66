#include "files/target_names.h"

#include <algorithm>

#include "text/compare.h"
#include "text/path_names.h"

namespace {

constexpr std::size_t longestName = 32768;

class NameBuilder {
public:
    NameBuilder(std::u16string_view namePattern, std::u16string_view sourceName, CString& builtName)
        : pattern(namePattern), source(sourceName), built(builtName)
    {
        surplus =
            std::count(source.begin(), source.end(), u'.') - std::count(pattern.begin(), pattern.end(), u'.');
    }

    void Run()
    {
        for (std::size_t at = 0; at < pattern.size();) {
            const char16_t unit = pattern[at++];
            if (unit == u'*') {
                while (at < pattern.size() && (pattern[at] == u'*' || pattern[at] == u'?'))
                    ++at;
                TakeRun(pattern.substr(at));
            } else if (unit == u'?') {
                if (!AtBoundary())
                    built.Append(source[from++]);
            } else if (unit == u'.') {
                from = std::min(source.find(u'.', from), source.size() - 1) + 1;
                built.Append(u'.');
            } else {
                built.Append(unit);
                from += AtBoundary() ? 0 : 1;
            }
        }
    }

private:
    bool AtBoundary() const { return from >= source.size() || source[from] == u'.'; }

    // What a "*" stands for, `rest` being the pattern behind it.
    void TakeRun(std::u16string_view rest)
    {
        // Brackets and the like end the literal text too: patterns that hold them name files that way.
        const std::u16string_view literal = rest.substr(0, rest.find_first_of(u"%[^.*?]"));
        const bool periodFollows = rest.starts_with(u'.');
        const std::size_t start = from;
        for (; from < source.size(); ++from) {
            if (source[from] == u'.' && periodFollows && surplus-- <= 0)
                break;
            if (!literal.empty() && BeginsNoCase(source.substr(from), literal))
                break;
        }
        built.Append(source.substr(start, from - start));
    }

    std::u16string_view pattern;
    std::u16string_view source;
    CString& built;
    std::size_t from = 0;       // the source's unit to be used next
    std::ptrdiff_t surplus = 0; // periods that a "*" may still step over
};

} // namespace

bool MakeWildcardName(CString& result, std::u16string_view targetPattern, std::u16string_view sourceName)
{
    CString built;
    if (QueryIsURL(targetPattern)) {
        built = targetPattern;
    } else {
        built = DirectoryPart(targetPattern);
        NameBuilder(FileNamePart(targetPattern), FileNamePart(sourceName), built).Run();
        if (built.view().ends_with(u'.') && !built.view().ends_with(u".."))
            built.Truncate(built.size() - 1);
    }
    if (built.size() > longestName)
        return false;
    result = built;
    return true;
}
