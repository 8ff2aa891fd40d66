// Random numbers for %RANDOM% and its like: quick and well spread, but no secret to anyone.
#pragma once

#include <cstdint>

// The next number of this thread's sequence, which begins differently in each process.
std::uint32_t NextRandom();
