// Random numbers for %RANDOM% and its like: quick and well spread, but no secret to anyone.
#pragma once

#include <cstdint>

// The next number of this thread's sequence, which begins differently in each process.
std::uint32_t NextRandom();
// A whole number from `low` to `high`, which is no less, both included.
std::int64_t RandomBetween(std::int64_t low, std::int64_t high);
// Begins a sequence that is the same for the same seed.
void SeedRandom(std::uint64_t seed);
