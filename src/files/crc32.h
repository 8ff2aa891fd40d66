// CRC-32 as archives and yEnc use it, and the checksum of POSIX. Pure; a gigabyte takes about half a second.
#pragma once

#include <cstdint>
#include <string_view>

class Crc32 {
public:
    void Update(std::string_view bytes) noexcept;
    std::uint32_t Value() const noexcept { return ~state; }

private:
    std::uint32_t state = ~std::uint32_t{0};
};

// The other bit order, and the length counted in at the end.
class PosixChecksum {
public:
    void Update(std::string_view bytes) noexcept;
    std::uint32_t Value() const noexcept;

private:
    std::uint32_t state = 0;
    std::uint64_t length = 0;
};
