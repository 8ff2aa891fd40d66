// Walking a directory and those below it, and picking the entries that a command takes. Pure: the file system
// is handed in.
//
// Every directory is read once, whatever the number of patterns. A directory comes before those inside it;
// entries and directories come in the order of their names, letter case aside, "." and ".." first. Hidden and
// system directories are entered only when such files are taken too. Links to directories (junctions and
// symbolic links) are entered when the request says so, each target once, and never one that the link itself
// stands in: a walk always ends. Links that look like plain directories, as some servers show them, are seen
// by their age or their name when they lead back.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string_view>
#include <vector>

#include "files/file_entry.h"
#include "files/name_pattern.h"
#include "files/ranges.h"

class EntrySink {
public:
    virtual ~EntrySink() = default;
    virtual void Take(const DirectoryEntry& entry) = 0;
};

// What tells one directory from all others, whatever name leads to it.
struct DirectoryIdentity {
    std::uint64_t volume = 0;
    std::uint64_t file = 0;
    friend bool operator==(const DirectoryIdentity&, const DirectoryIdentity&) = default;
};

// The file system. Directories are full names with a separator at the end.
class DirectorySource {
public:
    virtual ~DirectorySource() = default;

    // Hands the entries to the sink, "." and ".." included: all for "*", else the one with that very name.
    // For a beginning and "*" at least those that begin so. 0, also when there are none, or a Windows error
    // number.
    virtual unsigned Read(std::u16string_view directory, std::u16string_view name, EntrySink& sink) = 0;
    // Links followed.
    virtual std::optional<DirectoryIdentity> Identify(std::u16string_view directory) = 0;

    // The questions of files/ranges.h.
    virtual std::uint64_t CompressedSize(std::u16string_view directory, std::u16string_view name) = 0;
    virtual CString Owner(std::u16string_view directory, std::u16string_view name) = 0;
    virtual CString Description(std::u16string_view directory, std::u16string_view name) = 0;
};

struct WalkRequest {
    CString directory;   // full name with a separator at the end
    CString literalName; // only the entry with this name; then there are no patterns
    std::vector<std::shared_ptr<const NamePattern>> patterns; // an entry matches one of them
    AttributeMasks attributes;
    const RANGES* ranges = nullptr; // outlives the walk
    int deepest = 0;                // levels of directories below the first that are walked too
    bool followsLinks = true;
    bool dots = false; // "." and ".." are entries like others
};

constexpr int allLevels = INT32_MAX;

// A directory of a walk and those that it stands in, and whether another one leads back to one of them.
// Directories are full names with a separator at the end, times of creation file times (0: unknown).
class DirectoryChain {
public:
    explicit DirectoryChain(DirectorySource& from) : source(from) {}

    // The directory at this depth (0 for the first) is the present one from now on.
    void Enter(std::size_t depth, const CString& name, std::uint64_t created);
    void SetCreated(std::uint64_t created) { levels.back().created = created; }
    bool Holds(const DirectoryIdentity& directory);
    // Asks for identities only where age or name agree: to ask every directory takes longer than to read it.
    // What leads back must do so by one or the other sooner or later.
    bool LeadsBack(const CString& name, std::uint64_t created);
    void Cut(std::size_t depth);

private:
    struct Level {
        CString name;
        std::uint64_t created = 0;
        std::optional<DirectoryIdentity> identity;
        bool asked = false;
    };
    std::optional<DirectoryIdentity> IdentityOf(Level& level);

    DirectorySource& source;
    std::vector<Level> levels;
};

// A directory of the walk and what was picked in it.
struct WalkedDirectory {
    CString name;       // full, with a separator at the end
    int depth = 0;      // 0 for the first
    unsigned error = 0; // Windows error number when it could not be read
    std::vector<FoundFile> files;
};

class FileWalk {
public:
    FileWalk(WalkRequest what, DirectorySource& from, RangeClock& time);

    // The next directory, whether anything was picked in it or not; false at the end.
    bool Next(WalkedDirectory& directory);

private:
    class Reading;

    struct Pending {
        CString name; // full, with a separator at the end
        int depth = 0;
        bool link = false;
        std::uint64_t created = 0;
    };

    bool MayEnterLink(const Pending& link);
    bool Matches(const DirectoryEntry& entry) const;
    bool Picks(std::u16string_view directory, const DirectoryEntry& entry) const;

    WalkRequest request;
    DirectorySource& source;
    RangeClock& clock;
    std::vector<Pending> pending; // the next one last
    DirectoryChain chain;
    std::vector<DirectoryIdentity> enteredLinks;
};
