#include "files/file_scan.h"

#include <cstring>
#include <vector>

#include "engine/break.h"
#include "platform/byte_files.h"

bool ScanFile(std::u16string_view name, const ByteSearch& search,
              const std::function<bool(std::uint64_t)>& visit)
{
    constexpr std::size_t blockSize = std::size_t{1} << 18; // stays in the processor's cache
    InputFile file;
    if (!file.Open(name))
        return false;
    std::vector<char> buffer(blockSize + search.Length());
    std::size_t kept = 0;    // bytes of the block before, in front of what is read
    std::uint64_t place = 0; // in the file, of the buffer's start
    for (;;) {
        ThrowIfBroken();
        std::size_t count = 0;
        if (!file.Read(buffer.data() + kept, blockSize, count))
            return false;
        if (count == 0)
            return true;
        const std::string_view block(buffer.data(), kept + count);
        for (std::size_t at = search.Find(block); at != block.npos; at = search.Find(block, at + 1))
            if (!visit(place + at))
                return true;
        // A match may go on in the next block; one that ended in this block does not fit into what is kept.
        const std::size_t keep = std::min(search.Length() - 1, block.size());
        place += block.size() - keep;
        std::memmove(buffer.data(), buffer.data() + block.size() - keep, keep);
        kept = keep;
    }
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
