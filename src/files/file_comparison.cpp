#include "files/file_comparison.h"

#include <algorithm>
#include <cstring>
#include <vector>

#include <windows.h>

#include "engine/break.h"
#include "platform/byte_files.h"

namespace {

// Long reads of one file keep a disk's head in place, but small files must not pay for the memory.
constexpr std::size_t firstBlock = std::size_t{1} << 14;
constexpr std::size_t laterBlocks = std::size_t{1} << 20;

class Side {
public:
    bool Open(std::u16string_view fileName)
    {
        name = fileName;
        block.resize(firstBlock);
        return file.Open(fileName);
    }
    // As many bytes as a block holds, fewer only at the end.
    bool Fill()
    {
        held = 0;
        for (std::size_t count = 1; held < block.size() && count > 0; held += count)
            if (!file.Read(block.data() + held, block.size() - held, count))
                return false;
        return true;
    }

    CString name;
    std::vector<char> block;
    std::size_t held = 0;

private:
    InputFile file;
};

FileComparison Failure(const CString& name)
{
    FileComparison comparison;
    comparison.error = GetLastError();
    comparison.failed = name;
    return comparison;
}

} // namespace

FileComparison CompareFiles(std::u16string_view left, std::u16string_view right)
{
    Side sides[2];
    if (!sides[0].Open(left))
        return Failure(CString(left));
    if (!sides[1].Open(right))
        return Failure(CString(right));
    FileComparison comparison;
    for (;;) {
        ThrowIfBroken();
        for (Side& side : sides)
            if (!side.Fill())
                return Failure(side.name);
        const std::size_t shared = std::min(sides[0].held, sides[1].held);
        if (std::memcmp(sides[0].block.data(), sides[1].block.data(), shared) != 0 ||
            sides[0].held != sides[1].held) {
            const auto end = sides[0].block.begin() + static_cast<std::ptrdiff_t>(shared);
            const auto place = std::mismatch(sides[0].block.begin(), end, sides[1].block.begin()).first;
            comparison.firstDifference += static_cast<std::uint64_t>(place - sides[0].block.begin());
            return comparison;
        }
        if (shared < sides[0].block.size()) {
            comparison.same = true;
            return comparison;
        }
        comparison.firstDifference += shared;
        for (Side& side : sides)
            side.block.resize(laterBlocks);
    }
}
