// Names of the Internet in letters beyond ASCII: "bücher.example" is "xn--bcher-kva.example".
#pragma once

#include <optional>
#include <string_view>

#include "text/cstring.h"

// Each label between periods by itself, in lower case. Nothing when a label becomes longer than 63 units.
std::optional<CString> EncodeDomain(std::u16string_view name);
// Nothing when a label that begins with "xn--" is malformed.
std::optional<CString> DecodeDomain(std::u16string_view name);
