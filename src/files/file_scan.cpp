#include "files/file_scan.h"

#include <algorithm>
#include <cstring>

#include "engine/break.h"

namespace {

constexpr std::size_t blockSize = std::size_t{1} << 18; // stays in the processor's cache

} // namespace

bool FileScan::Open(std::u16string_view name)
{
    buffer.resize(std::max(buffer.size(), blockSize));
    held = 0;
    return file.Open(name) && file.Read(buffer.data(), blockSize, held);
}

std::string_view FileScan::Start(std::size_t most) const { return {buffer.data(), std::min(held, most)}; }

bool FileScan::Find(const ByteSearch& search, const std::function<bool(std::uint64_t)>& visit)
{
    buffer.resize(std::max(buffer.size(), blockSize + search.Length()));
    std::uint64_t place = 0; // in the file, of the buffer's start
    for (std::size_t count = held; count > 0;) {
        ThrowIfBroken();
        const std::string_view block(buffer.data(), held);
        for (std::size_t at = search.Find(block); at != block.npos; at = search.Find(block, at + 1))
            if (!visit(place + at))
                return true;
        // A match may go on in the next block; one that ended in this block does not fit into what is kept.
        const std::size_t keep = std::min(search.Length() - 1, held);
        place += held - keep;
        std::memmove(buffer.data(), buffer.data() + held - keep, keep);
        if (!file.Read(buffer.data() + keep, blockSize, count))
            return false;
        held = keep + count;
    }
    return true;
}

bool ReadFileStart(std::u16string_view name, std::size_t count, std::string& bytes)
{
    InputFile file;
    if (!file.Open(name))
        return false;
    bytes.resize(count);
    std::size_t got = 0;
    const bool read = file.Read(bytes.data(), count, got);
    bytes.resize(got);
    return read;
}
