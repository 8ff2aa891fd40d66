// Finding bytes in files of any size, read block by block.
#pragma once

#include <cstdint>
#include <functional>
#include <string_view>

#include "files/byte_search.h"

// Calls `visit` with the place in the file of each match, until it answers false. False when the file could
// not be read, with the reason in the thread's last error. Break is thrown when the person breaks it off.
bool ScanFile(std::u16string_view name, const ByteSearch& search,
              const std::function<bool(std::uint64_t)>& visit);

// The first bytes of a file, at most `count` of them. False as above.
bool ReadFileStart(std::u16string_view name, std::size_t count, std::string& bytes);
