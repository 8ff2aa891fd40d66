// Reading text files line by line, in whatever encoding they are in (files/text_reader.h).
#pragma once

#include "files/text_reader.h"

class TextLines {
public:
    // False when the file cannot be opened; the reason is the thread's last error.
    bool Open(std::u16string_view name, OtherWriters others = OtherWriters::Allowed)
    {
        return reader.Open(name, others);
    }

    // As TextReader has them.
    void UseCodePage(unsigned page) { reader.UseCodePage(page); }
    const RecognisedEncoding& Encoding() const noexcept { return reader.Encoding(); }

    // The next line without its end (CR LF or LF); false at the end. Valid until the next call.
    bool Next(std::u16string_view& line);
    // Behind the last line: what reading failed with, a Windows error number, or 0.
    unsigned Failure() const { return failure; }

private:
    bool Refill();

    TextReader reader;
    CString text;
    std::size_t at = 0;
    bool atEnd = false;
    unsigned failure = 0;
};
