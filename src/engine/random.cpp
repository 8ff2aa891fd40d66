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
