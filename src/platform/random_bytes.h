// Random bytes that nobody can foretell, from the system.
#pragma once

#include <cstddef>

// False, with the reason in the last error, when the system has none.
bool SystemRandomBytes(void* bytes, std::size_t count);
