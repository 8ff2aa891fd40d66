#include "engine/random.h"

#include <windows.h>

#include "engine/state.h"

std::uint32_t NextRandom()
{
    std::uint64_t& state = Tls().randomState;
    if (state == 0) {
        LARGE_INTEGER counter;
        QueryPerformanceCounter(&counter);
        state = static_cast<std::uint64_t>(counter.QuadPart) ^ (std::uint64_t{GetCurrentProcessId()} << 32);
    }
    // Steps of a constant odd distance, stirred so that neighbours have nothing in common.
    state += 0x9E3779B97F4A7C15u;
    std::uint64_t mixed = state;
    mixed = (mixed ^ (mixed >> 30)) * 0xBF58476D1CE4E5B9u;
    mixed = (mixed ^ (mixed >> 27)) * 0x94D049BB133111EBu;
    return static_cast<std::uint32_t>(mixed >> 32);
}

std::int64_t RandomBetween(std::int64_t low, std::int64_t high)
{
    const std::uint64_t range = static_cast<std::uint64_t>(high) - static_cast<std::uint64_t>(low) + 1;
    const std::uint64_t random = (std::uint64_t{NextRandom()} << 32) | NextRandom();
    const std::uint64_t step = range == 0 ? random : random % range;
    return static_cast<std::int64_t>(static_cast<std::uint64_t>(low) + step);
}

// A state of 0 would begin a sequence of its own.
void SeedRandom(std::uint64_t seed) { Tls().randomState = seed == 0 ? ~std::uint64_t{0} : seed; }
