// Checksums of bytes. Pure.
#pragma once

#include <cstddef>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "text/cstring.h"

enum class DigestKind { Crc32, Md5, Sha1, Sha256, Sha384, Sha512 };

// By the algorithm's name, with or without a hyphen; case does not count.
std::optional<DigestKind> FindDigestKind(std::u16string_view name);
std::u16string_view DigestName(DigestKind kind); // "SHA-256"
std::size_t DigestDigits(DigestKind kind);       // hexadecimal digits of a checksum

class Digest {
public:
    explicit Digest(DigestKind kind);
    Digest(Digest&&) noexcept;
    ~Digest();

    void Update(std::string_view bytes);
    // The checksum's bytes. Nothing can be added afterwards.
    std::string Finish();

private:
    struct State;
    std::unique_ptr<State> state;
};

CString HexDigits(std::string_view bytes, bool upperCase = false);
