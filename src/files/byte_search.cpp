#include "files/byte_search.h"

#include <cstring>

namespace {

std::size_t Index(char byte) { return static_cast<unsigned char>(byte); }

} // namespace

ByteSearch::ByteSearch(std::string bytes, ByteCase letterCase)
    : needle(std::move(bytes)), folds(letterCase == ByteCase::IgnoreAscii)
{
    for (std::size_t i = 0; i < fold.size(); ++i)
        fold[i] = static_cast<std::uint8_t>(folds && i >= 'A' && i <= 'Z' ? i + 32 : i);
    for (char& byte : needle)
        byte = static_cast<char>(fold[Index(byte)]);
    std::array<std::uint32_t, 256> folded;
    folded.fill(static_cast<std::uint32_t>(needle.size()));
    for (std::size_t i = 0; i + 1 < needle.size(); ++i)
        folded[Index(needle[i])] = static_cast<std::uint32_t>(needle.size() - 1 - i);
    for (std::size_t i = 0; i < skip.size(); ++i)
        skip[i] = folded[fold[i]];
}

bool ByteSearch::IsAt(const char* place) const
{
    if (!folds)
        return std::memcmp(place, needle.data(), needle.size()) == 0;
    for (std::size_t i = 0; i < needle.size(); ++i)
        if (fold[Index(place[i])] != Index(needle[i]))
            return false;
    return true;
}

std::size_t ByteSearch::Find(std::string_view text, std::size_t from) const
{
    const std::size_t length = needle.size();
    if (length > text.size())
        return std::string_view::npos;
    const std::size_t last = Index(needle.back());
    const std::size_t end = text.size() - length;
    for (std::size_t at = from; at <= end;) {
        const std::size_t under = Index(text[at + length - 1]);
        if (fold[under] == last && IsAt(text.data() + at))
            return at;
        at += skip[under];
    }
    return std::string_view::npos;
}
