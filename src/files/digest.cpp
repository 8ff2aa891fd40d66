#include "files/digest.h"

#include <iterator>
#include <vector>

#include <nettle/nettle-meta.h>

#include "files/crc32.h"
#include "text/compare.h"

namespace {

struct Algorithm {
    std::u16string_view name;
    const nettle_hash* hash; // null: CRC-32
};

// In the order of DigestKind.
const Algorithm algorithms[] = {
    {u"CRC-32", nullptr},         {u"MD5", &nettle_md5},        {u"SHA-1", &nettle_sha1},
    {u"SHA-256", &nettle_sha256}, {u"SHA-384", &nettle_sha384}, {u"SHA-512", &nettle_sha512},
};

const Algorithm& AlgorithmOf(DigestKind kind) { return algorithms[static_cast<std::size_t>(kind)]; }

constexpr std::size_t crcBytes = 4;

CString WithoutHyphens(std::u16string_view name)
{
    CString plain;
    for (const char16_t unit : name) {
        if (unit != u'-')
            plain.Append(unit);
    }
    return plain;
}

} // namespace

std::optional<DigestKind> FindDigestKind(std::u16string_view name)
{
    const CString wanted = WithoutHyphens(name);
    for (std::size_t i = 0; i < std::size(algorithms); ++i) {
        if (EqualNoCase(wanted, WithoutHyphens(algorithms[i].name)))
            return static_cast<DigestKind>(i);
    }
    return std::nullopt;
}

std::u16string_view DigestName(DigestKind kind) { return AlgorithmOf(kind).name; }

std::size_t DigestDigits(DigestKind kind)
{
    const nettle_hash* hash = AlgorithmOf(kind).hash;
    return 2 * (hash ? hash->digest_size : crcBytes);
}

struct Digest::State {
    const nettle_hash* hash;
    std::vector<std::max_align_t> context; // of the library, whose type only the algorithm knows
    Crc32 crc;
};

Digest::Digest(DigestKind kind) : state(std::make_unique<State>())
{
    state->hash = AlgorithmOf(kind).hash;
    if (!state->hash)
        return;
    state->context.resize(state->hash->context_size / sizeof(std::max_align_t) + 1);
    state->hash->init(state->context.data());
}

Digest::Digest(Digest&&) noexcept = default;
Digest::~Digest() = default;

void Digest::Update(std::string_view bytes)
{
    if (state->hash)
        state->hash->update(state->context.data(), bytes.size(),
                            reinterpret_cast<const std::uint8_t*>(bytes.data()));
    else
        state->crc.Update(bytes);
}

std::string Digest::Finish()
{
    std::string bytes;
    if (state->hash) {
        bytes.resize(state->hash->digest_size);
        state->hash->digest(state->context.data(), bytes.size(),
                            reinterpret_cast<std::uint8_t*>(bytes.data()));
        return bytes;
    }
    for (int shift = 24; shift >= 0; shift -= 8)
        bytes += static_cast<char>(state->crc.Value() >> shift);
    return bytes;
}

CString HexDigits(std::string_view bytes, bool upperCase)
{
    const std::u16string_view digits = upperCase ? u"0123456789ABCDEF" : u"0123456789abcdef";
    CString text;
    for (const char unit : bytes) {
        const auto byte = static_cast<unsigned char>(unit);
        text.Append(digits[byte >> 4]).Append(digits[byte & 15]);
    }
    return text;
}
