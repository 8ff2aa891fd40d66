#include "text/encoding.h"

#include <algorithm>

namespace {

constexpr char32_t replacement = 0xFFFD;

struct Decoded {
    char32_t point = replacement;
    std::size_t bytes = 1;
    bool valid = false;
};

Decoded DecodeOne(std::string_view bytes)
{
    auto byteAt = [&](std::size_t i) { return static_cast<unsigned char>(bytes[i]); };
    const unsigned lead = byteAt(0);
    if (lead < 0x80)
        return {lead, 1, true};
    const std::size_t length = lead >= 0xF0 ? 4 : lead >= 0xE0 ? 3 : 2;
    if (lead < 0xC2 || lead > 0xF4)
        return {};
    char32_t point = lead & (0x7Fu >> length);
    for (std::size_t i = 1; i < length; ++i) {
        if (i >= bytes.size() || (byteAt(i) & 0xC0) != 0x80)
            return {replacement, i, false};
        point = (point << 6) | (byteAt(i) & 0x3Fu);
    }
    const char32_t least = length == 4 ? 0x10000 : length == 3 ? 0x800 : 0x80;
    if (point < least || point > 0x10FFFF || (point >= 0xD800 && point < 0xE000))
        return {};
    return {point, length, true};
}

void AppendUtf8(std::string& out, char32_t point)
{
    auto tail = [&](int shift) { out.push_back(static_cast<char>(0x80 | ((point >> shift) & 0x3F))); };
    if (point < 0x80) {
        out.push_back(static_cast<char>(point));
    } else if (point < 0x800) {
        out.push_back(static_cast<char>(0xC0 | (point >> 6)));
        tail(0);
    } else if (point < 0x10000) {
        out.push_back(static_cast<char>(0xE0 | (point >> 12)));
        tail(6);
        tail(0);
    } else {
        out.push_back(static_cast<char>(0xF0 | (point >> 18)));
        tail(12);
        tail(6);
        tail(0);
    }
}

// Mostly units with an empty high byte and none that is wholly empty: Latin text written in UTF-16.
bool LooksLikeUtf16(std::string_view block) noexcept
{
    const std::size_t units = (block.size() < 512 ? block.size() : 512) / 2;
    std::size_t narrow = 0;
    for (std::size_t i = 0; i < units; ++i) {
        if (block[2 * i] == 0)
            return false;
        narrow += block[2 * i + 1] == 0 ? 1 : 0;
    }
    return units > 0 && block.size() % 2 == 0 && narrow * 2 > units;
}

std::string_view WithoutCutSequence(std::string_view block) noexcept
{
    std::size_t whole = block.size();
    for (int back = 0; back < 3 && whole > 0; ++back) {
        const auto byte = static_cast<unsigned char>(block[--whole]);
        if (byte >= 0xC0)
            return block.substr(0, whole);
        if (byte < 0x80)
            break;
    }
    return block;
}

} // namespace

RecognisedEncoding RecogniseEncoding(std::string_view block) noexcept
{
    if (block.starts_with("\xFF\xFE"))
        return {TextEncoding::Utf16, 2};
    if (block.starts_with("\xEF\xBB\xBF"))
        return {TextEncoding::Utf8, 3};
    if (LooksLikeUtf16(block))
        return {TextEncoding::Utf16, 0};
    bool ascii = true;
    for (const char byte : block)
        ascii = ascii && static_cast<unsigned char>(byte) < 0x80;
    const bool utf8 = !ascii && (IsValidUtf8(block) || IsValidUtf8(WithoutCutSequence(block)));
    return {utf8 ? TextEncoding::Utf8 : TextEncoding::CodePage, 0};
}

bool IsAscii(std::u16string_view text) noexcept
{
    return std::all_of(text.begin(), text.end(), [](char16_t unit) { return unit < 0x80; });
}

bool IsValidUtf8(std::string_view bytes) noexcept
{
    while (!bytes.empty()) {
        const Decoded one = DecodeOne(bytes);
        if (!one.valid)
            return false;
        bytes.remove_prefix(one.bytes);
    }
    return true;
}

CString FromUtf8(std::string_view bytes)
{
    CString text;
    char16_t* units = text.Edit(bytes.size());
    std::size_t length = 0;
    while (!bytes.empty()) {
        const Decoded one = DecodeOne(bytes);
        bytes.remove_prefix(one.bytes);
        if (one.point < 0x10000) {
            units[length++] = static_cast<char16_t>(one.point);
        } else {
            units[length++] = static_cast<char16_t>(0xD7C0 + (one.point >> 10));
            units[length++] = static_cast<char16_t>(0xDC00 + (one.point & 0x3FF));
        }
    }
    text.SetLength(length);
    return text;
}

std::string ToUtf8(std::u16string_view text)
{
    std::string out;
    out.reserve(text.size() + text.size() / 2);
    for (std::size_t i = 0; i < text.size(); ++i) {
        const char16_t unit = text[i];
        const bool high = unit >= 0xD800 && unit < 0xDC00;
        const bool low = unit >= 0xDC00 && unit < 0xE000;
        if (high && i + 1 < text.size() && text[i + 1] >= 0xDC00 && text[i + 1] < 0xE000) {
            AppendUtf8(out, 0x10000 + ((unit - 0xD800u) << 10) + (text[i + 1] - 0xDC00u));
            ++i;
        } else {
            AppendUtf8(out, high || low ? replacement : unit);
        }
    }
    return out;
}

CString FromAscii(std::string_view bytes)
{
    CString text;
    char16_t* units = text.Edit(bytes.size());
    for (std::size_t i = 0; i < bytes.size(); ++i)
        units[i] = static_cast<unsigned char>(bytes[i]) < 0x80 ? static_cast<char16_t>(bytes[i]) : u'\xFFFD';
    text.SetLength(bytes.size());
    return text;
}
