// The lines of a text file by their numbers, in whatever encoding it is (text/encoding.h), and how many there
// are. The file is read in large blocks of which only the line asked for is decoded, so that a line far
// behind in a large file costs no more than reading up to it.
//
// Lines end with LF or CR LF; text behind the last end is a line too.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "platform/random_access_file.h"
#include "text/cstring.h"
#include "text/encoding.h"

class NumberedLines {
public:
    // False with the reason in the thread's last error.
    bool Open(std::u16string_view name);

    // Nothing when reading failed.
    std::optional<std::int64_t> Count();

    // Line n, from 0; a negative n counts from the end. False when there are fewer, or reading failed.
    bool Read(std::int64_t n, CString& line);

private:
    std::string_view Block(std::int64_t place, std::size_t length);
    std::int64_t StartOf(std::int64_t n);
    std::int64_t StartFromEnd(std::int64_t n);
    bool LineAt(std::int64_t start, CString& line);

    RandomAccessFile file;
    std::int64_t size = 0;
    RecognisedEncoding encoding;
    std::string block;
    bool failed = false;
};
