#include "files/crc32.h"

#include <array>

namespace {

// Table n tells what a byte does that has n more bytes of the same step behind it.
constexpr std::size_t bytesPerStep = 8;
using Tables = std::array<std::array<std::uint32_t, 256>, bytesPerStep>;

constexpr Tables MakeReflectedTables()
{
    Tables tables{};
    for (std::uint32_t byte = 0; byte < 256; ++byte) {
        std::uint32_t value = byte;
        for (int bit = 0; bit < 8; ++bit)
            value = value >> 1 ^ ((value & 1) != 0 ? 0xEDB88320u : 0);
        tables[0][byte] = value;
    }
    for (std::size_t n = 1; n < bytesPerStep; ++n)
        for (std::size_t byte = 0; byte < 256; ++byte)
            tables[n][byte] = tables[n - 1][byte] >> 8 ^ tables[0][tables[n - 1][byte] & 0xFF];
    return tables;
}

constexpr Tables MakeForwardTables()
{
    Tables tables{};
    for (std::uint32_t byte = 0; byte < 256; ++byte) {
        std::uint32_t value = byte << 24;
        for (int bit = 0; bit < 8; ++bit)
            value = value << 1 ^ ((value & 0x80000000u) != 0 ? 0x04C11DB7u : 0);
        tables[0][byte] = value;
    }
    for (std::size_t n = 1; n < bytesPerStep; ++n)
        for (std::size_t byte = 0; byte < 256; ++byte)
            tables[n][byte] = tables[n - 1][byte] << 8 ^ tables[0][tables[n - 1][byte] >> 24];
    return tables;
}

constexpr Tables reflected = MakeReflectedTables();
constexpr Tables forward = MakeForwardTables();

std::uint32_t Byte(char unit) { return static_cast<std::uint8_t>(unit); }

// Eight bytes at once: those that the state reaches into, and four more.
std::uint32_t LastFour(const Tables& tables, std::string_view bytes)
{
    return tables[3][Byte(bytes[4])] ^ tables[2][Byte(bytes[5])] ^ tables[1][Byte(bytes[6])] ^
           tables[0][Byte(bytes[7])];
}

} // namespace

void Crc32::Update(std::string_view bytes) noexcept
{
    std::uint32_t crc = state;
    for (; bytes.size() >= bytesPerStep; bytes.remove_prefix(bytesPerStep)) {
        const std::uint32_t first =
            crc ^ (Byte(bytes[0]) | Byte(bytes[1]) << 8 | Byte(bytes[2]) << 16 | Byte(bytes[3]) << 24);
        crc = reflected[7][first & 0xFF] ^ reflected[6][first >> 8 & 0xFF] ^
              reflected[5][first >> 16 & 0xFF] ^ reflected[4][first >> 24] ^ LastFour(reflected, bytes);
    }
    for (const char unit : bytes)
        crc = crc >> 8 ^ reflected[0][(crc ^ Byte(unit)) & 0xFF];
    state = crc;
}

void PosixChecksum::Update(std::string_view bytes) noexcept
{
    length += bytes.size();
    std::uint32_t crc = state;
    for (; bytes.size() >= bytesPerStep; bytes.remove_prefix(bytesPerStep)) {
        const std::uint32_t first =
            crc ^ (Byte(bytes[0]) << 24 | Byte(bytes[1]) << 16 | Byte(bytes[2]) << 8 | Byte(bytes[3]));
        crc = forward[7][first >> 24] ^ forward[6][first >> 16 & 0xFF] ^ forward[5][first >> 8 & 0xFF] ^
              forward[4][first & 0xFF] ^ LastFour(forward, bytes);
    }
    for (const char unit : bytes)
        crc = crc << 8 ^ forward[0][crc >> 24 ^ Byte(unit)];
    state = crc;
}

std::uint32_t PosixChecksum::Value() const noexcept
{
    std::uint32_t crc = state;
    for (std::uint64_t left = length; left != 0; left >>= 8)
        crc = crc << 8 ^ forward[0][crc >> 24 ^ (left & 0xFF)];
    return ~crc;
}
