// Completion: what may stand at a place of the command line. Pure; what there is in the world is asked
// through CompletionWorld, so that tests can make one up.
#pragma once

#include <string_view>
#include <vector>

#include "console/completion_source.h"
#include "console/completion_word.h"
#include "engine/tables.h"
#include "files/file_walk.h"
#include "text/cstring.h"

enum class ArgumentKnowledge { None, Selected, All };

// The settings that completion obeys, by their names.
struct CompletionSettings {
    bool appendToDir = false;
    bool completeAliases = false;
    bool completeAllFiles = false;
    bool completeHiddenDirs = false;
    bool completeHiddenFiles = false;
    bool completeInternals = false;
    bool completePaths = false;
    bool completePercents = false;
    bool filesCaseSensitive = false;
    bool shortNames = false; // Win32SFNSearch
    ArgumentKnowledge tabX = ArgumentKnowledge::Selected;
    CString fileCompletion;
};

enum class CompletionNames {
    Internals,
    Aliases,
    Functions,
    Variables,
    InternalVariables,
    BuiltInFunctions,
    Settings
};

class CompletionWorld : public KnownCommands {
public:
    virtual const CompletionSettings& Settings() = 0;
    virtual const Syntax& CurrentSyntax() = 0;
    virtual std::vector<CString> Names(CompletionNames kind) = 0;
    virtual const BUILTIN* FindCommand(std::u16string_view name) = 0;

    // With the variables replaced, nothing else.
    virtual CString ExpandVariables(std::u16string_view text) = 0;
    virtual CString FullName(std::u16string_view name) = 0;
    virtual CString HomeDirectory() = 0;
    virtual DirectorySource& Directories(bool shortNames) = 0;
    virtual std::vector<CString> SearchFolders() = 0;
    virtual std::vector<CString> ExecutableExtensions() = 0;
    virtual std::vector<CString> Machines() = 0; // without "\\"
    virtual std::vector<CString> Shares(std::u16string_view machine) = 0;

    // What the user's own completion files offer.
    virtual std::vector<CompletionCandidate>
    AskCompletionFiles(const CompletionWord& word, std::u16string_view line, std::size_t cursor) = 0;
};

CompletionOffer Complete(std::u16string_view line, std::size_t cursor, CompletionKind kind,
                         CompletionWorld& world);
