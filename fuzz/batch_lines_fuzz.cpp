// Batch text from its bytes: splitting at any cut point must give the lines that splitting the whole gives,
// every byte is consumed once, and label lines of any content are taken.
#include <cstdint>
#include <cstdlib>
#include <string>
#include <vector>

#include "batch/labels.h"
#include "batch/line_splitting.h"
#include "text/encoding.h"

namespace {

void Require(bool holds)
{
    if (!holds)
        std::abort();
}

std::vector<std::size_t> Ends(std::string_view text, std::size_t unitSize, LineEnds ends, std::size_t step)
{
    std::vector<std::size_t> found;
    std::size_t from = 0;
    std::size_t known = step == 0 ? text.size() : 0;
    for (;;) {
        const std::string_view block = text.substr(from, known > from ? known - from : 0);
        const SplitLine split = SplitFirstLine(block, unitSize, ends, known >= text.size());
        if (!split.complete) {
            Require(known < text.size());
            known += step;
            continue;
        }
        Require(split.length <= split.consumed && split.consumed <= block.size());
        if (split.consumed == 0)
            return found;
        from += split.consumed;
        found.push_back(from);
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    if (size == 0)
        return 0;
    const std::size_t step = data[0] % 7 + 1;
    const std::string_view text(reinterpret_cast<const char*>(data) + 1, size - 1);
    for (const std::size_t unitSize : {1u, 2u})
        for (const LineEnds ends : {LineEnds::File, LineEnds::Memory})
            Require(Ends(text, unitSize, ends, step) == Ends(text, unitSize, ends, 0));

    RecogniseEncoding(text);
    LabelLine label;
    ReadLabelLine(FromUtf8(text), (data[0] & 1) != 0, Syntax(), label);
    WantedLabel(FromUtf8(text), Syntax());
    return 0;
}
