#include "batch/packed_text.h"

#include <algorithm>
#include <array>
#include <numeric>

namespace {

constexpr unsigned plainMagic = 0xBEEB;
constexpr unsigned scrambledMagic = 0xEBBE;
constexpr std::size_t tableSize = 30;
constexpr unsigned shortCodes = 14; // codes 2 to 15 name the first entries of the table

using CodeTable = std::array<unsigned char, tableSize>;

unsigned WordAt(std::string_view file, std::size_t at)
{
    return static_cast<unsigned char>(file[at]) | static_cast<unsigned char>(file[at + 1]) << 8;
}

void AppendWord(std::string& file, std::size_t word)
{
    file.push_back(static_cast<char>(word & 255));
    file.push_back(static_cast<char>(word >> 8));
}

// The word that tells keyed files is the length in the plain form; the test is made there all the same.
bool TellsKeyed(std::size_t word) { return (word & 15) == word >> 4; }

class CodeReader {
public:
    explicit CodeReader(std::string_view over) : stream(over) {}

    // The next code, high half of each byte first; -1 at the end.
    int Next()
    {
        if (at / 2 >= stream.size())
            return -1;
        const auto byte = static_cast<unsigned char>(stream[at / 2]);
        return at++ % 2 == 0 ? byte >> 4 : byte & 15;
    }

private:
    std::string_view stream;
    std::size_t at = 0;
};

// The next byte of the text; -1 when the stream ends inside it.
int NextByte(CodeReader& codes, const CodeTable& table)
{
    const int code = codes.Next();
    if (code < 0)
        return -1;
    if (code >= 2)
        return table[static_cast<std::size_t>(code) - 2];
    const int second = codes.Next();
    if (second < 0)
        return -1;
    if (code == 1)
        return table[shortCodes + static_cast<std::size_t>(second)];
    const int third = codes.Next();
    return third < 0 ? -1 : third << 4 | second;
}

class CodeWriter {
public:
    explicit CodeWriter(std::string& to) : stream(to) {}

    void Put(std::size_t code)
    {
        if (high)
            stream.push_back(static_cast<char>(code << 4));
        else
            stream.back() = static_cast<char>(stream.back() | static_cast<char>(code));
        high = !high;
    }

private:
    std::string& stream;
    bool high = true;
};

// All bytes, the commonest of the text first.
std::array<unsigned char, 256> BytesByCount(std::string_view text)
{
    std::array<std::size_t, 256> counts{};
    for (const char byte : text)
        ++counts[static_cast<unsigned char>(byte)];
    std::array<unsigned char, 256> bytes;
    std::iota(bytes.begin(), bytes.end(), static_cast<unsigned char>(0));
    std::stable_sort(bytes.begin(), bytes.end(), [&](auto a, auto b) { return counts[a] > counts[b]; });
    return bytes;
}

} // namespace

bool IsPackedText(std::string_view file) noexcept
{
    return file.size() >= 2 && (WordAt(file, 0) == plainMagic || WordAt(file, 0) == scrambledMagic);
}

UnpackResult UnpackText(std::string_view file, std::vector<char>& text)
{
    if (!IsPackedText(file))
        return UnpackResult::NotPacked;
    const bool scrambled = WordAt(file, 0) == scrambledMagic;
    const std::size_t lengthAt = scrambled ? 4 : 2;
    const std::size_t tableAt = lengthAt + 2;
    if (file.size() < tableAt + tableSize)
        return UnpackResult::Damaged;
    if (TellsKeyed(WordAt(file, 2)))
        return UnpackResult::Keyed;

    CodeTable table;
    for (std::size_t i = 0; i < tableSize; ++i)
        table[i] = static_cast<unsigned char>(file[tableAt + i]);
    for (std::size_t i = 0; scrambled && i + 1 < tableSize; ++i)
        table[i] = static_cast<unsigned char>(table[i] ^ table[i + 1]);

    const std::size_t length = WordAt(file, lengthAt);
    std::vector<char> unpacked;
    unpacked.reserve(length);
    CodeReader codes(file.substr(tableAt + tableSize));
    while (unpacked.size() < length) {
        const int byte = NextByte(codes, table);
        if (byte < 0)
            return UnpackResult::Damaged;
        unpacked.push_back(static_cast<char>(byte));
    }
    text = std::move(unpacked);
    return UnpackResult::Done;
}

std::string PackText(std::string_view text, TableForm form, std::string_view filler)
{
    constexpr std::size_t variantNotKeyed = 1;
    std::string padded(text);
    if (form == TableForm::Plain && TellsKeyed(padded.size()))
        padded += filler;

    const std::array<unsigned char, 256> bytes = BytesByCount(padded);
    CodeTable table;
    std::copy_n(bytes.begin(), tableSize, table.begin());
    for (std::size_t i = tableSize - 1; form == TableForm::Scrambled && i-- > 0;)
        table[i] = static_cast<unsigned char>(table[i] ^ table[i + 1]);

    std::string file;
    AppendWord(file, form == TableForm::Plain ? plainMagic : scrambledMagic);
    if (form == TableForm::Scrambled)
        AppendWord(file, variantNotKeyed);
    AppendWord(file, padded.size());
    file.append(table.begin(), table.end());

    std::array<std::size_t, 256> ranks;
    for (std::size_t rank = 0; rank < bytes.size(); ++rank)
        ranks[bytes[rank]] = rank;
    CodeWriter codes(file);
    for (const char each : padded) {
        const auto byte = static_cast<unsigned char>(each);
        const std::size_t rank = ranks[byte];
        if (rank < shortCodes) {
            codes.Put(rank + 2);
        } else if (rank < tableSize) {
            codes.Put(1);
            codes.Put(rank - shortCodes);
        } else {
            codes.Put(0);
            codes.Put(byte & 15u);
            codes.Put(byte >> 4u);
        }
    }
    return file;
}
