// Looking at files one by one for what FFIND's switches ask: the contents, the lines that are shown, totals.
#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

#include "commands/ffind_options.h"
#include "commands/file_texts.h"
#include "commands/listing_colors.h"
#include "commands/listing_output.h"
#include "console/progress.h"
#include "engine/internal_entry.h"
#include "files/file_entry.h"
#include "files/file_scan.h"
#include "files/text_lines.h"

class FileFinding {
public:
    // The counters are %_NAME_files, %_NAME_dirs and %_NAME_errors.
    FileFinding(std::u16string_view counterName, const FfindOptions& what)
        : counter(counterName), options(what), output(what.pauses)
    {}

    // All that a search for the name finds.
    void FindIn(const CString& name);
    // One file, full name first, that somebody else has found.
    void Look(const CString& path, const FoundFile& file);
    void Failed(unsigned code, std::u16string_view name);
    // No more files are wanted.
    bool IsStopped() const { return stopped || output.Refused(); }
    void StopAfter(std::uint64_t files) { most = files; }
    // Shows the totals, sets the counters and answers the command's result.
    int Finish();

private:
    void Found(const CString& path, const FoundFile& file);
    void FoundName(const CString& path, const FoundFile& file);
    void Header(const CString& path);
    // Whether the file holds what is looked for; the matches are shown on the way. `path` is how it is shown,
    // `opened` what the system takes for this entry. `error` is a Windows error number, or stays 0.
    bool LookAtBytes(const CString& path, const CString& opened, const ByteSearch& search, unsigned& error);
    bool LookInside(const CString& path, const CString& opened, unsigned& error);
    bool LookAtLines(const CString& path, const CString& opened, bool isText, unsigned& error);
    bool LookAtLinesOf(TextLines& reader, const CString& path, bool isText);
    void FoundInBinary(const CString& path);
    void Show(std::u16string_view line, std::uint64_t number, char16_t mark, Regex::Span match);
    void Line(const PaintedText& line);
    void Line(std::u16string_view line);
    bool Shows() const { return !options.bare && !options.inverse && !options.summaryOnly; }
    bool WantsMore() const { return options.allMatches && !options.bare && !options.inverse; }

    std::u16string_view counter;
    const FfindOptions& options;
    FileScan scan;
    std::optional<ByteSearch> filter; // of the lines, for files with characters of that width
    std::size_t filterWidth = 0;
    ListingOutput output;
    Progress progress;
    FileTexts texts;
    ListingColors colors;
    std::uint64_t most = UINT64_MAX; // files and directories
    bool stopped = false;
    bool named = false; // the header of the file that is looked at was written
    std::uint64_t matches = 0;
    std::uint64_t bytes = 0;
    ResultCounts counts;
};
