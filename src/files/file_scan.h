// Finding bytes in files of any size, read block by block.
#pragma once

#include <cstdint>
#include <functional>
#include <string_view>
#include <vector>

#include "files/byte_search.h"
#include "platform/byte_files.h"

// One file after the other through one buffer: small files cost little more than being opened.
class FileScan {
public:
    // Opens the file and reads its first block. False with the reason in the thread's last error.
    bool Open(std::u16string_view name);
    // The first bytes, at most `most` of them; before Find.
    std::string_view Start(std::size_t most) const;
    // Calls `visit` with the place in the file of each match, until it answers false; once for each file.
    // False as above. Break is thrown when the person breaks it off.
    bool Find(const ByteSearch& search, const std::function<bool(std::uint64_t)>& visit);

private:
    InputFile file;
    std::vector<char> buffer;
    std::size_t held = 0; // bytes in the buffer
};

// The first bytes of a file, at most `count` of them. False as above.
bool ReadFileStart(std::u16string_view name, std::size_t count, std::string& bytes);
