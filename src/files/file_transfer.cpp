#include "files/file_transfer.h"

#include <algorithm>
#include <utility>
#include <vector>

#include <windows.h>

#include "engine/break.h"
#include "lang/file_messages.h"
#include "platform/file_changes.h"
#include "platform/file_details.h"
#include "platform/file_facts.h"
#include "text/compare.h"
#include "text/format.h"
#include "text/path_names.h"

namespace {

constexpr std::uint32_t readOnly = FILE_ATTRIBUTE_READONLY;

bool IsLink(const EntryFacts& facts)
{
    return (facts.attributes & FILE_ATTRIBUTE_REPARSE_POINT) != 0 &&
           facts.reparseTag == IO_REPARSE_TAG_SYMLINK;
}

// What a file is that is copied for the second time, unless it has changed meanwhile.
CString PurposeOf(const TransferItem& item)
{
    return Format(u"%s|%s|%I64u|%I64u", item.from, item.to, item.facts.size, item.facts.written);
}

// The system copies to a file system without named streams as if the file had none.
bool LosesStreams(const CString& from, const CString& to)
{
    const std::vector<FileStream> streams = NamedStreams(from);
    if (streams.empty())
        return false;
    const std::vector<FileStream> arrived = NamedStreams(to);
    return std::any_of(streams.begin(), streams.end(), [&](const FileStream& stream) {
        return std::none_of(arrived.begin(), arrived.end(), [&](const FileStream& one) {
            return EqualNoCase(one.name, stream.name) && one.size == stream.size;
        });
    });
}

// A target whose read-only mark is off for as long as it is being replaced.
class Uncovered {
public:
    Uncovered(const CString& target, bool wanted)
    {
        const auto attributes = wanted ? ReadFileAttributes(target) : std::nullopt;
        if (attributes && (*attributes & readOnly) != 0 &&
            ChangeAttributes(target, *attributes & ~readOnly) == 0) {
            name = target;
            before = *attributes;
        }
    }
    ~Uncovered()
    {
        if (!name.empty())
            ChangeAttributes(name, before);
    }
    Uncovered(const Uncovered&) = delete;
    Uncovered& operator=(const Uncovered&) = delete;
    void Replaced() { name.Clear(); }

private:
    CString name;
    std::uint32_t before = 0;
};

} // namespace

unsigned PutInPlace(PartialFile& partial, const CString& target, bool replaces, bool overProtected)
{
    Uncovered uncovered(target, replaces && overProtected);
    const unsigned failed = partial.TakePlaceOf(target, replaces);
    if (failed == 0)
        uncovered.Replaced();
    return failed;
}

FileTransfer::FileTransfer(const TransferManner& how, ByteWatcher watcher)
    : manner(how), watch(std::move(watcher))
{}

TransferOutcome FileTransfer::Copy(const TransferItem& item)
{
    const CString directory(DirectoryPart(item.to));
    if (!manner.contents.restartable) {
        PartialFile partial(directory);
        const unsigned failed = CopyBeside(item, partial, false);
        return {failed != 0 ? failed : PutInPlace(item, partial)};
    }
    PartialFile partial(directory, PurposeOf(item));
    unsigned failed = 0;
    try {
        failed = CopyBeside(item, partial, false);
    } catch (const Break&) {
        partial.Keep();
        throw;
    }
    if (failed == 0)
        return {PutInPlace(item, partial)};
    if (failed != ERROR_CRC) // what is wrong is not gone on with
        partial.Keep();
    return {failed};
}

TransferOutcome FileTransfer::Move(const TransferItem& item)
{
    const unsigned failed = Rename(item);
    return failed == ERROR_NOT_SAME_DEVICE ? MoveAway(item) : TransferOutcome{failed};
}

unsigned FileTransfer::Rename(const TransferItem& item) const
{
    Uncovered target(item.to, item.replaces && manner.overProtected);
    const unsigned failed = RenameFile(item.from, item.to, item.replaces);
    if (failed == 0)
        target.Replaced();
    return failed;
}

unsigned FileTransfer::FindRoom(const TransferItem& item)
{
    constexpr std::uint32_t thinner = FILE_ATTRIBUTE_COMPRESSED | FILE_ATTRIBUTE_SPARSE_FILE;
    if (item.facts.size > room) {
        const auto free = FreeBytes(DirectoryPart(item.to));
        if (free && *free < item.facts.size && (item.facts.attributes & thinner) == 0)
            return ERROR_DISK_FULL;
        // Others write there too.
        constexpr std::uint64_t caution = 16;
        room = free.value_or(0) / caution;
    }
    room -= std::min(room, item.facts.size);
    return 0;
}

unsigned FileTransfer::CopyBeside(const TransferItem& item, PartialFile& partial, bool asItWas)
{
    if (const unsigned failed = FindRoom(item))
        return failed;
    CopyManner contents = manner.contents;
    contents.links = contents.links || (asItWas && IsLink(item.facts));
    if (const unsigned failed = CopyFileTo(item.from, partial.Name(), contents, watch))
        return failed;
    if ((item.facts.attributes & readOnly) != 0)
        ChangeAttributes(partial.Name(), item.facts.attributes & ~readOnly);
    if (manner.verifies && !asItWas) {
        if (const unsigned failed = FlushFile(partial.Name()))
            return failed;
        if (const unsigned failed = CompareFiles(item.from, partial.Name(), watch))
            return failed;
    }
    return Dress(item, partial.Name(), asItWas);
}

// What belongs to a file besides its contents.
unsigned FileTransfer::Dress(const TransferItem& item, const CString& partial, bool asItWas)
{
    if (manner.rights) {
        if (const unsigned failed = CopyRights(item.from, partial, true))
            return failed;
    } else if (item.replaces) {
        const Uncovered uncovered(item.to, manner.overProtected);
        if (const unsigned failed = kept.Carry(item.to, partial))
            return failed;
    }
    if (asItWas) {
        if (const unsigned failed = FlushFile(partial))
            return failed;
        ChangeFileTimes(partial, {item.facts.written, item.facts.accessed, item.facts.created});
    }
    if ((asItWas || manner.keepsReadOnly) && (item.facts.attributes & readOnly) != 0)
        return ChangeAttributes(partial, item.facts.attributes);
    return 0;
}

unsigned FileTransfer::PutInPlace(const TransferItem& item, PartialFile& partial) const
{
    return ::PutInPlace(partial, item.to, item.replaces, manner.overProtected);
}

TransferOutcome FileTransfer::MoveAway(const TransferItem& item)
{
    PartialFile partial(DirectoryPart(item.to));
    if (const unsigned failed = CopyBeside(item, partial, true))
        return {failed};
    if (LosesStreams(item.from, partial.Name()))
        return {errors::streamsLost};
    HeldFile held;
    if (!IsLink(item.facts)) {
        if (const unsigned failed = held.Open(item.from))
            return {failed};
        HeldFile copy;
        if (const unsigned failed = copy.Open(partial.Name()))
            return {failed};
        if (const unsigned failed = CompareFiles(held.Get(), copy.Get(), watch))
            return {failed};
    }
    if (const unsigned failed = PutInPlace(item, partial))
        return {failed};
    const unsigned failed = RemoveSource(item, held);
    return {failed, failed != 0};
}

unsigned FileTransfer::RemoveSource(const TransferItem& item, HeldFile& held)
{
    if ((item.facts.attributes & readOnly) != 0)
        if (const unsigned failed = ChangeAttributes(item.from, item.facts.attributes & ~readOnly))
            return failed;
    unsigned failed = 0;
    if (IsLink(item.facts)) {
        failed = EraseFile(item.from);
    } else if (manner.wipePasses > 0) {
        held = HeldFile();
        failed = OverwriteContents(item.from, manner.wipePasses, ThrowIfBroken);
        failed = failed != 0 ? failed : EraseFile(item.from);
    } else {
        failed = held.Remove();
    }
    if (failed != 0 && (item.facts.attributes & readOnly) != 0)
        ChangeAttributes(item.from, item.facts.attributes);
    return failed;
}
