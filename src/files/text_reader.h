// Reading text files of any size in whatever encoding they are in.
//
// The encoding is recognised from the first block: a mark, else its look (text/encoding.h), else the code
// page of the console. UTF-16 with the high byte first is read where its mark tells so, as UTF-16. Memory use
// does not depend on the file. Errors stand in the thread's last error.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "platform/handle.h"
#include "text/encoding.h"

// The text of bytes in the encoding; those of a code page are in that of the console.
CString DecodeText(std::string_view bytes, TextEncoding encoding);

// Whether other programs may write to the file while it is open here.
enum class OtherWriters { Allowed, Refused };

class TextReader {
public:
    // False when the file cannot be opened. Other programs may read it meanwhile. A file that grows is read
    // as far as it goes now, or it would never end where what is read is added to it.
    bool Open(std::u16string_view name, OtherWriters others = OtherWriters::Allowed);

    // The code page of texts that are in one, in place of the console's.
    void UseCodePage(unsigned page) { codePage = page; }
    const RecognisedEncoding& Encoding() const noexcept { return encoding; }

    // The next piece of the text, its line ends as they stand; empty at the end. Pieces end at line ends but
    // within lines longer than a block. False when reading failed.
    bool Read(CString& piece);

    // The next piece as the bytes of the file, the mark included, in place of Read.
    bool ReadBytes(std::string& bytes);

private:
    bool Fill();
    void TurnBytes(std::size_t from);

    OwnedHandle file;
    std::uint64_t left = UINT64_MAX; // bytes to be read; no limit for devices and files that tell no size
    std::string block;               // read but not handed out
    RecognisedEncoding encoding;
    unsigned codePage = 0; // 0: the console's
    bool atEnd = false;
    bool highByteFirst = false;
    bool markPassed = false;
};
