// Switching internal commands off: declared here for the settings, defined in core/.
#pragma once

#include <string_view>

// 0, or 2 when there is no command of that name; nothing is reported.
int DisableInternalCommand(std::u16string_view name);
