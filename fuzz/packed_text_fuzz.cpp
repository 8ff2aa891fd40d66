// Packed batch files: whatever the bytes are they are unpacked or refused; and what is packed comes back as
// it was, while no shorter piece of it passes for the whole.
#include <cstdint>
#include <cstdlib>
#include <string>
#include <vector>

#include "batch/packed_text.h"

namespace {

void Require(bool holds)
{
    if (!holds)
        std::abort();
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const std::string bytes(reinterpret_cast<const char*>(data), size);
    std::vector<char> unpacked;
    const UnpackResult result = UnpackText(bytes, unpacked);
    Require(result == UnpackResult::Done || unpacked.empty());
    Require(unpacked.size() <= longestPackedText);
    if (size == 0 || size >= longestPackedText)
        return 0;

    for (const TableForm form : {TableForm::Plain, TableForm::Scrambled}) {
        const std::string packed = PackText(bytes, form, "\n");
        Require(UnpackText(packed, unpacked) == UnpackResult::Done);
        const std::string back(unpacked.begin(), unpacked.end());
        Require(back == bytes || back == bytes + "\n");
        const std::size_t cut = static_cast<unsigned char>(bytes[0]) % packed.size();
        Require(UnpackText(std::string_view(packed).substr(0, cut), unpacked) != UnpackResult::Done);
    }
    return 0;
}
