#include "commands/file_order.h"

#include <algorithm>
#include <numeric>

#include "engine/results.h"
#include "engine/state.h"
#include "files/directory_source.h"
#include "text/compare.h"
#include "text/format.h"
#include "text/path_names.h"

namespace {

template <typename T> int Compare(const T& a, const T& b) { return a < b ? -1 : b < a ? 1 : 0; }

std::size_t EndOfDigits(std::u16string_view text, std::size_t from)
{
    while (from < text.size() && IsDigit(text[from]))
        ++from;
    return from;
}

// What one key needs to know that is not in the entry, asked once for each file and not in each comparison.
struct AskedFacts {
    std::vector<std::int64_t> seconds;
    std::vector<CString> owners;
    std::vector<CString> descriptions;
};

AskedFacts Ask(const std::vector<FoundFile>& files, std::u16string_view directory,
               const std::vector<FileSortKey>& order, WhichTime time)
{
    AskedFacts facts;
    SystemDirectories system(false);
    SystemRangeClock clock;
    for (const FileSortKey& key : order)
        for (const FoundFile& file : files) {
            if (key.letter == u'T')
                facts.seconds.push_back(MomentOfFileTime(clock.ToLocal(TimeOf(file.facts, time))).second);
            else if (key.letter == u'O')
                facts.owners.push_back(system.Owner(directory, file.name));
            else if (key.letter == u'I')
                facts.descriptions.push_back(system.Description(directory, file.name));
        }
    return facts;
}

} // namespace

int ReadFileOrder(std::u16string_view text, std::vector<FileSortKey>& order)
{
    constexpr std::u16string_view letters = u"N#ESDTGALIOU";
    order.clear();
    bool reverse = false;
    bool unsorted = false;
    for (const char16_t unit : text) {
        if (unit == u'-') {
            reverse = true;
            continue;
        }
        const char16_t letter = UpperCase(unit);
        if (letters.find(letter) == letters.npos)
            return MVError(errors::invalidSwitch, Format(u"%cO%s", CurrentSyntax().switchChar, text));
        if (letter == u'U')
            unsorted = true;
        else
            order.push_back({letter, reverse});
        reverse = false;
    }
    if (order.empty() && !unsorted)
        order = {{u'G', false}, {u'N', false}};
    return 0;
}

std::uint64_t TimeOf(const EntryFacts& facts, WhichTime which)
{
    switch (which) {
    case WhichTime::Created: return facts.created;
    case WhichTime::Accessed: return facts.accessed;
    default: return facts.written;
    }
}

int CompareNumbersByValue(std::u16string_view a, std::u16string_view b)
{
    std::size_t i = 0;
    std::size_t j = 0;
    while (i < a.size() && j < b.size()) {
        if (!IsDigit(a[i]) || !IsDigit(b[j])) {
            if (const int order = Compare(UpperCase(a[i++]), UpperCase(b[j++])))
                return order;
            continue;
        }
        auto zeros = [](std::u16string_view text, std::size_t& at) {
            while (at + 1 < text.size() && text[at] == u'0' && IsDigit(text[at + 1]))
                ++at;
        };
        zeros(a, i);
        zeros(b, j);
        const std::size_t endA = EndOfDigits(a, i);
        const std::size_t endB = EndOfDigits(b, j);
        if (const int order = Compare(endA - i, endB - j))
            return order;
        if (const int order = a.substr(i, endA - i).compare(b.substr(j, endB - j)))
            return order;
        i = endA;
        j = endB;
    }
    const int order = Compare(a.size() - i, b.size() - j);
    return order ? order : CompareNoCase(a, b);
}

void SortFiles(std::vector<FoundFile>& files, std::u16string_view directory,
               const std::vector<FileSortKey>& order, WhichTime time)
{
    if (order.empty())
        return;
    const AskedFacts asked = Ask(files, directory, order, time);
    auto compare = [&](const FileSortKey& key, std::size_t first, std::size_t second) {
        const FoundFile& a = files[first];
        const FoundFile& b = files[second];
        switch (key.letter) {
        case u'G': return Compare(!a.facts.IsDirectory(), !b.facts.IsDirectory());
        case u'S': return Compare(a.facts.size, b.facts.size);
        case u'D': return Compare(TimeOf(a.facts, time), TimeOf(b.facts, time));
        case u'T': return Compare(asked.seconds[first], asked.seconds[second]);
        case u'A': return Compare(a.facts.attributes, b.facts.attributes);
        case u'L': return Compare(a.name.size(), b.name.size());
        case u'I': return CompareNoCase(asked.descriptions[first], asked.descriptions[second]);
        case u'O': return CompareNoCase(asked.owners[first], asked.owners[second]);
        case u'E': return CompareNoCase(ExtensionPart(a.name), ExtensionPart(b.name));
        case u'#': return CompareNumbersByValue(a.name, b.name);
        default: return CompareNoCase(a.name, b.name);
        }
    };
    std::vector<std::size_t> places(files.size());
    std::iota(places.begin(), places.end(), std::size_t{0});
    std::stable_sort(places.begin(), places.end(), [&](std::size_t a, std::size_t b) {
        for (const FileSortKey& key : order)
            if (const int one = compare(key, a, b))
                return key.reverse ? one > 0 : one < 0;
        return false;
    });
    std::vector<FoundFile> sorted;
    sorted.reserve(files.size());
    for (const std::size_t place : places)
        sorted.push_back(std::move(files[place]));
    files = std::move(sorted);
}
