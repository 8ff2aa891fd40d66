// What can stand where the cursor is: asked by the line editor, which walks through the answers, and answered
// by console/completion.h. Pure.
#pragma once

#include <cstddef>
#include <string_view>
#include <vector>

#include "text/cstring.h"

// What the key that was pressed completes.
enum class CompletionKind {
    Files,       // whatever fits the place: commands, files, variables (NextFile, PopFile)
    Directories, // DirectoryCompletion
    SearchPath,  // PATHCompletion
    ShortNames,  // as Files, with short file names (LFNToggle)
};

struct CompletionCandidate {
    CString text;  // what is put into the line, with the quotes that it needs
    CString shown; // in a list
    bool isDirectory = false;
    CString hint; // what it is, in a word or a few; may be empty
};

struct CompletionOffer {
    // The part of the line that a candidate takes the place of.
    std::size_t from = 0;
    std::size_t to = 0;
    std::vector<CompletionCandidate> candidates; // in the order in which they are to be tried
    // At or in front of `from`: what is to be put in with the first candidate in quotes, which would not be
    // taken for a name without it.
    std::size_t quoteAt = CString::npos;
    CString forQuotes;
};

class CompletionSource {
public:
    virtual ~CompletionSource() = default;
    virtual CompletionOffer Offer(std::u16string_view line, std::size_t cursor, CompletionKind kind) = 0;
};
