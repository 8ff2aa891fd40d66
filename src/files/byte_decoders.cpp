#include "files/byte_coding.h"

#include <algorithm>
#include <cstdlib>

#include "files/crc32.h"

namespace {

std::uint8_t Byte(char unit) { return static_cast<std::uint8_t>(unit); }

bool IsSpace(char unit) { return unit == ' ' || (unit >= '\t' && unit <= '\r'); }

int HexDigit(char unit)
{
    if (unit >= '0' && unit <= '9')
        return unit - '0';
    const char letter = static_cast<char>(unit | 0x20);
    return letter >= 'a' && letter <= 'f' ? letter - 'a' + 10 : -1;
}

int Base64Digit(char unit)
{
    if (unit >= 'A' && unit <= 'Z')
        return unit - 'A';
    if (unit >= 'a' && unit <= 'z')
        return unit - 'a' + 26;
    if (unit >= '0' && unit <= '9')
        return unit - '0' + 52;
    if (unit == '+' || unit == '-')
        return 62;
    return unit == '/' || unit == '_' ? 63 : -1;
}

class Base64Decoder : public ByteCoder {
public:
    bool Feed(std::string_view input, std::string& output) override
    {
        for (const char unit : input) {
            if (IsSpace(unit))
                continue;
            const int digit = Base64Digit(unit);
            if (unit == '=' && digits >= 2 && digits + ++padding <= 4)
                continue;
            if (digit < 0 || padding > 0)
                return false;
            bits = bits << 6 | static_cast<std::uint32_t>(digit);
            if (++digits == 4)
                Release(3, output);
        }
        return true;
    }

    // The padding may be left out.
    bool Finish(std::string& output) override
    {
        if (digits == 1)
            return false;
        if (digits > 1) {
            const std::size_t bytes = digits - 1;
            bits <<= 6 * (4 - digits);
            Release(bytes, output);
        }
        return true;
    }

private:
    void Release(std::size_t bytes, std::string& output)
    {
        const char three[] = {static_cast<char>(bits >> 16), static_cast<char>(bits >> 8),
                              static_cast<char>(bits)};
        output.append(three, bytes);
        bits = 0;
        digits = 0;
    }

    std::uint32_t bits = 0;
    std::size_t digits = 0;
    std::size_t padding = 0;
};

class HexDecoder : public ByteCoder {
public:
    bool Feed(std::string_view input, std::string& output) override
    {
        for (const char unit : input) {
            if (IsSpace(unit))
                continue;
            const int digit = HexDigit(unit);
            if (digit < 0)
                return false;
            if (high < 0) {
                high = digit;
            } else {
                output += static_cast<char>(high << 4 | digit);
                high = -1;
            }
        }
        return true;
    }

    bool Finish(std::string&) override { return high < 0; }

private:
    int high = -1;
};

// Nothing is malformed: what is no code stays as it is.
class QuotedPrintableDecoder : public ByteCoder {
public:
    bool Feed(std::string_view input, std::string& output) override
    {
        for (const char unit : input)
            Take(unit, output);
        return true;
    }

    bool Finish(std::string& output) override
    {
        output.append(held.starts_with('=') ? held : "");
        return true;
    }

private:
    void Take(char unit, std::string& output)
    {
        if (held.starts_with('=')) {
            TakeCode(unit, output);
            return;
        }
        if (unit == ' ' || unit == '\t') {
            held += unit;
            return;
        }
        // Blanks at the end of a line are not part of it.
        if (unit != '\r' && unit != '\n')
            output.append(held);
        held.clear();
        if (unit == '=')
            held = unit;
        else
            output += unit;
    }

    void TakeCode(char unit, std::string& output)
    {
        const bool breakGoesOn = held.size() == 1 && (unit == '\r' || unit == ' ' || unit == '\t');
        held += unit;
        if (breakGoesOn || (held[1] == '\r' && unit == '\r'))
            return;
        if (unit == '\n') {
            held.clear();
            return;
        }
        if (HexDigit(held[1]) >= 0 && held.size() == 2)
            return;
        if (held.size() == 3 && HexDigit(held[1]) >= 0 && HexDigit(unit) >= 0) {
            output += static_cast<char>(HexDigit(held[1]) << 4 | HexDigit(unit));
        } else {
            held.pop_back();
            output.append(held);
            held.clear();
            Take(unit, output);
            return;
        }
        held.clear();
    }

    std::string held; // blanks, or "=" and what follows it
};

// Decoders that read line by line, and know where their frame begins and ends.
class LineDecoder : public ByteCoder {
public:
    bool Feed(std::string_view input, std::string& output) override
    {
        constexpr std::size_t longestLine = 100'000; // any line in use is a hundredth of that
        while (!input.empty()) {
            const std::size_t end = input.find('\n');
            held.append(input.substr(0, end));
            if (end == input.npos)
                return held.size() <= longestLine;
            input.remove_prefix(end + 1);
            if (!EndLine(output))
                return false;
        }
        return true;
    }

    bool Finish(std::string& output) override { return (held.empty() || EndLine(output)) && ended; }

protected:
    virtual bool Line(std::string_view line, std::string& output) = 0;

    bool begun = false;
    bool ended = false;

private:
    bool EndLine(std::string& output)
    {
        std::string_view line = held;
        if (line.ends_with('\r'))
            line.remove_suffix(1);
        const bool sound = ended || Line(line, output);
        held.clear();
        return sound;
    }

    std::string held;
};

class UuDecoder : public LineDecoder {
private:
    bool Line(std::string_view line, std::string& output) override
    {
        if (!begun) {
            begun = line.starts_with("begin ");
            return true;
        }
        if (line == "end" || line.empty()) {
            ended = line == "end";
            return true;
        }
        std::size_t count = Digit(line[0]);
        for (std::size_t at = 1; count > 0; at += 4) {
            std::uint32_t bits = 0;
            for (std::size_t i = at; i < at + 4; ++i)
                bits = bits << 6 | (i < line.size() ? Digit(line[i]) : 0u); // blanks at the end get lost
            const char three[] = {static_cast<char>(bits >> 16), static_cast<char>(bits >> 8),
                                  static_cast<char>(bits)};
            const std::size_t taken = std::min<std::size_t>(count, 3);
            output.append(three, taken);
            count -= taken;
        }
        return std::all_of(line.begin(), line.end(), [](char unit) { return unit >= ' ' && unit <= '`'; });
    }

    static std::uint32_t Digit(char unit) { return (Byte(unit) - 32u) & 63; }
};

class YencDecoder : public LineDecoder {
private:
    bool Line(std::string_view line, std::string& output) override
    {
        if (!begun) {
            begun = line.starts_with("=ybegin ");
            return true;
        }
        if (line.starts_with("=yend")) {
            ended = true;
            return IsWhole(line);
        }
        if (line.starts_with("=ypart "))
            return true;
        const std::size_t start = output.size();
        for (std::size_t at = 0; at < line.size(); ++at) {
            const bool escaped = line[at] == '=' && at + 1 < line.size();
            output += static_cast<char>(Byte(line[escaped ? ++at : at]) - (escaped ? 106 : 42));
        }
        const std::string_view added = std::string_view(output).substr(start);
        size += added.size();
        checksum.Update(added);
        return true;
    }

    // The value of "name=" in a line of the frame; empty when there is none.
    static std::string Field(std::string_view line, std::string_view name)
    {
        const std::size_t at = line.find(name);
        if (at == line.npos)
            return {};
        const std::string_view value = line.substr(at + name.size());
        return std::string(value.substr(0, value.find(' ')));
    }

    bool IsWhole(std::string_view line) const
    {
        const std::string wantedSize = Field(line, " size=");
        std::string wantedCrc = Field(line, " pcrc32=");
        wantedCrc = wantedCrc.empty() ? Field(line, " crc32=") : wantedCrc;
        return std::strtoull(wantedSize.c_str(), nullptr, 10) == size &&
               (wantedCrc.empty() || std::strtoul(wantedCrc.c_str(), nullptr, 16) == checksum.Value());
    }

    std::uint64_t size = 0;
    Crc32 checksum;
};

} // namespace

std::unique_ptr<ByteCoder> MakeDecoder(ByteCoding coding)
{
    switch (coding) {
    case ByteCoding::Base64: return std::make_unique<Base64Decoder>();
    case ByteCoding::Hex: return std::make_unique<HexDecoder>();
    case ByteCoding::QuotedPrintable: return std::make_unique<QuotedPrintableDecoder>();
    case ByteCoding::Uu: return std::make_unique<UuDecoder>();
    case ByteCoding::Yenc: break;
    }
    return std::make_unique<YencDecoder>();
}
