// Showing a person how far long work is: one line at the bottom that is written over again and again, for
// work that takes more than a second and whose standard output is a console. Elsewhere nothing is shown.
//
//     Progress progress;
//     progress.Expect(files, bytes);           // are to come, too; where that is known
//     progress.Begin(name);                    // for each file
//     progress.At(bytes);                      // of this file are done; as often as one likes
//     progress.End(bytes);                     // all of it
//     progress.Hide();                         // before anything else is written
#pragma once

#include <cstdint>
#include <string_view>

#include "console/progress_line.h"
#include "text/cstring.h"

class Progress {
public:
    // `atOnce`: not only after a second.
    explicit Progress(bool atOnce = false);
    ~Progress() { Hide(); }
    Progress(const Progress&) = delete;
    Progress& operator=(const Progress&) = delete;

    // Whether anybody looks: what is only there to be shown may be left out otherwise.
    bool IsWatched() const { return watched; }

    void Expect(std::uint64_t files, std::uint64_t bytes);
    // One of the expected files is not worked on.
    void Skip(std::uint64_t bytes);
    void Begin(std::u16string_view name);
    void At(std::uint64_t bytes);
    void End(std::uint64_t bytes);
    // Wipes the line; the next call of the others may bring it back.
    void Hide();

private:
    void Show(std::uint64_t bytesOfFile);

    bool watched;
    ProgressFacts facts; // of whole files
    CString name;
    std::uint64_t started;
    std::uint64_t due;     // in ticks: when the line is to be written next
    std::size_t shown = 0; // units of the line that stands there
};

// Wipes the line that this thread shows, if any: for whatever else writes to the console meanwhile.
void HideProgress();
