// The window of the extended history: each line with its time, duration, exit code and directory, newest
// last, placed and sized by the settings XHWin... and XHCWD.
#pragma once

#include <optional>
#include <string_view>

#include "console/editor_world.h"

// Nothing when there is no line; no text when none was picked. Lines deleted in the window are deleted in
// the file when it closes.
std::optional<LinePick> PickExtendedLine(EditorConsole& console, std::u16string_view filter);
