#include "commands/copy_joined.h"

#include <algorithm>
#include <limits>
#include <memory>
#include <string>

#include <windows.h>

#include "core/pseudo_devices.h"
#include "engine/break.h"
#include "engine/console_entry.h"
#include "engine/output.h"
#include "files/excepted_files.h"
#include "files/partial_files.h"
#include "files/text_reader.h"
#include "lang/file_messages.h"
#include "platform/byte_files.h"
#include "platform/codepage.h"
#include "platform/file_changes.h"
#include "platform/file_facts.h"
#include "platform/standard_handles.h"
#include "platform/text_output.h"
#include "text/compare.h"
#include "text/encoding.h"
#include "text/path_names.h"
#include "text/words.h"

namespace {

constexpr char endOfText = 0x1A;
constexpr std::size_t blockSize = 1 << 16;

std::u16string_view WithoutColon(std::u16string_view name)
{
    return name.ends_with(u':') ? name.substr(0, name.size() - 1) : name;
}

bool IsConsoleName(std::u16string_view name)
{
    return EqualNoCase(WithoutColon(name), u"CON") || EqualNoCase(name, u"CONIN$") ||
           EqualNoCase(name, u"CONOUT$");
}

bool IsNothing(std::u16string_view name) { return EqualNoCase(WithoutColon(name), u"NUL"); }

using Sink = std::function<bool(std::string_view)>;

// Hands a handle's bytes to the sink, `left` of them at most; text ends at a Ctrl+Z. 0 or a Windows error
// number.
unsigned Pour(HANDLE from, Contents contents, const Sink& sink, std::uint64_t left = UINT64_MAX)
{
    std::string block(blockSize, '\0');
    for (;;) {
        ThrowIfBroken();
        DWORD count = 0;
        const auto wanted = static_cast<DWORD>(std::min<std::uint64_t>(blockSize, left));
        if (!ReadFile(from, block.data(), wanted, &count, nullptr) && GetLastError() != ERROR_BROKEN_PIPE)
            return GetLastError();
        left -= count;
        std::string_view bytes(block.data(), count);
        const std::size_t end = contents == Contents::Text ? bytes.find(endOfText) : bytes.npos;
        bytes = bytes.substr(0, end);
        if (!bytes.empty() && !sink(bytes))
            return GetLastError();
        if (count == 0 || end != bytes.npos)
            return 0;
    }
}

// What a person types, up to a line with a Ctrl+Z in it.
unsigned PourTyped(const Sink& sink)
{
    for (bool ended = false; !ended;) {
        LineRequest request;
        request.plainColors = true;
        CString line;
        if (ReadInputLine(line, request) != InputOutcome::Given)
            return 0;
        const std::size_t end = line.Find(static_cast<char16_t>(endOfText));
        ended = end != CString::npos;
        line = ended ? line.Substr(0, end) : line + u"\r\n";
        const bool utf8 = CurrentOutputEncoding() == OutputEncoding::Utf8;
        const std::string bytes = utf8 ? ToUtf8(line) : ToCodePage(line, OutputCodePage());
        if (!bytes.empty() && !sink(bytes))
            return GetLastError();
    }
    return 0;
}

unsigned PourFile(const CString& name, Contents contents, const Sink& sink)
{
    const OwnedHandle file(CreateFileW(SystemPath(name).w(), GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE,
                                       nullptr, OPEN_EXISTING, FILE_FLAG_SEQUENTIAL_SCAN, nullptr));
    if (!file)
        return GetLastError();
    // What goes to standard output may be added to the file itself.
    return Pour(file.Get(), contents, sink, BytesToRead(file.Get()));
}

unsigned PourPiece(const JoinedPiece& piece, const Sink& sink)
{
    if (IsNothing(piece.name))
        return 0;
    if (IsConsoleName(piece.name))
        return IsConsole(0) ? PourTyped(sink) : Pour(StandardHandle(0), Contents::Text, sink);
    if (const auto device = PseudoDevice::Find(piece.name)) {
        CString path;
        return device->PrepareInput(path) ? PourFile(path, piece.contents, sink) : unsigned{GetLastError()};
    }
    // What comes from a line has no other end.
    return PourFile(piece.name, IsDeviceName(piece.name) ? Contents::Text : piece.contents, sink);
}

// A person reads text, whatever its encoding.
unsigned ShowFile(const CString& name)
{
    TextReader reader;
    CString text;
    if (!reader.Open(name))
        return GetLastError();
    do {
        ThrowIfBroken();
        if (!reader.Read(text) || !Print(text))
            return GetLastError();
    } while (!text.empty());
    return 0;
}

class Joining {
public:
    Joining(Transfer& work, const std::vector<JoinedPiece>& of, const TransferTarget& to,
            const TransferName& where, Contents ends)
        : transfer(work), pieces(of), target(to), place(where), targetContents(ends)
    {}

    void ToDevice()
    {
        const CString& name = target.Text();
        if (const auto device = PseudoDevice::Find(name)) {
            CString path;
            if (!device->PrepareOutput(path, false))
                return transfer.Failed(GetLastError(), name);
            if (transfer.work.Pretends() || ToHandle(path, CREATE_ALWAYS))
                device->Complete();
            return;
        }
        if (!IsConsoleName(name)) {
            ToHandle(name, OPEN_EXISTING);
            return;
        }
        transfer.ShowsContents();
        for (const JoinedPiece& piece : pieces) {
            const bool shows = IsConsole(1) && piece.contents != Contents::Text && QueryIsFile(piece.name);
            const unsigned failed = transfer.work.Pretends() ? 0
                                    : shows                  ? ShowFile(piece.name)
                                                             : PourPiece(piece, [](std::string_view bytes) {
                                                  return WriteBytes(StandardHandle(1), bytes);
                                              });
            if (failed != 0)
                transfer.Failed(failed, piece.shown);
            else
                transfer.work.Passed(); // its contents are the answer
        }
    }

    void ToFile()
    {
        CString to = place.Full();
        const auto there = ReadFileFacts(to);
        if (!MayWrite(to, there, place.shown) || transfer.work.IsStopped())
            return;
        if (transfer.work.Pretends())
            return Tell();
        const CString directory(DirectoryPart(to));
        RemoveAbandonedFiles(directory);
        PartialFile partial(directory);
        if (!ToHandle(partial.Name(), CREATE_NEW))
            return;
        if (transfer.switches.manner.verifies && !IsAsWritten(partial.Name()))
            return transfer.Failed(ERROR_CRC, place.shown);
        unsigned failed = there ? CopyRights(to, partial.Name(), false) : 0;
        if (failed == 0 && there && Grows(to))
            failed = ChangeAttributes(partial.Name(), there->attributes);
        if (failed == 0)
            failed = PutInPlace(partial, to, there.has_value(), transfer.switches.overProtected);
        if (failed != 0)
            return transfer.Failed(failed, place.shown);
        NotifyOfChange(there ? FolderChange::FileUpdated : FolderChange::FileCreated, to);
        for (const JoinedPiece& piece : pieces)
            if (!EqualNoCase(piece.name, to))
                transfer.ClearArchive(piece.name, piece.facts);
        Tell();
    }

private:
    bool MayWrite(CString& to, const std::optional<FileFacts>& there, const CString& shown)
    {
        EntryFacts newest;
        for (const JoinedPiece& piece : pieces)
            if (IsDeviceSource(piece.name))
                newest.written = std::numeric_limits<std::uint64_t>::max(); // it tells its contents now
            else if (!EqualNoCase(piece.name, to))
                newest.written = std::max(newest.written, piece.facts.written);
        if (!transfer.IsNeeded(newest, there) || (there && IsExcepted(to))) {
            transfer.work.Passed();
            return false;
        }
        if (!there)
            return true;
        // What is added to a file takes nothing from it.
        return Grows(to) || transfer.MayReplace(pieces[0].name, to, *there, shown);
    }

    bool Grows(const CString& to) const { return EqualNoCase(pieces[0].name, to); }

    bool ToHandle(const CString& path, DWORD how)
    {
        if (transfer.work.Pretends()) {
            Tell();
            return true;
        }
        const OwnedHandle file(
            CreateFileW(SystemPath(path).w(), GENERIC_WRITE, FILE_SHARE_READ, nullptr, how, 0, nullptr));
        if (!file) {
            transfer.Failed(GetLastError(), target.Text());
            return false;
        }
        bool written = true;
        std::uint64_t done = 0; // of the present piece
        const Sink sink = [&](std::string_view bytes) {
            transfer.progress.At(done += bytes.size());
            return written = WriteBytes(file.Get(), bytes);
        };
        for (const JoinedPiece& piece : pieces) {
            transfer.progress.Begin(piece.shown);
            done = 0;
            if (const unsigned failed = PourPiece(piece, sink)) {
                transfer.Failed(failed, written ? piece.shown : target.Text());
                return false;
            }
            transfer.progress.End(done);
        }
        if (targetContents == Contents::Text && !sink(std::string_view(&endOfText, 1))) {
            transfer.Failed(GetLastError(), target.Text());
            return false;
        }
        if (how != CREATE_NEW)
            Tell();
        return true;
    }

    // Reads back what was written, beside the pieces. Devices tell what they hold once only.
    bool IsAsWritten(const CString& path) const
    {
        const OwnedHandle file(CreateFileW(SystemPath(path).w(), GENERIC_READ, FILE_SHARE_READ, nullptr,
                                           OPEN_EXISTING, FILE_FLAG_SEQUENTIAL_SCAN, nullptr));
        bool same = static_cast<bool>(file);
        std::string back;
        const Sink compare = [&](std::string_view bytes) {
            back.resize(bytes.size());
            DWORD count = 0;
            return same =
                       ReadFile(file.Get(), back.data(), static_cast<DWORD>(back.size()), &count, nullptr) &&
                       count == back.size() && back == bytes;
        };
        for (const JoinedPiece& piece : pieces) {
            if (IsDeviceSource(piece.name))
                return true;
            if (!same || PourPiece(piece, compare) != 0)
                return false;
        }
        return same;
    }

    void Tell()
    {
        for (const JoinedPiece& piece : pieces)
            transfer.Did(piece.shown, place.shown);
    }

    Transfer& transfer;
    const std::vector<JoinedPiece>& pieces;
    const TransferTarget& target;
    const TransferName& place; // the target, once it is known for a file
    Contents targetContents;
};

} // namespace

bool IsDeviceSource(std::u16string_view text)
{
    const CString name = WithoutQuotes(text);
    return IsDeviceName(name) || PseudoDevice::Find(name);
}

bool AddPieces(Transfer& transfer, FILESEARCH& search, const CopySource& source,
               std::vector<JoinedPiece>& pieces)
{
    const CString name = WithoutQuotes(source.text);
    if (IsDeviceSource(source.text)) {
        pieces.push_back({name, name, source.contents, true, {}});
        return true;
    }
    const auto before = pieces.size();
    const bool any = transfer.work.ForEachFile(search, source.text, [&] {
        if (!IsPartialFileName(search.file.name))
            pieces.push_back(
                {search.fullName, search.name, source.contents, search.literal, search.file.facts});
    });
    if (!any)
        transfer.Failed(ERROR_FILE_NOT_FOUND, name);
    return pieces.size() > before;
}

void WriteJoined(Transfer& transfer, const std::vector<JoinedPiece>& pieces, const TransferTarget& target,
                 Contents targetContents)
{
    const bool toDevice = target.GetKind() == TransferTarget::Kind::Device;
    TransferName place{{}, {}, target.Text()};
    if (target.GetKind() == TransferTarget::Kind::Directory && !target.Text().empty())
        return transfer.Failed(errors::targetIsDirectory, target.Text());
    if (!toDevice && !target.Prepare(transfer))
        return;
    if (!toDevice && !target.Place(u"", FileNamePart(pieces[0].name), place))
        return transfer.Failed(ERROR_FILENAME_EXCED_RANGE, target.Text());
    // A pattern takes the result of the last time for one of the sources.
    const CString own = toDevice ? CString() : place.Full();
    std::vector<JoinedPiece> others;
    for (const JoinedPiece& piece : pieces)
        if (piece.chosen || !EqualNoCase(piece.name, own))
            others.push_back(piece);
    if (others.empty())
        return transfer.Failed(errors::copyOntoItself, target.Text());
    std::erase_if(others, [&](const JoinedPiece& piece) {
        return !EqualNoCase(piece.name, own) && !transfer.work.Wants(message::askCopy, piece.shown);
    });
    if (others.empty() || transfer.work.IsStopped())
        return;
    Joining joining(transfer, others, target, place, targetContents);
    toDevice ? joining.ToDevice() : joining.ToFile();
}
