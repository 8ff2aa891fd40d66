// What COPY, MOVE, COPYDIR, MOVEDIR and SYNC have in common: their switches, and the way of one file from its
// place to another, with all that is decided, asked, kept in step and told about it.
#pragma once

#include <optional>
#include <string_view>
#include <unordered_map>
#include <utility>
#include <vector>

#include "commands/file_work.h"
#include "console/progress.h"
#include "engine/tables.h"
#include "files/description_changes.h"
#include "files/file_transfer.h"
#include "files/new_names.h"
#include "platform/file_facts.h"
#include "text/compare.h"
#include "text/path_names.h"

struct TransferSwitches {
    FileWorkOptions work;
    bool olderTargets = false;   // /C: only over targets that are older
    bool missingOnly = false;    // /O
    bool update = false;         // /U: only where the target is missing or older
    bool confirms = false;       // /R, /-Y
    bool firstErrorEnds = false; // /F
    bool progressAtOnce = false; // /G
    bool clearsArchive = false;  // /X
    bool overProtected = false;  // /Z: over read-only, hidden and system targets
    bool overHidden = false;     // /H
    bool makesTarget = false;    // /MD
    bool intoDirectory = false;  // MOVE /D: the target is a directory
    bool mirrors = false;        // COPY /W: what the target has too much is deleted
    bool both = false;           // SYNC /2
    bool countsDeleted = false;  // what is deleted is one of the files in the totals
    TransferManner manner;
};

// The help of the switches that all of them take, besides FILE_WORK_SWITCHES.
#define TRANSFER_SWITCHES                                                                                    \
    u"/C  only over targets that are older\n" FILE_WORK_SWITCHES u"/F  stop at the first error\n"            \
    u"/G  show progress at once, not only after a second\n"                                                  \
    u"/H  hidden and system files too\n"                                                                     \
    u"/M  only files with the archive attribute\n"                                                           \
    u"/O  only where there is no target yet\n"                                                               \
    u"/R  ask before a target is replaced (also /-Y; /Y takes it back)\n"                                    \
    u"/U  only where the target is missing or older\n"                                                       \
    u"/Z  replace read-only, hidden and system targets too\n"                                                \
    u"/ACL  with the rights and the owner that files have\n"

// Takes ranges, attributes and switches out of the arguments: those above and those of `own`, which are out
// of "DJKLVXW2" with "S" for subdirectories and "w" for the /W of MOVE. 0, or the result of a reported error.
int ReadTransfer(CString& arguments, std::u16string_view own, FILESEARCH& search, TransferSwitches& switches,
                 std::u16string_view shared = u"CFGHMORUYZ");

// A file as it is worked with and as it is told of.
struct TransferName {
    CString directory; // full, with a separator at the end
    CString name;
    CString shown;
    CString Full() const { return PathOfEntry(directory, name); }
};

class Transfer {
public:
    enum class Kind { Copy, Move };

    Transfer(Kind what, std::u16string_view counter, const TransferSwitches& how);

    Kind GetKind() const { return kind; }
    bool Moves() const { return kind == Kind::Move; }

    void Do(const TransferName& from, const EntryFacts& facts, const TransferName& to);

    // Whether the switches want a file of these facts to go where `there` is at present.
    bool IsNeeded(const EntryFacts& facts, const std::optional<FileFacts>& there) const;
    // Under /X, when the file (a full name) has been copied.
    void ClearArchive(const CString& name, const EntryFacts& facts) const;
    // Whether `to` may be written over: the reasons against are told, questions asked. Resolves links.
    bool MayReplace(const CString& from, CString& to, const FileFacts& there, std::u16string_view shown);
    // Makes the directory (full name, with a separator at the end) unless it is there. False when it cannot
    // be made, which has been told.
    bool MakeDirectoryFor(const CString& directory, std::u16string_view shown);
    void Failed(unsigned code, std::u16string_view name);
    void Did(std::u16string_view name, std::u16string_view newName);
    void DidDirectory(std::u16string_view name, std::u16string_view newName);
    void Deleted(std::u16string_view name, bool isDirectory);
    // The description goes along with the file or directory.
    void Carry(const TransferName& from, const TransferName& to);
    // The file or directory in the target is gone, and so is its description.
    void DropDescription(const CString& source, const TransferName& gone);
    // Writes the descriptions that went along, before directories that hold them go.
    void Leave();
    // Directories (full, with a separator at the end) that something was moved from, since the last call.
    std::vector<CString> TakeMovedFrom() { return std::exchange(movedFrom, {}); }
    void NoteMovedFrom(const CString& directory);

    // Several files may get one name: what this command has made is then not replaced by it.
    void WatchForCollisions() { watchesCollisions = true; }

    // Runs the command's work and answers its result. When it is broken off, what was done is told.
    int Run(const std::function<void()>& body, unsigned totals);
    // The contents of files are the command's output: no totals.
    void ShowsContents() { answersOnly = true; }

    FileWork work;
    Progress progress;
    TransferSwitches switches;

private:
    // The directories that files go from and to at present.
    struct Here {
        Here(const CString& from, const CString& to);
        CString source;
        CString target;
        DescriptionChanges sourceTexts;
        std::optional<DescriptionChanges> targetTexts; // none: source and target are the same
        DescriptionChanges& TargetTexts() { return targetTexts ? *targetTexts : sourceTexts; }
    };

    bool IsToBeDone(TransferItem& item, const TransferName& from, const TransferName& to);
    std::optional<FileFacts> FactsOf(const TransferName& target, const CString& full);
    bool IsMadeAlready(const TransferItem& item, const TransferName& to);
    bool Perform(const TransferItem& item, const TransferName& from, const TransferName& to);
    void Enter(const CString& source, const CString& target);

    Kind kind;
    bool answersOnly = false;
    FileTransfer transfer;
    std::optional<Here> here;
    NewNames newNames;
    CString madeLast; // directory that is known to be there
    std::vector<CString> movedFrom;
    bool watchesCollisions = false;
    std::unordered_map<CString, CString, NoCaseHash, NoCaseEqual>
        made; // targets, and what they were made from
};
