#include "batch/batch_file.h"

#include <windows.h>

#include "batch/packed_text.h"
#include "batch/reader.h"
#include "batch/zipped_text.h"
#include "engine/batch_entry.h"
#include "engine/console_entry.h"
#include "engine/output.h"
#include "engine/results.h"
#include "engine/state.h"
#include "files/text_encoding.h"
#include "lang/messages.h"
#include "platform/handle.h"

namespace {

HANDLE OsHandle(std::intptr_t file) { return reinterpret_cast<HANDLE>(file); }

// On the removable drives A: and B: the person may put the right disk in.
bool IsOnRemovableDisk(std::u16string_view name) { return !name.empty() && name[0] <= u'B'; }

CString WithArgument(CString text, std::u16string_view argument)
{
    const std::size_t place = text.Find(u"%1");
    if (place != CString::npos)
        text.Replace(place, 2, argument);
    return text;
}

bool AskForDisk(std::u16string_view name)
{
    PrintError(WithArgument(LoadMessage(message::removableDisk), name) + u"\r\n");
    return WaitForKey();
}

// Others may read the file and delete it: many a script removes itself at its end.
std::intptr_t OpenForReading(const CString& name)
{
    const HANDLE file = CreateFileW(name.w(), GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_DELETE, nullptr,
                                    OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr);
    return file == INVALID_HANDLE_VALUE ? batchFileClosed : reinterpret_cast<std::intptr_t>(file);
}

void ApplyEncoding(BATCH_FRAME& frame, const RecognisedEncoding& recognised)
{
    if (recognised.encoding == TextEncoding::Utf16)
        frame.flags |= frame_flags::utf16;
    if (recognised.encoding == TextEncoding::Utf8)
        frame.flags |= frame_flags::utf8;
    frame.firstOffset = static_cast<std::int64_t>(recognised.markLength);
    if (frame.readOffset == 0)
        frame.readOffset = frame.firstOffset;
    frame.encodingKnown = true;
}

// The whole file, however long the system says it is: sizes of files on servers may lag behind.
bool ReadWhole(HANDLE file, std::vector<char>& bytes)
{
    constexpr std::size_t step = 1u << 20;
    LARGE_INTEGER size = {};
    GetFileSizeEx(file, &size);
    SetFilePointer(file, 0, nullptr, FILE_BEGIN);
    std::size_t length = 0;
    for (std::size_t block = static_cast<std::size_t>(size.QuadPart) + 1;; block = step) {
        bytes.resize(length + block);
        DWORD got = 0;
        if (!ReadFile(file, bytes.data() + length, static_cast<DWORD>(block), &got, nullptr))
            return false;
        length += got;
        if (got < block)
            break;
    }
    bytes.resize(length);
    return true;
}

// Reports what is wrong with a packed text.
bool UnpackInPlace(BATCH_FRAME& frame, std::vector<char>& bytes)
{
    const std::string_view file(bytes.data(), bytes.size());
    if (IsZippedText(file)) {
        if (!ZipUncompressBTM(file, frame.fileName, bytes))
            return false;
    } else {
        const UnpackResult unpacked = UnpackText(file, bytes);
        if (unpacked == UnpackResult::NotPacked)
            return true;
        if (unpacked != UnpackResult::Done) {
            MVError(errors::packedFileCheck, frame.fileName);
            return false;
        }
    }
    // What the packed bytes looked like says nothing about the text.
    frame.flags = (frame.flags & ~(frame_flags::utf16 | frame_flags::utf8)) | frame_flags::packed;
    frame.readOffset = 0;
    ApplyEncoding(frame, RecogniseEncoding({bytes.data(), bytes.size()}));
    return true;
}

void AppendCtrlZ(const BATCH_FRAME& frame, std::vector<char>& bytes)
{
    if (frame.flags & frame_flags::utf16) {
        bytes.resize(bytes.size() / 2 * 2);
        bytes.insert(bytes.end(), {'\x1A', '\0'});
    } else {
        bytes.push_back('\x1A');
    }
}

} // namespace

void CloseFrameFile(BATCH_FRAME& frame)
{
    if (frame.file == batchFileClosed || frame.file == batchFileInMemory)
        return;
    OwnedHandle(OsHandle(frame.file)).Reset();
    frame.file = batchFileClosed;
    frame.readAhead.clear();
    frame.readAheadOffset = -1;
    frame.readAheadEnds = false;
}

bool OpenBatchFile()
{
    BATCH_FRAME* frame = Tls().Frame();
    if (!frame)
        return false;
    if (frame->file != batchFileClosed || (frame->flags & frame_flags::noFile) != 0)
        return true;
    while ((frame->file = OpenForReading(frame->fileName)) == batchFileClosed) {
        if (!IsOnRemovableDisk(frame->fileName) || !AskForDisk(frame->fileName)) {
            MVError(errors::cannotOpenBatchFile, frame->fileName);
            return false;
        }
    }
    if (!frame->encodingKnown)
        ApplyEncoding(*frame, RecogniseTextFile(FirstBlock(*frame)));
    return true;
}

// The files of the callers too: whoever is about to write, or to run a program that may, can mean any of
// them.
void CloseBatchFile()
{
    for (BATCH_FRAME& frame : Tls().frames)
        CloseFrameFile(frame);
}

int LoadBatchIntoMemory()
{
    if (!OpenBatchFile())
        return result::error;
    BATCH_FRAME& frame = *Tls().Frame();
    if (frame.file == batchFileInMemory || frame.file == batchFileClosed)
        return result::success;
    auto bytes = std::make_shared<std::vector<char>>();
    const bool read = ReadWhole(OsHandle(frame.file), *bytes);
    const unsigned reason = GetLastError();
    CloseFrameFile(frame);
    if (!read)
        return MVError(reason, frame.fileName);
    if (!UnpackInPlace(frame, *bytes))
        return result::error;
    AppendCtrlZ(frame, *bytes);
    frame.memoryText = std::move(bytes);
    frame.file = batchFileInMemory;
    return result::success;
}

void UnloadBatchFromMemory()
{
    BATCH_FRAME* frame = Tls().Frame();
    if (!frame || frame->file != batchFileInMemory || (frame->flags & frame_flags::packed) != 0)
        return;
    frame->memoryText.reset();
    frame->file = batchFileClosed;
}
