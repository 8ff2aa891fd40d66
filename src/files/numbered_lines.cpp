#include "files/numbered_lines.h"

#include <algorithm>

#include "engine/break.h"
#include "files/text_encoding.h"
#include "files/text_pieces.h"
#include "files/text_reader.h"

namespace {

constexpr std::size_t blockSize = std::size_t{1} << 18;   // bytes; even
constexpr std::size_t recognisedSize = 65536;             // what the encoding is judged by
constexpr std::size_t usualLine = 4096;                   // room that holds most lines
constexpr std::size_t longestLine = std::size_t{1} << 24; // what lies behind is not read

} // namespace

bool NumberedLines::Open(std::u16string_view name)
{
    if (!file.Open(name, FileAccess::Read))
        return false;
    size = std::max<std::int64_t>(file.Size(), 0);
    encoding = RecogniseTextFile(Block(0, recognisedSize));
    return !failed;
}

// The bytes at the place, as many as there are; valid until the next call.
std::string_view NumberedLines::Block(std::int64_t place, std::size_t length)
{
    ThrowIfBroken();
    if (block.size() < length)
        block.resize(length);
    const auto read = file.Read(place, block.data(), length);
    failed = failed || !read;
    return std::string_view(block).substr(0, read.value_or(0));
}

std::optional<std::int64_t> NumberedLines::Count()
{
    std::int64_t count = 0;
    bool open = false; // text behind the last line end
    for (std::int64_t place = static_cast<std::int64_t>(encoding.markLength);;) {
        const std::string_view bytes = Block(place, blockSize);
        if (bytes.empty())
            break;
        count += static_cast<std::int64_t>(CountLineEnds(bytes, encoding.encoding));
        open = !EndsWithLineEnd(bytes, encoding.encoding);
        place += static_cast<std::int64_t>(bytes.size());
    }
    if (failed)
        return std::nullopt;
    return count + (open ? 1 : 0);
}

// The place where line n begins, -1 when there is none.
std::int64_t NumberedLines::StartOf(std::int64_t n)
{
    std::int64_t place = static_cast<std::int64_t>(encoding.markLength);
    while (n > 0) {
        const std::string_view bytes = Block(place, blockSize);
        if (bytes.empty())
            return -1;
        const std::size_t found = BehindLineEnd(bytes, encoding.encoding, static_cast<std::size_t>(n));
        if (found != bytes.npos) {
            place += static_cast<std::int64_t>(found);
            break;
        }
        n -= static_cast<std::int64_t>(CountLineEnds(bytes, encoding.encoding));
        place += static_cast<std::int64_t>(bytes.size());
    }
    return place;
}

// The same for the nth line from the end, the last one being 1.
std::int64_t NumberedLines::StartFromEnd(std::int64_t n)
{
    const std::int64_t first = static_cast<std::int64_t>(encoding.markLength);
    const std::int64_t unit = encoding.encoding == TextEncoding::Utf16 ? 2 : 1;
    std::int64_t end = size - (size - first) % unit;
    if (end > first && EndsWithLineEnd(Block(end - unit, static_cast<std::size_t>(unit)), encoding.encoding))
        end -= unit; // closes the last line and begins no other
    while (end > first) {
        const std::int64_t start = std::max(first, end - static_cast<std::int64_t>(blockSize));
        const std::string_view bytes = Block(start, static_cast<std::size_t>(end - start));
        const auto count = static_cast<std::int64_t>(CountLineEnds(bytes, encoding.encoding));
        if (count >= n)
            return start + static_cast<std::int64_t>(BehindLineEnd(bytes, encoding.encoding,
                                                                   static_cast<std::size_t>(count - n + 1)));
        n -= count;
        end = start;
    }
    return n == 1 && size > first ? first : -1;
}

bool NumberedLines::LineAt(std::int64_t start, CString& line)
{
    for (std::size_t room = usualLine;; room *= 4) {
        std::string_view bytes = Block(start, room);
        const std::size_t end = BehindLineEnd(bytes, encoding.encoding, 1);
        if (failed || bytes.empty())
            return false;
        if (end == bytes.npos && bytes.size() == room && room < longestLine)
            continue;
        line = DecodeText(bytes.substr(0, end), encoding.encoding);
        if (end != bytes.npos)
            line.Truncate(line.size() - 1);
        if (line.back() == u'\r')
            line.Truncate(line.size() - 1);
        return true;
    }
}

bool NumberedLines::Read(std::int64_t n, CString& line)
{
    const std::int64_t start = n < 0 ? StartFromEnd(-n) : StartOf(n);
    return start >= 0 && !failed && LineAt(start, line);
}
