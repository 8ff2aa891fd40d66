#include "batch/reader.h"

#include <algorithm>
#include <cstring>
#include <memory>
#include <string>
#include <utility>

#include <windows.h>

#include "batch/line_splitting.h"
#include "engine/batch_entry.h"
#include "engine/console_entry.h"
#include "platform/codepage.h"
#include "platform/turns.h"
#include "text/encoding.h"

namespace {

constexpr std::size_t blockBytes = 65536;
constexpr std::size_t keptBytes = 4 * blockBytes; // of what was read already, for jumps back
constexpr std::size_t longestLineEnd = 3;

HANDLE OsHandle(std::intptr_t file) { return reinterpret_cast<HANDLE>(file); }

bool InMemory(const BATCH_FRAME& frame) { return frame.file == batchFileInMemory; }
std::size_t UnitSize(const BATCH_FRAME& frame) { return frame.flags & frame_flags::utf16 ? 2 : 1; }

// What is at hand of the frame's text from its read offset on.
std::string_view AtHand(const BATCH_FRAME& frame)
{
    const std::vector<char>& held = InMemory(frame) ? *frame.memoryText : frame.readAhead;
    const std::int64_t base = InMemory(frame) ? 0 : frame.readAheadOffset;
    const std::int64_t skip = frame.readOffset - base;
    if (base < 0 || skip < 0 || skip > static_cast<std::int64_t>(held.size()))
        return {};
    return std::string_view(held.data(), held.size()).substr(static_cast<std::size_t>(skip));
}

// Bytes read at `offset`, 0 at the end of the file or on an error. The file's position does not matter.
std::size_t ReadAt(HANDLE file, std::int64_t offset, char* bytes, std::size_t count)
{
    OVERLAPPED place = {};
    place.Offset = static_cast<DWORD>(offset);
    place.OffsetHigh = static_cast<DWORD>(offset >> 32);
    DWORD got = 0;
    return ReadFile(file, bytes, static_cast<DWORD>(count), &got, &place) ? got : 0;
}

// Reads one more block behind what is at hand; false at the end of the file.
bool ReadAhead(BATCH_FRAME& frame)
{
    std::vector<char>& held = frame.readAhead;
    const std::size_t left = AtHand(frame).size();
    const std::int64_t end = frame.readAheadOffset + static_cast<std::int64_t>(held.size());
    const bool adjacent = frame.readAheadOffset >= 0 && (left > 0 || frame.readOffset == end);
    if (adjacent && frame.readAheadEnds)
        return false;
    if (!adjacent || held.size() > keptBytes) {
        held.erase(held.begin(), held.end() - static_cast<std::ptrdiff_t>(left));
        frame.readAheadOffset = frame.readOffset;
    }
    const std::size_t old = held.size();
    held.resize(old + blockBytes);
    const std::size_t got =
        ReadAt(OsHandle(frame.file), frame.readAheadOffset + static_cast<std::int64_t>(old),
               held.data() + old, blockBytes);
    held.resize(old + got);
    frame.readAheadEnds = got < blockBytes;
    return got > 0;
}

void AppendDecoded(std::string_view bytes, TextEncoding encoding, CString& text)
{
    const std::size_t old = text.size();
    if (encoding == TextEncoding::Utf16) {
        const std::size_t units = bytes.size() / 2;
        std::memcpy(text.Edit(old + units) + old, bytes.data(), units * 2);
        text.SetLength(old + units);
        return;
    }
    char16_t* units = text.Edit(old + bytes.size()) + old;
    unsigned any = 0;
    for (const char byte : bytes) {
        any |= static_cast<unsigned char>(byte);
        *units++ = static_cast<unsigned char>(byte);
    }
    if (any < 0x80)
        text.SetLength(old + bytes.size());
    else
        text.Append(encoding == TextEncoding::Utf8 ? FromUtf8(bytes) : FromCodePage(bytes, InputCodePage()));
}

TextEncoding EncodingOfFlags(int flags)
{
    if (flags & next_line::utf16)
        return TextEncoding::Utf16;
    return flags & next_line::utf8 ? TextEncoding::Utf8 : TextEncoding::CodePage;
}

int ReadFrameLine(BATCH_FRAME& frame, CString& line)
{
    RawLine raw;
    if (!NextRawLine(frame, raw))
        return 0;
    CString text;
    DecodeBatchText(frame, raw.bytes, text);
    line.Append(text);
    return static_cast<int>(raw.consumed / UnitSize(frame));
}

// Unit by unit, so that whoever reads the pipe next finds the rest of it.
int ReadPipeLine(HANDLE pipe, CString& line, TextEncoding encoding, std::size_t maximum)
{
    const std::size_t unitSize = encoding == TextEncoding::Utf16 ? 2 : 1;
    std::string bytes;
    std::size_t units = 0;
    auto others = std::make_unique<WaitingAside>();
    while (units < maximum) {
        char unit[2] = {};
        DWORD got = 0;
        if (!ReadFile(pipe, unit, static_cast<DWORD>(unitSize), &got, nullptr) || got < unitSize)
            break;
        ++units;
        const bool narrow = unit[1] == 0;
        if (narrow && unit[0] == '\n')
            break;
        if (!narrow || unit[0] != '\r')
            bytes.append(unit, unitSize);
    }
    others.reset();
    if (encoding == TextEncoding::CodePage && IsValidUtf8(bytes))
        encoding = TextEncoding::Utf8;
    AppendDecoded(bytes, encoding, line);
    return static_cast<int>(units);
}

int ReadFileLine(HANDLE file, CString& line, TextEncoding encoding, std::size_t maximum)
{
    const std::size_t unitSize = encoding == TextEncoding::Utf16 ? 2 : 1;
    LARGE_INTEGER start = {};
    if (!SetFilePointerEx(file, start, &start, FILE_CURRENT))
        return 0;
    std::string bytes;
    SplitLine split;
    do {
        const std::size_t block = std::min(maximum * unitSize, blockBytes * unitSize);
        const std::size_t old = bytes.size();
        bytes.resize(old + block);
        DWORD got = 0;
        if (!ReadFile(file, bytes.data() + old, static_cast<DWORD>(block), &got, nullptr))
            got = 0;
        bytes.resize(old + got);
        const bool last = got == 0 || maximum < blockBytes;
        split = SplitFirstLine(bytes, unitSize, LineEnds::File, last);
    } while (!split.complete);
    start.QuadPart += static_cast<LONGLONG>(split.consumed);
    SetFilePointerEx(file, start, nullptr, FILE_BEGIN);
    AppendDecoded(std::string_view(bytes).substr(0, split.length), encoding, line);
    return static_cast<int>(split.consumed / unitSize);
}

bool IsConsoleInput(HANDLE file)
{
    DWORD mode = 0;
    return file == GetStdHandle(STD_INPUT_HANDLE) && GetFileType(file) == FILE_TYPE_CHAR &&
           GetConsoleMode(file, &mode);
}

} // namespace

void DecodeBatchText(const BATCH_FRAME& frame, std::string_view bytes, CString& text)
{
    text.Clear();
    const bool utf8 = (frame.flags & frame_flags::utf8) != 0;
    AppendDecoded(bytes,
                  UnitSize(frame) == 2 ? TextEncoding::Utf16
                  : utf8               ? TextEncoding::Utf8
                                       : TextEncoding::CodePage,
                  text);
}

bool NextRawLine(BATCH_FRAME& frame, RawLine& line)
{
    if (frame.file == batchFileClosed || frame.readOffset < 0)
        return false;
    const std::size_t unitSize = UnitSize(frame);
    const std::size_t limit = longestLine * unitSize;
    const LineEnds ends = InMemory(frame) ? LineEnds::Memory : LineEnds::File;
    bool last = InMemory(frame);
    std::string_view block = AtHand(frame);
    SplitLine split = SplitFirstLine(block, unitSize, ends, last);
    while (!split.complete) {
        // Behind the limit the line is cut anyway.
        last = block.size() >= limit + longestLineEnd * unitSize || !ReadAhead(frame);
        block = AtHand(frame);
        split = SplitFirstLine(block, unitSize, ends, last);
    }
    if (!InMemory(frame) && split.length > limit)
        split.length = split.consumed = limit;
    line.bytes = block.substr(0, split.length);
    line.consumed = split.consumed;
    frame.readOffset += static_cast<std::int64_t>(split.consumed);
    return split.consumed > 0;
}

bool ReadBatchLine(CString& line)
{
    if (!OpenBatchFile())
        return false;
    BATCH_FRAME& frame = *Tls().Frame();
    RawLine raw;
    if (!NextRawLine(frame, raw))
        return false;
    DecodeBatchText(frame, raw.bytes, line);
    ++frame.lineNumber;
    return true;
}

int GetNextLine(std::intptr_t file, CString& line, int flags, std::u16string_view prompt, int maximum)
{
    if (!(flags & next_line::append))
        line.Clear();
    BATCH_FRAME* frame = Tls().Frame();
    if (frame && file == frame->file)
        return ReadFrameLine(*frame, line);
    const HANDLE handle = OsHandle(file);
    const TextEncoding encoding = EncodingOfFlags(flags);
    if (IsConsoleInput(handle)) {
        CString typed;
        if (!ReadConsoleLine(typed, prompt))
            return 0;
        line.Append(typed);
        return static_cast<int>(typed.size()) + 1;
    }
    const auto limit = static_cast<std::size_t>(std::max(maximum, 1));
    if (!(flags & next_line::notPipe) && GetFileType(handle) == FILE_TYPE_PIPE)
        return ReadPipeLine(handle, line, encoding, limit);
    return ReadFileLine(handle, line, encoding, limit);
}

std::string_view FirstBlock(BATCH_FRAME& frame)
{
    const std::int64_t place = std::exchange(frame.readOffset, 0);
    frame.readAheadOffset = -1;
    frame.readAhead.clear();
    ReadAhead(frame);
    frame.readOffset = place;
    return {frame.readAhead.data(), frame.readAhead.size()};
}

void RewindFrame(BATCH_FRAME& frame)
{
    frame.readOffset = frame.firstOffset;
    frame.lineNumber = 0;
}

void RewindFile(std::intptr_t file) { SetFilePointer(OsHandle(file), 0, nullptr, FILE_BEGIN); }
