// The letters that amounts of bytes are counted in. Here letter case counts: "k" is 1000, "K" is 1024.
#pragma once

#include <cstdint>
#include <optional>

// The bytes of b, k, m, g, t and p, in either case; nothing for any other letter.
std::optional<std::int64_t> UnitBytes(char16_t letter) noexcept;
