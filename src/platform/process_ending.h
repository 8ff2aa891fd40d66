// Ending another process.
#pragma once

#include <cstdint>

// Asks its windows to close, as a click on each one's cross does, and ends the process by force when it still
// runs after so many milliseconds. With 0 it is ended at once. 0, or a Windows error number.
unsigned EndProcess(unsigned process, std::uint32_t patience);
