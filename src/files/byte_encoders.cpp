#include "files/byte_coding.h"

#include <algorithm>
#include <cstdio>

#include "files/crc32.h"

namespace {

constexpr std::string_view lineEnd = "\r\n";

std::uint8_t Byte(char unit) { return static_cast<std::uint8_t>(unit); }

// Encoders that cut their input into groups of `groupSize` bytes, and lines of whole groups.
class GroupEncoder : public ByteCoder {
public:
    explicit GroupEncoder(std::size_t size) : groupSize(size) {}

    bool Feed(std::string_view input, std::string& output) override
    {
        if (!held.empty()) {
            const std::size_t taken = std::min(groupSize - held.size(), input.size());
            held.append(input.substr(0, taken));
            input.remove_prefix(taken);
            if (held.size() < groupSize)
                return true;
            Group(held, output);
            held.clear();
        }
        for (; input.size() >= groupSize; input.remove_prefix(groupSize))
            Group(input.substr(0, groupSize), output);
        held = input;
        return true;
    }

    bool Finish(std::string& output) override
    {
        if (!held.empty())
            Group(held, output);
        End(output);
        return true;
    }

protected:
    virtual void Group(std::string_view bytes, std::string& output) = 0;
    virtual void End(std::string&) {}

private:
    std::size_t groupSize;
    std::string held;
};

class Base64Encoder : public GroupEncoder {
public:
    explicit Base64Encoder(bool withLines) : GroupEncoder(bytesPerLine), lines(withLines) {}

private:
    static constexpr std::size_t bytesPerLine = 57; // 76 characters

    void Group(std::string_view bytes, std::string& output) override
    {
        constexpr std::string_view digits =
            "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
        for (std::size_t at = 0; at < bytes.size(); at += 3) {
            const std::size_t count = std::min<std::size_t>(bytes.size() - at, 3);
            std::uint32_t bits = 0;
            for (std::size_t i = 0; i < 3; ++i)
                bits = bits << 8 | (i < count ? Byte(bytes[at + i]) : 0u);
            const char four[] = {digits[bits >> 18], digits[bits >> 12 & 63],
                                 count > 1 ? digits[bits >> 6 & 63] : '=',
                                 count > 2 ? digits[bits & 63] : '='};
            output.append(four, sizeof four);
        }
        output.append(lines ? lineEnd : "");
    }

    bool lines;
};

class HexEncoder : public GroupEncoder {
public:
    explicit HexEncoder(bool withLines) : GroupEncoder(bytesPerLine), lines(withLines) {}

private:
    static constexpr std::size_t bytesPerLine = 32;

    void Group(std::string_view bytes, std::string& output) override
    {
        constexpr std::string_view digits = "0123456789ABCDEF";
        for (const char unit : bytes) {
            output += digits[Byte(unit) >> 4];
            output += digits[Byte(unit) & 15];
        }
        output.append(lines ? lineEnd : "");
    }

    bool lines;
};

class UuEncoder : public GroupEncoder {
public:
    explicit UuEncoder(std::string_view name) : GroupEncoder(bytesPerLine)
    {
        header.append("begin 644 ").append(name).append(lineEnd);
    }

private:
    static constexpr std::size_t bytesPerLine = 45;

    // Blanks get lost on the way, so that 0 is a back-quote.
    static char Digit(std::uint32_t bits)
    {
        return (bits & 63) == 0 ? '`' : static_cast<char>((bits & 63) + 32);
    }

    void Group(std::string_view bytes, std::string& output) override
    {
        output.append(header);
        header.clear();
        output += Digit(static_cast<std::uint32_t>(bytes.size()));
        for (std::size_t at = 0; at < bytes.size(); at += 3) {
            std::uint32_t bits = 0;
            for (std::size_t i = at; i < at + 3; ++i)
                bits = bits << 8 | (i < bytes.size() ? Byte(bytes[i]) : 0u);
            for (const int shift : {18, 12, 6, 0})
                output += Digit(bits >> shift);
        }
        output.append(lineEnd);
    }

    void End(std::string& output) override
    {
        output.append(header).append("`\r\nend\r\n");
        header.clear();
    }

    std::string header;
};

// Line ends stay as they are; in lines of 76 characters longer ones are broken softly.
class QuotedPrintableEncoder : public ByteCoder {
public:
    explicit QuotedPrintableEncoder(bool withLines) : lines(withLines) {}

    bool Feed(std::string_view input, std::string& output) override
    {
        for (const char unit : input)
            Take(unit, output);
        return true;
    }

    bool Finish(std::string& output) override
    {
        for (const char unit : held)
            PutCode(unit, output);
        held.clear();
        return true;
    }

private:
    void Take(char unit, std::string& output)
    {
        if (unit == '\n') {
            EndLine(output);
            return;
        }
        const bool blank = unit == ' ' || unit == '\t';
        if (unit != '\r' || held.ends_with('\r'))
            Release(output);
        if (blank || unit == '\r')
            held += unit;
        else
            PutByte(unit, output);
    }

    // A blank must not be the last of its line, and "\r" alone is no line end.
    void EndLine(std::string& output)
    {
        const bool carriage = held.ends_with('\r');
        if (carriage)
            held.pop_back();
        for (const char unit : held)
            PutCode(unit, output);
        held.clear();
        output.append(carriage ? "\r\n" : "\n");
        column = 0;
    }

    void Release(std::string& output)
    {
        for (const char unit : held) {
            if (unit == '\r')
                PutCode(unit, output);
            else
                Put(std::string_view(&unit, 1), output);
        }
        held.clear();
    }

    void PutByte(char unit, std::string& output)
    {
        if (unit > ' ' && unit < 0x7F && unit != '=')
            Put(std::string_view(&unit, 1), output);
        else
            PutCode(unit, output);
    }

    void PutCode(char unit, std::string& output)
    {
        char code[4];
        std::snprintf(code, sizeof code, "=%02X", static_cast<unsigned>(Byte(unit)));
        Put(code, output);
    }

    void Put(std::string_view text, std::string& output)
    {
        constexpr std::size_t longestLine = 75; // and the "=" of a soft break
        if (lines && column + text.size() > longestLine) {
            output.append("=\r\n");
            column = 0;
        }
        output.append(text);
        column += text.size();
    }

    bool lines;
    std::size_t column = 0;
    std::string held; // blanks and "\r" of which it is not known yet what follows
};

class YencEncoder : public ByteCoder {
public:
    explicit YencEncoder(const EncodingFrame& frame) : size(frame.size)
    {
        header = "=ybegin line=128 size=" + std::to_string(size) + " name=" + frame.name + "\r\n";
    }

    bool Feed(std::string_view input, std::string& output) override
    {
        output.append(header);
        header.clear();
        checksum.Update(input);
        for (const char unit : input)
            Put(static_cast<char>(Byte(unit) + 42), output);
        return true;
    }

    bool Finish(std::string& output) override
    {
        char crc[9];
        std::snprintf(crc, sizeof crc, "%08x", static_cast<unsigned>(checksum.Value()));
        output.append(header).append(column > 0 ? "\r\n" : "");
        output.append("=yend size=" + std::to_string(size) + " crc32=" + crc + "\r\n");
        return true;
    }

private:
    void Put(char unit, std::string& output)
    {
        constexpr std::size_t lineLength = 128;
        const bool special = unit == '\0' || unit == '\n' || unit == '\r' || unit == '=' ||
                             (unit == '.' && column == 0); // mail programs double that one
        if (special)
            output += '=';
        output += special ? static_cast<char>(Byte(unit) + 64) : unit;
        column += special ? 2 : 1;
        if (column >= lineLength) {
            output.append(lineEnd);
            column = 0;
        }
    }

    std::uint64_t size;
    std::string header;
    Crc32 checksum;
    std::size_t column = 0;
};

} // namespace

std::unique_ptr<ByteCoder> MakeEncoder(ByteCoding coding, const EncodingFrame& frame)
{
    switch (coding) {
    case ByteCoding::Base64: return std::make_unique<Base64Encoder>(frame.lines);
    case ByteCoding::Hex: return std::make_unique<HexEncoder>(frame.lines);
    case ByteCoding::QuotedPrintable: return std::make_unique<QuotedPrintableEncoder>(frame.lines);
    case ByteCoding::Uu: return std::make_unique<UuEncoder>(frame.name);
    case ByteCoding::Yenc: break;
    }
    return std::make_unique<YencEncoder>(frame);
}
