// Putting keys into the console's keyboard buffer, as if a person had pressed them: that is how a line to be
// edited is handed to whatever reads the line next, and how scripts answer programs.
#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

#include "platform/console_keys.h"

// False when there is no console or it refuses. Control characters are left out.
bool TypeIntoConsole(std::u16string_view text);

struct TypedKey {
    KeyPress key;
    std::uint64_t delay = 0; // milliseconds that it comes later than the key before
};
// Keys behind those that are still to come. This does not wait: from the first delay on a thread presses
// them, for as long as the shell runs.
bool TypeKeys(const std::vector<TypedKey>& keys);
// Forgets keys that are still to come, and empties the buffer.
void DropTypedKeys();
