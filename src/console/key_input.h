// Keys of the console with breaks looked at, for everything that waits for single keys.
#pragma once

#include <cstdint>
#include <optional>

#include "platform/console_keys.h"

// As ReadKeyOrPress; Ctrl+C breaks in whatever mode a program has left the console.
ConsoleInput ReadKeyOrBreak(std::optional<std::uint64_t> milliseconds = std::nullopt, bool mouse = false);
