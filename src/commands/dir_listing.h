// The lines that DIR writes: a listing of some directories, its headers, entries and totals.
#pragma once

#include <cstdint>
#include <map>
#include <string_view>
#include <vector>

#include "commands/dir_options.h"
#include "commands/file_texts.h"
#include "commands/listing_colors.h"
#include "commands/listing_output.h"
#include "engine/painted_text.h"
#include "files/descriptions.h"
#include "files/directory_source.h"
#include "files/file_search.h"
#include "text/compare.h"

class DirListing {
public:
    explicit DirListing(const DirOptions& what);

    // The entries of one directory, put in order here. Directories in which nothing was found stay away.
    // False when the output refused, the reason in the last error.
    bool Add(SearchedDirectory& directory);
    // After all directories of one argument. `found` tells whether there was any entry.
    bool EndArgument();

    bool FoundAny() const { return argumentCounts.files + argumentCounts.directories > 0; }

    // Of all arguments, "." and ".." left out.
    std::int64_t Files() const { return allFiles; }
    std::int64_t Directories() const { return allDirectories; }

private:
    struct Counts {
        std::uint64_t files = 0;
        std::uint64_t directories = 0; // "." and ".." included
        std::uint64_t bytes = 0;
        std::uint64_t sections = 0; // directories shown
    };

    void MeasureOnDisk(SearchedDirectory& directory);
    void Count(const std::vector<FoundFile>& files);
    void CountExtensions(const std::vector<FoundFile>& files);
    void WriteDirectory(const SearchedDirectory& directory);
    void WriteTotals();
    void WriteExtensions();
    void WriteVolume(std::u16string_view directory);
    void WriteDirectoryHeader(std::u16string_view directory);
    void WriteBare(const SearchedDirectory& directory);
    void WriteLong(const SearchedDirectory& directory);
    void WriteColumns(const SearchedDirectory& directory);
    void WriteStreams(std::u16string_view path, const CString& size);
    void WriteCounts(const Counts& counts);
    PaintedText LongLine(const SearchedDirectory& directory, const FoundFile& file);
    CString ShownName(const FoundFile& file) const;
    std::optional<unsigned> ColorOf(const FoundFile& file) const;

    const DirOptions& options;
    FileTexts texts;
    ListingOutput output;
    SystemDirectories questions;
    std::optional<DirectoryDescriptions> descriptions; // of the directory that is written, where shown
    ListingColors colors;
    CString volume;        // whose header was written last
    CString lastDirectory; // shown for the present argument
    Counts counts;         // of the present directory
    Counts argumentCounts;
    std::int64_t allFiles = 0;
    std::int64_t allDirectories = 0;
    struct BeforeNoCase {
        bool operator()(const CString& a, const CString& b) const { return CompareNoCase(a, b) < 0; }
    };
    std::map<CString, Counts, BeforeNoCase> extensions; // in upper case, with their files and bytes
};
