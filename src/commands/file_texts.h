// Facts about files as listings write them: dates, times, sizes, what kind of entry one is.
#pragma once

#include <cstdint>

#include "files/directory_source.h"
#include "platform/national.h"
#include "text/cstring.h"

class FileTexts {
public:
    explicit FileTexts(bool withThousands = true);

    bool utc = false; // times are shown in UTC

    CString Date(std::uint64_t fileTime);
    CString Time(std::uint64_t fileTime); // hours and minutes
    CString DateAndTime(std::uint64_t fileTime);
    CString Number(std::uint64_t number) const;
    // "<DIR>" and its like, "" for a plain file.
    const CString& Mark(const EntryFacts& facts) const;
    // The size or the mark, in a column of its own with one blank behind.
    CString SizeColumn(const EntryFacts& facts, std::uint64_t size) const;

private:
    std::uint64_t Shown(std::uint64_t fileTime) { return utc ? fileTime : clock.ToLocal(fileTime); }

    NationalSettings country;
    SystemRangeClock clock;
    bool thousands;
    CString directory;
    CString junction;
    CString directoryLink;
    CString fileLink;
    CString none;
};
