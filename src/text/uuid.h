// UUIDs, by RFC 9562. Pure: what is random and what time it is comes from the caller.
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string_view>

#include "text/cstring.h"

using Uuid = std::array<std::uint8_t, 16>; // in the order in which it is written

constexpr std::uint64_t ticksFrom1582To1601 = 5'748'192'000'000'000; // 100 nanoseconds each

// Sets the version and the variant in bytes that are otherwise ready.
Uuid StampUuid(Uuid bytes, int version);
// Version 1, with a random node, and 7. The time counts 100 nanoseconds from 1601.
Uuid TimeUuid1(std::uint64_t fileTime, const Uuid& random);
Uuid TimeUuid7(std::uint64_t fileTime, const Uuid& random);

// "6ba7b810-9dad-11d1-80b4-00c04fd430c8", with or without hyphens and braces around it.
std::optional<Uuid> ParseUuid(std::u16string_view text);
CString FormatUuid(const Uuid& uuid, bool hyphens = true);
