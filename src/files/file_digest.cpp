#include "files/file_digest.h"

#include <vector>

#include "engine/break.h"
#include "platform/byte_files.h"

bool ReadFileBlocks(std::u16string_view name, const std::function<void(std::string_view)>& take)
{
    constexpr std::size_t blockSize = std::size_t{1} << 18; // stays in the processor's cache
    InputFile file;
    if (!file.Open(name))
        return false;
    std::vector<char> block(blockSize);
    for (;;) {
        ThrowIfBroken();
        std::size_t count = 0;
        if (!file.Read(block.data(), block.size(), count))
            return false;
        if (count == 0)
            return true;
        take({block.data(), count});
    }
}

bool DigestFile(std::u16string_view name, std::span<Digest> digests,
                const std::function<void(std::uint64_t)>& done)
{
    return ReadFileBlocks(name, [&](std::string_view bytes) {
        for (Digest& digest : digests)
            digest.Update(bytes);
        if (done)
            done(bytes.size());
    });
}
