// Checksums of files, and what they stand on: files read block by block.
#pragma once

#include <cstdint>
#include <functional>
#include <span>
#include <string_view>

#include "files/digest.h"

// Hands the file's bytes to `take`, in order. False with the reason in the thread's last error. Break is
// thrown when the person breaks it off.
bool ReadFileBlocks(std::u16string_view name, const std::function<void(std::string_view)>& take);

// Adds the file's bytes to each of the digests; the file is read once. `done`, if given, is told the bytes of
// each block. Answers as above.
bool DigestFile(std::u16string_view name, std::span<Digest> digests,
                const std::function<void(std::uint64_t)>& done = {});
