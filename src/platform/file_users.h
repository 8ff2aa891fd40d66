// Which processes hold a file open.
#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

// Their ids; empty when nobody does or the system cannot tell.
std::vector<std::uint32_t> ProcessesUsing(std::u16string_view file);
