// Selecting files: what every file command, FOR and DO use. A command fills the first part of a FILESEARCH
// from its switches (GetRange, GetSearchAttributes) and then has the files one by one:
//
//     for (bool found = FindFiles(search, name); found; found = FindFiles(search))
//         ... search.name, search.file ...
//
// or directory by directory, with StartSearch and NextDirectory. The name may be a pattern, a list of them
// parted by ";", a regular expression, or "@file" for a file of such names, one per line; search_names.h and
// wildcards.h tell the rules, file_walk.h the order. Hidden and system files are left out unless the
// attribute switch was given. Break is thrown when the person breaks the search off.
#pragma once

#include <functional>
#include <memory>
#include <string_view>
#include <vector>

#include "files/file_walk.h"
#include "files/ranges.h"

struct SearchState;

struct FILESEARCH {
    FILESEARCH();
    ~FILESEARCH();

    // What is looked for.
    AttributeMasks attributes; // commands for files alone forbid file_attribute::directory
    RANGES ranges;
    int deepest = 0;              // levels of subdirectories that are searched too; allLevels for /S
    bool intoDirectories = false; // a name that is a directory means what is in it
    bool dots = false;            // "." and ".." are answered too
    bool shortNames = false;      // FoundFile::shortName is wanted
    bool avoidsLinks = false;     // never into junctions and links, whatever DirJunctions says

    // Of the argument, once the search has started: the first directory all of which it means, as "dir\*".
    CString whole;

    // What FindFiles has found.
    CString name; // with the directory as the person named it
    CString fullName;
    FoundFile file;
    bool literal = false; // the person named this one file

    // Why something could not be searched, the first time; 0 or a Windows error number.
    unsigned error = 0;
    CString failed; // the name of it
    struct Failure {
        unsigned error;
        CString failed;
    };
    std::vector<Failure> laterFailures; // the other times

    std::unique_ptr<SearchState> state; // the walk
};

// Removes the ranges from a command's argument text. 0, or the result of an error that was reported. They
// stand anywhere between the arguments unless `onlyLeading`.
int GetRange(CString& arguments, RANGES* ranges, int onlyLeading);

// The first file, and the next one. False at the end.
bool FindFiles(FILESEARCH& search, std::u16string_view name);
bool FindFiles(FILESEARCH& search);

// A directory that was searched, whether anything was found in it or not.
struct SearchedDirectory {
    CString shown; // as the person named it, with a separator at the end; "" for the current one
    WalkedDirectory found;
    bool literal = false; // the person named one file in it
};
void StartSearch(FILESEARCH& search, std::u16string_view name);
bool NextDirectory(FILESEARCH& search, SearchedDirectory& directory);

// Calls `tell` for everything that could not be searched.
void ForEachFailure(const FILESEARCH& search, const std::function<void(unsigned, const CString&)>& tell);

// Ends a search before its end; the other members stay.
void CloseDirSearchHandles(FILESEARCH& search);
