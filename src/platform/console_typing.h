// Putting text into the console's keyboard buffer, as if a person had typed it: that is how a line to be
// edited is handed to whatever reads the line next.
#pragma once

#include <string_view>

// False when there is no console or it refuses. Control characters are left out.
bool TypeIntoConsole(std::u16string_view text);
