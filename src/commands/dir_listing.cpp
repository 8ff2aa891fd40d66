#include "commands/dir_listing.h"

#include <algorithm>

#include "commands/volume_report.h"
#include "engine/inifile.h"
#include "engine/output.h"
#include "engine/results.h"
#include "files/descriptions.h"
#include "files/directory_name.h"
#include "lang/file_messages.h"
#include "platform/link_target.h"
#include "text/cell_width.h"
#include "text/compare.h"
#include "text/path_names.h"

namespace {

bool IsDots(std::u16string_view name) { return name == u"." || name == u".."; }

} // namespace

DirListing::DirListing(const DirOptions& what)
    : options(what), texts(what.thousands), output(what.pauses), questions(what.shortNames)
{
    texts.utc = options.utc;
}

void DirListing::MeasureOnDisk(SearchedDirectory& directory)
{
    for (FoundFile& file : directory.found.files)
        if (!file.facts.IsDirectory())
            file.facts.size = questions.CompressedSize(directory.found.name, file.name);
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

void DirListing::CountExtensions(const std::vector<FoundFile>& files)
{
    for (const FoundFile& file : files) {
        if (file.facts.IsDirectory())
            continue;
        CString extension(ExtensionPart(file.name));
        MakeUpper(extension);
        Counts& one = extensions[extension];
        ++one.files;
        one.bytes += file.facts.size;
    }
}

bool DirListing::Add(SearchedDirectory& directory)
{
    if (directory.found.files.empty())
        return true;
    if (options.allocated)
        MeasureOnDisk(directory);
    Count(directory.found.files);
    lastDirectory = directory.found.name;
    if (options.summary == DirSummary::Extensions)
        CountExtensions(directory.found.files);
    if (options.summary == DirSummary::Whole || options.summary == DirSummary::Extensions)
        return true;
    SortFiles(directory.found.files, directory.found.name, options.order, options.time);
    WriteDirectory(directory);
    return output.Flush();
}

void DirListing::WriteDirectory(const SearchedDirectory& directory)
{
    if (options.summary == DirSummary::None && options.layout == DirLayout::Bare)
        return WriteBare(directory);
    WriteDirectoryHeader(directory.found.name);
    if (options.summary == DirSummary::None)
        options.layout == DirLayout::Long ? WriteLong(directory) : WriteColumns(directory);
    if (options.footer)
        WriteCounts(counts);
}

bool DirListing::EndArgument()
{
    if (FoundAny() && options.summary == DirSummary::Extensions)
        WriteExtensions();
    const bool wanted = options.summary == DirSummary::None ? options.layout != DirLayout::Bare
                                                            : options.summary != DirSummary::EachDirectory;
    if (FoundAny() && options.footer && wanted)
        WriteTotals();
    argumentCounts = {};
    extensions.clear();
    return output.Flush();
}

void DirListing::WriteExtensions()
{
    for (const auto& [extension, one] : extensions)
        output.Line(Format(u"%-16s %10s %s %14s %s", extension, texts.Number(one.files),
                           LoadMessage(message::fileCount), texts.Number(one.bytes),
                           LoadMessage(message::byteCount)));
}

void DirListing::WriteTotals()
{
    const bool alone = options.summary == DirSummary::Whole || options.summary == DirSummary::Extensions;
    if (options.deepest > 0 || alone) {
        output.Line(u"");
        output.Line(LoadMessage(message::totalListed));
        WriteCounts(argumentCounts);
    }
    const std::uint64_t left = FreeBytes(lastDirectory).value_or(0);
    output.Line(Format(u"%16s %s %15s %s", texts.Number(argumentCounts.directories),
                       LoadMessage(message::directoryCount), texts.Number(left),
                       LoadMessage(message::bytesFree)));
}

void DirListing::WriteCounts(const Counts& shown)
{
    output.Line(Format(u"%16s %s %14s %s", texts.Number(shown.files), LoadMessage(message::fileCount),
                       texts.Number(shown.bytes), LoadMessage(message::byteCount)));
}

void DirListing::WriteVolume(std::u16string_view directory)
{
    const char16_t letter = DriveLetter(directory);
    const CString place =
        letter ? CString(1, letter) : CString(directory.substr(0, directory.find(u'\\', 2)));
    if (EqualNoCase(place, volume))
        return;
    volume = place;
    for (const CString& line : VolumeLines(directory))
        output.Line(line);
}

void DirListing::WriteDirectoryHeader(std::u16string_view directory)
{
    if (!options.header)
        return;
    WriteVolume(directory);
    output.Line(u"");
    output.Line(LoadMessage(message::directoryOf, WithoutEndSeparators(directory)));
    output.Line(u"");
}

CString DirListing::ShownName(const FoundFile& file) const
{
    CString name = options.fatNames && !file.shortName.empty() ? file.shortName : file.name;
    if (options.lowerCase)
        MakeLower(name);
    else if (options.upperCase)
        MakeUpper(name);
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
        else if (options.upperCase)
            MakeUpper(path);
    }
    const bool plain = !options.lowerCase && !options.upperCase && !options.fatNames;
    const std::size_t start = path.size();
    for (const FoundFile& file : directory.found.files) {
        if (!colors.Empty()) {
            output.Line(PaintedText().Append(path).Append(ShownName(file), ColorOf(file)));
            continue;
        }
        if (plain)
            path.Append(file.name);
        else
            path.Append(ShownName(file));
        output.Line(path);
        path.SetLength(start);
    }
}

PaintedText DirListing::LongLine(const SearchedDirectory& directory, const FoundFile& file)
{
    PaintedText line;
    line.Append(Format(u"%s %s", texts.DateAndTime(TimeOf(file.facts, options.time)),
                       texts.SizeColumn(file.facts, file.facts.size)));
    if (options.shortNames)
        line.Append(Format(u"%-12s ", file.shortName));
    if (options.owners)
        line.Append(Format(u"%-22s ", questions.Owner(directory.found.name, file.name)));
    line.Append(ShownName(file), ColorOf(file));
    if ((file.facts.attributes & file_attribute::reparsePoint) != 0)
        if (const LinkTarget link = ReadLinkTarget(PathOfEntry(directory.found.name, file.name));
            !link.target.empty())
            line.Append(u" [").Append(link.target).Append(u"]");
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
        output.Line(LongLine(directory, file));
        if (!options.streams || IsDots(file.name))
            continue;
        const CString path = PathOfEntry(directory.found.name, file.name);
        for (const FileStream& stream : NamedStreams(path))
            output.Line(Format(u"%37s %s%s", texts.Number(stream.size), ShownName(file), stream.name));
    }
}

// Columns of one width, no more than the screen holds.
void DirListing::WriteColumns(const SearchedDirectory& directory)
{
    constexpr int gap = 2;
    std::vector<CString> names;
    int longest = 0; // in cells of the console, as all widths here
    for (const FoundFile& file : directory.found.files) {
        names.push_back(file.facts.IsDirectory() ? Format(u"[%s]", ShownName(file)) : ShownName(file));
        longest = std::max(longest, TextWidth(names.back()));
    }
    const int width = std::max(1, OutputSize().columns - 1);
    const std::size_t fitting = std::max(1, (width + gap) / (longest + gap));
    const std::size_t columns = options.columns > 0 ? std::min(options.columns, fitting) : fitting;
    const std::size_t rows = (names.size() + columns - 1) / columns;
    for (std::size_t row = 0; row < rows; ++row) {
        PaintedText line;
        int missing = 0;
        for (std::size_t column = 0; column < columns; ++column) {
            const std::size_t at =
                options.layout == DirLayout::Down ? column * rows + row : row * columns + column;
            if (at >= names.size())
                break;
            line.Append(CString(missing, u' ')).Append(names[at], ColorOf(directory.found.files[at]));
            missing = longest + gap - TextWidth(names[at]);
        }
        output.Line(line);
    }
}
