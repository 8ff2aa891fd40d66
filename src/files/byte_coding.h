// Bytes written as text and read back: Base64, hexadecimal, quoted-printable, uuencode, yEnc. Pure.
//
// A coder takes its input in pieces of any size and appends what it has of the output, so that files need
// not fit into memory.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

enum class ByteCoding { Base64, Hex, QuotedPrintable, Uu, Yenc };

class ByteCoder {
public:
    virtual ~ByteCoder() = default;
    // Both answer false for input that is malformed; nothing more can be expected of the coder then.
    virtual bool Feed(std::string_view input, std::string& output) = 0;
    virtual bool Finish(std::string& output) = 0;
};

// What the encoders write besides the bytes.
struct EncodingFrame {
    bool lines = false;     // cut into lines, as in files and mails; uuencode and yEnc always are
    std::string name;       // of the file, for the headers of uuencode and yEnc
    std::uint64_t size = 0; // of all the input, for yEnc's
};
std::unique_ptr<ByteCoder> MakeEncoder(ByteCoding coding, const EncodingFrame& frame);

// Base64 is read with "+/" or "-_", blanks and line ends in Base64 and hexadecimal do not matter, and text
// around the frames of uuencode and yEnc is passed over; yEnc's size and checksum must be right.
std::unique_ptr<ByteCoder> MakeDecoder(ByteCoding coding);
