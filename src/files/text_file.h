// A text file that is open for reading and writing, as scripts use it by its handle: line by line, so many
// characters, or bytes.
//
// It has one place, in bytes, where reading and writing go on; the bytes ahead of it are read in blocks.
// Places behind a byte-order mark count from the start of the file, the mark included.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "platform/random_access_file.h"
#include "text/cstring.h"
#include "text/encoding.h"

enum class TextKind {
    Recognised, // by the file's look; a new one is written as redirection writes
    Ansi,       // the system's code page
    Utf8,
    Utf16,
    Bytes, // each byte is the character of that code
};

class TextFile {
public:
    // False with the reason in the thread's last error, as in the calls below.
    bool Open(std::u16string_view name, FileAccess access, TextKind kind);

    const CString& Name() const { return fullName; }

    // The rest of the line at the place, without its end. At the end of the file `atEnd` is set.
    bool ReadLine(CString& line, bool& atEnd);
    // At most `count` characters as they stand, line ends included.
    bool ReadCharacters(std::size_t count, CString& text);
    bool ReadBytes(std::size_t count, std::string& bytes);

    // The bytes that were written, -1 for failure.
    std::int64_t WriteText(std::u16string_view text);
    std::int64_t WriteBytes(std::string_view bytes);

    std::int64_t Place() const { return place; }
    std::int64_t Size() const { return file.Size(); }
    void Seek(std::int64_t to);
    // To the start of line n, from 0. False when there are fewer lines; the place is the end then.
    bool SeekLine(std::int64_t n);
    // The file ends here now, and the place is not behind that.
    bool Cut(std::int64_t size);

private:
    bool Fill(std::size_t least);
    void Pass(std::size_t bytes);
    std::string_view Ahead() const { return std::string_view(ahead).substr(passed); }
    CString Decode(std::string_view bytes) const;
    std::string Encode(std::u16string_view text) const;
    void Recognise(bool isNew);

    RandomAccessFile file;
    CString fullName;
    FileAccess access = FileAccess::Read;
    TextKind kind = TextKind::Recognised;
    TextEncoding encoding = TextEncoding::CodePage;
    unsigned codePage = 0;
    std::size_t markLength = 0;
    std::int64_t place = 0;
    std::string ahead; // of the file, from `place - passed` on
    std::size_t passed = 0;
};
