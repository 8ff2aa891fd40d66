// A file that is open for reading and writing at any place.
//
// Places and sizes are in bytes. Reading and writing do not depend on what went before: every call names its
// place. Failures answer false, nothing or -1, the reason in the thread's last error.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>

#include "platform/handle.h"

enum class FileAccess {
    Read,
    Write,     // the file is made, or made empty
    Append,    // the file is made when it is missing; it can be read too
    ReadWrite, // the same, beginning at the start
};

class RandomAccessFile {
public:
    // Other programs may read the file and write to it.
    bool Open(std::u16string_view name, FileAccess access);

    // How many bytes were read: fewer than asked for at the end of the file only.
    std::optional<std::size_t> Read(std::int64_t place, char* room, std::size_t count) const;
    bool Write(std::int64_t place, std::string_view bytes) const;
    std::int64_t Size() const;
    bool SetSize(std::int64_t size) const;

private:
    OwnedHandle handle;
};
