// Boxes in which a person picks a file, a folder or a date. They wait for the person.
#pragma once

#include <optional>
#include <string_view>

#include "platform/clock.h"
#include "text/cstring.h"

// Each answers an empty text, or nothing, when the person cancels or the box cannot be shown. `folder` is
// where it begins, "" for the current one.
CString PickFile(std::u16string_view folder, std::u16string_view pattern);
CString PickFolder(std::u16string_view folder, std::u16string_view title);
std::optional<ClockTime> PickDate(bool withTime);
