#include "commands/dir_listing.h"

#include <algorithm>
#include <numeric>

#include "engine/country.h"
#include "engine/expansion_entry.h"
#include "engine/inifile.h"
#include "engine/output.h"
#include "engine/results.h"
#include "files/dates.h"
#include "files/descriptions.h"
#include "files/directory_name.h"
#include "text/compare.h"
#include "text/path_names.h"

namespace {

constexpr std::size_t outputBlock = 16384; // units written at once
constexpr std::uint32_t junctionTag = 0xA0000003;
constexpr std::uint32_t symbolicLinkTag = 0xA000000C;

bool IsDots(std::u16string_view name) { return name == u"." || name == u".."; }

std::uint64_t TimeOf(const EntryFacts& facts, WhichTime which)
{
    switch (which) {
    case WhichTime::Created: return facts.created;
    case WhichTime::Accessed: return facts.accessed;
    default: return facts.written;
    }
}

template <typename T> int Compare(const T& a, const T& b) { return a < b ? -1 : b < a ? 1 : 0; }

} // namespace

DirListing::DirListing(const DirOptions& what)
    : options(what), country(Country()), pager(what.pauses), questions(what.shortNames)
{
    texts.directory = LoadMessage(message::directoryMark);
    texts.junction = LoadMessage(message::junctionMark);
    texts.directoryLink = LoadMessage(message::directoryLinkMark);
    texts.fileLink = LoadMessage(message::fileLinkMark);
}

void DirListing::Line(std::u16string_view text)
{
    if (options.pauses) {
        refused = refused || !pager.Line(text);
        return;
    }
    waiting.text.Append(text).Append(u"\r\n");
    if (waiting.text.size() >= outputBlock)
        Flush();
}

void DirListing::Line(const PaintedText& text)
{
    if (options.pauses) {
        refused = refused || !pager.Line(text);
        return;
    }
    waiting.Append(text).Append(u"\r\n");
    if (waiting.text.size() >= outputBlock)
        Flush();
}

void DirListing::Flush()
{
    if (!waiting.text.empty() && !refused)
        refused = !Print(waiting);
    waiting.Clear();
}

void DirListing::Sort(std::vector<FoundFile>& files)
{
    if (options.order.empty())
        return;
    // Local times of day are asked of the system once for each file, not in each comparison.
    std::vector<std::int64_t> seconds;
    const bool byTimeOfDay = std::any_of(options.order.begin(), options.order.end(),
                                         [](const DirSortKey& key) { return key.letter == u'T'; });
    if (byTimeOfDay)
        for (const FoundFile& file : files)
            seconds.push_back(MomentOfFileTime(clock.ToLocal(TimeOf(file.facts, options.time))).second);
    auto compare = [&](const DirSortKey& key, std::size_t first, std::size_t second) {
        const FoundFile& a = files[first];
        const FoundFile& b = files[second];
        switch (key.letter) {
        case u'G': return Compare(!a.facts.IsDirectory(), !b.facts.IsDirectory());
        case u'S': return Compare(a.facts.size, b.facts.size);
        case u'D': return Compare(TimeOf(a.facts, options.time), TimeOf(b.facts, options.time));
        case u'T': return Compare(seconds[first], seconds[second]);
        case u'E': return CompareNoCase(ExtensionPart(a.name), ExtensionPart(b.name));
        default: return CompareNoCase(a.name, b.name);
        }
    };
    std::vector<std::size_t> places(files.size());
    std::iota(places.begin(), places.end(), std::size_t{0});
    std::stable_sort(places.begin(), places.end(), [&](std::size_t a, std::size_t b) {
        for (const DirSortKey& key : options.order)
            if (const int order = compare(key, a, b))
                return key.reverse ? order > 0 : order < 0;
        return false;
    });
    std::vector<FoundFile> sorted;
    sorted.reserve(files.size());
    for (const std::size_t place : places)
        sorted.push_back(std::move(files[place]));
    files = std::move(sorted);
}

void DirListing::Count(const std::vector<FoundFile>& files)
{
    counts = {};
    counts.sections = 1;
    for (const FoundFile& file : files) {
        ++(file.facts.IsDirectory() ? counts.directories : counts.files);
        if (file.name != u"." && file.name != u"..")
            ++(file.facts.IsDirectory() ? allDirectories : allFiles);
        counts.bytes += file.facts.size;
    }
    argumentCounts.files += counts.files;
    argumentCounts.directories += counts.directories;
    argumentCounts.bytes += counts.bytes;
    ++argumentCounts.sections;
}

bool DirListing::Add(SearchedDirectory& directory)
{
    if (directory.found.files.empty())
        return true;
    Sort(directory.found.files);
    Count(directory.found.files);
    lastDirectory = directory.found.name;
    if (options.layout == DirLayout::Bare) {
        WriteBare(directory);
    } else {
        WriteDirectoryHeader(directory.found.name);
        if (options.layout == DirLayout::Long)
            WriteLong(directory);
        else
            WriteColumns(directory);
        if (options.footer)
            WriteCounts(counts);
    }
    Flush();
    return !refused;
}

bool DirListing::EndArgument()
{
    if (FoundAny() && options.footer && options.layout != DirLayout::Bare) {
        if (options.deepest > 0) {
            Line(u"");
            Line(LoadMessage(message::totalListed));
            WriteCounts(argumentCounts);
        }
        const std::uint64_t left = FreeBytes(lastDirectory).value_or(0);
        Line(Format(u"%16s %s %15s %s", Number(argumentCounts.directories),
                    LoadMessage(message::directoryCount), Number(left), LoadMessage(message::bytesFree)));
    }
    argumentCounts = {};
    Flush();
    return !refused;
}

void DirListing::WriteCounts(const Counts& shown)
{
    Line(Format(u"%16s %s %14s %s", Number(shown.files), LoadMessage(message::fileCount), Number(shown.bytes),
                LoadMessage(message::byteCount)));
}

void DirListing::WriteVolume(std::u16string_view directory)
{
    const char16_t letter = DriveLetter(directory);
    const CString place =
        letter ? CString(1, letter) : CString(directory.substr(0, directory.find(u'\\', 2)));
    if (EqualNoCase(place, volume))
        return;
    volume = place;
    const std::optional<VolumeFacts> facts = ReadVolumeFacts(directory);
    if (!facts)
        return;
    if (facts->label.empty())
        Line(LoadMessage(message::volumeWithoutLabel, place));
    else
        Line(LoadMessage(message::volumeLabel, place) + facts->label);
    Line(LoadMessage(message::volumeSerial,
                     Format(u"%04X-%04X", facts->serial >> 16, facts->serial & 0xFFFFu)));
}

void DirListing::WriteDirectoryHeader(std::u16string_view directory)
{
    if (!options.header)
        return;
    WriteVolume(directory);
    Line(u"");
    Line(LoadMessage(message::directoryOf, WithoutEndSeparators(directory)));
    Line(u"");
}

CString DirListing::ShownName(const FoundFile& file) const
{
    CString name = file.name;
    if (options.lowerCase)
        MakeLower(name);
    return name;
}

std::optional<unsigned> DirListing::ColorOf(const FoundFile& file) const
{
    return colors.Of(file.name, file.facts.attributes);
}

void DirListing::WriteBare(const SearchedDirectory& directory)
{
    const bool full = options.fullNames || options.deepest > 0;
    CString path;
    if (full) {
        path = directory.found.name;
        if (options.lowerCase)
            MakeLower(path);
    }
    const std::size_t start = path.size();
    for (const FoundFile& file : directory.found.files) {
        if (!colors.Empty()) {
            Line(PaintedText().Append(path).Append(ShownName(file), ColorOf(file)));
            continue;
        }
        if (options.lowerCase)
            path.Append(ShownName(file));
        else
            path.Append(file.name);
        Line(path);
        path.SetLength(start);
    }
}

CString DirListing::Number(std::uint64_t number) const
{
    CString text = Format(u"%u", number);
    if (options.thousands)
        AddCommas(text);
    return text;
}

CString DirListing::TimeText(std::uint64_t fileTime)
{
    return FormatFileTime(clock.ToLocal(fileTime), country);
}

CString DirListing::KindText(const EntryFacts& facts) const
{
    const bool reparse = (facts.attributes & file_attribute::reparsePoint) != 0;
    const bool link = reparse && facts.reparseTag == symbolicLinkTag;
    if (facts.IsDirectory()) {
        const bool junction = reparse && facts.reparseTag == junctionTag;
        return Format(u"   %-14s ", junction ? texts.junction : link ? texts.directoryLink : texts.directory);
    }
    return link ? Format(u"   %-14s ", texts.fileLink) : Format(u"%17s ", Number(facts.size));
}

PaintedText DirListing::LongLine(const SearchedDirectory& directory, const FoundFile& file)
{
    PaintedText line;
    line.Append(Format(u"%s %s", TimeText(TimeOf(file.facts, options.time)), KindText(file.facts)));
    if (options.shortNames)
        line.Append(Format(u"%-12s ", file.shortName));
    if (options.owners)
        line.Append(Format(u"%-22s ", questions.Owner(directory.found.name, file.name)));
    line.Append(ShownName(file), ColorOf(file));
    if (descriptions)
        if (const CString description = descriptions->Of(file.name); !description.empty())
            line.Append(u"  ").Append(description);
    return line;
}

void DirListing::WriteLong(const SearchedDirectory& directory)
{
    if (aIniFile.Descriptions)
        descriptions.emplace(directory.found.name);
    else
        descriptions.reset();
    for (const FoundFile& file : directory.found.files) {
        Line(LongLine(directory, file));
        if (!options.streams || IsDots(file.name))
            continue;
        const CString path = JoinPath(directory.found.name, file.name);
        for (const FileStream& stream : NamedStreams(path))
            Line(Format(u"%37s %s%s", Number(stream.size), ShownName(file), stream.name));
    }
}

// As many columns of one width as the screen holds.
void DirListing::WriteColumns(const SearchedDirectory& directory)
{
    constexpr std::size_t gap = 2;
    std::vector<CString> names;
    std::size_t longest = 0;
    for (const FoundFile& file : directory.found.files) {
        names.push_back(file.facts.IsDirectory() ? Format(u"[%s]", ShownName(file)) : ShownName(file));
        longest = std::max(longest, names.back().size());
    }
    const std::size_t width = static_cast<std::size_t>(std::max(1, OutputSize().columns - 1));
    const std::size_t columns = std::max<std::size_t>(1, (width + gap) / (longest + gap));
    const std::size_t rows = (names.size() + columns - 1) / columns;
    for (std::size_t row = 0; row < rows; ++row) {
        PaintedText line;
        for (std::size_t column = 0; column < columns; ++column) {
            const std::size_t at =
                options.layout == DirLayout::Down ? column * rows + row : row * columns + column;
            if (at >= names.size())
                break;
            line.Append(CString(column * (longest + gap) - line.text.size(), u' '));
            line.Append(names[at], ColorOf(directory.found.files[at]));
        }
        Line(line);
    }
}
