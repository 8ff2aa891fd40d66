// Reading files as bytes from start to end, and writing new contents for a file piece by piece.
//
// Names are taken as in file_facts.h; reasons of failures are the thread's last error.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

#include "platform/handle.h"
#include "text/cstring.h"

// How much an open file holds now: who reads no further comes to an end even where what is read is added to
// the file. The largest number for devices, pipes and files that tell no size.
std::uint64_t BytesToRead(HANDLE file);

class InputFile {
public:
    // Other programs may read and write the file meanwhile.
    bool Open(std::u16string_view name);
    std::uint64_t Size() const;
    // 0 from the start; for Read.
    bool Seek(std::uint64_t place);
    // `count` receives how much there was, 0 at the end.
    bool Read(char* bytes, std::size_t most, std::size_t& count);

private:
    OwnedHandle file;
};

// All or nothing: what is written goes to a temporary file beside the file named, which takes its place with
// Commit. Without it the old file stays as it was.
class ReplacedFile {
public:
    ReplacedFile() = default;
    ReplacedFile(const ReplacedFile&) = delete;
    ReplacedFile& operator=(const ReplacedFile&) = delete;
    ~ReplacedFile();

    bool Create(std::u16string_view fileName);
    bool Write(std::string_view bytes);
    // Attributes and rights of the old file stay.
    bool Commit();

private:
    CString name;
    CString temporary; // empty: there is none
    OwnedHandle file;
};
