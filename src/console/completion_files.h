// Names of files for completion: reading the directory that has been typed, picking, sorting and spelling the
// names. Pure.
#pragma once

#include <optional>
#include <string_view>
#include <vector>

#include "console/completion.h"

// Which entries are wanted.
struct FileChoice {
    bool files = true;
    bool directories = true;
    std::optional<std::vector<CString>> extensions = {}; // of the files, without periods; nothing takes all
    bool shortNames = false;                             // spelled as the disk's short names
};

// Adds the names that go on from the text of `word`, in the order of their names.
void AddFileNames(const CompletionWord& word, const FileChoice& choice, CompletionWorld& world,
                  std::vector<CompletionCandidate>& candidates);
// Adds the files of a folder of the search path by their bare names.
void AddFolderFiles(std::u16string_view folder, const CompletionWord& word, const FileChoice& choice,
                    CompletionWorld& world, std::vector<CompletionCandidate>& candidates);

// A name as it comes into the line: in quotes where it needs them or the person has begun with one.
CString SpellCandidate(const CString& name, const CompletionWord& word);
