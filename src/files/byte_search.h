// Finding a run of bytes in large amounts of data. Pure.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>

enum class ByteCase { Exact, IgnoreAscii };

class ByteSearch {
public:
    // `bytes` has at least one.
    ByteSearch(std::string bytes, ByteCase letterCase);

    std::size_t Length() const { return needle.size(); }
    // The first place at or after `from`, or npos.
    std::size_t Find(std::string_view text, std::size_t from = 0) const;

private:
    bool IsAt(const char* place) const;

    std::string needle; // folded
    bool folds;
    std::array<std::uint8_t, 256> fold;
    std::array<std::uint32_t, 256> skip; // by the byte under the needle's last one
};
