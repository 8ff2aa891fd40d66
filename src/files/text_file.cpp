#include "files/text_file.h"

#include <algorithm>
#include <cstring>

#include <windows.h>

#include "engine/break.h"
#include "engine/output.h"
#include "files/text_encoding.h"
#include "files/text_pieces.h"
#include "platform/codepage.h"
#include "platform/file_facts.h"
#include "platform/text_output.h"

namespace {

constexpr std::size_t blockSize = 65536;
constexpr std::size_t longestLine = std::size_t{1} << 24; // bytes; a longer one is read in parts
constexpr std::string_view utf16Mark = "\xFF\xFE";

TextEncoding EncodingOfOutput()
{
    switch (CurrentOutputEncoding()) {
    case OutputEncoding::Utf8: return TextEncoding::Utf8;
    case OutputEncoding::Utf16: return TextEncoding::Utf16;
    case OutputEncoding::CodePage: break;
    }
    return TextEncoding::CodePage;
}

} // namespace

bool TextFile::Open(std::u16string_view name, FileAccess how, TextKind what)
{
    fullName = FullPathName(name);
    access = how;
    kind = what;
    if (!file.Open(name, how))
        return false;
    Recognise(Size() == 0);
    Seek(access == FileAccess::Append ? std::max<std::int64_t>(Size(), 0)
                                      : static_cast<std::int64_t>(markLength));
    return true;
}

void TextFile::Recognise(bool isNew)
{
    codePage = kind == TextKind::Ansi ? GetACP() : OutputCodePage();
    RecognisedEncoding found;
    if (!isNew && Fill(blockSize))
        found = RecogniseTextFile(Ahead());
    if (kind == TextKind::Recognised) {
        encoding = isNew ? EncodingOfOutput() : found.encoding;
        markLength = found.markLength;
    } else if (kind != TextKind::Bytes) {
        encoding = kind == TextKind::Utf8    ? TextEncoding::Utf8
                   : kind == TextKind::Utf16 ? TextEncoding::Utf16
                                             : TextEncoding::CodePage;
        markLength = found.encoding == encoding ? found.markLength : 0;
    }
}

// Has `least` bytes ahead, or all there are.
bool TextFile::Fill(std::size_t least)
{
    if (ahead.size() - passed >= least)
        return true;
    ThrowIfBroken();
    ahead.erase(0, passed);
    passed = 0;
    const std::size_t held = ahead.size();
    const std::size_t wanted = std::max(least, blockSize);
    ahead.resize(wanted);
    const auto read = file.Read(place + static_cast<std::int64_t>(held), ahead.data() + held, wanted - held);
    ahead.resize(held + read.value_or(0));
    return read.has_value();
}

void TextFile::Pass(std::size_t bytes)
{
    passed += bytes;
    place += static_cast<std::int64_t>(bytes);
}

CString TextFile::Decode(std::string_view bytes) const
{
    CString text;
    if (kind == TextKind::Bytes) {
        char16_t* units = text.Edit(bytes.size());
        std::transform(bytes.begin(), bytes.end(), units,
                       [](char byte) { return static_cast<unsigned char>(byte); });
        text.SetLength(bytes.size());
        return text;
    }
    switch (encoding) {
    case TextEncoding::Utf8: return FromUtf8(bytes);
    case TextEncoding::CodePage: return FromCodePage(bytes, codePage);
    case TextEncoding::Utf16: break;
    }
    std::memcpy(text.Edit(bytes.size() / 2), bytes.data(), bytes.size() & ~std::size_t{1});
    text.SetLength(bytes.size() / 2);
    return text;
}

std::string TextFile::Encode(std::u16string_view text) const
{
    if (kind == TextKind::Bytes) {
        std::string bytes;
        for (const char16_t unit : text)
            bytes += static_cast<char>(unit);
        return bytes;
    }
    switch (encoding) {
    case TextEncoding::Utf8: return ToUtf8(text);
    case TextEncoding::CodePage: return ToCodePage(text, codePage);
    case TextEncoding::Utf16: break;
    }
    return std::string(reinterpret_cast<const char*>(text.data()), text.size() * sizeof(char16_t));
}

bool TextFile::ReadLine(CString& line, bool& atEnd)
{
    const TextEncoding byLine = kind == TextKind::Bytes ? TextEncoding::CodePage : encoding;
    std::size_t end = std::string_view::npos;
    for (std::size_t room = 1;; room = Ahead().size() * 2 + blockSize) {
        const std::size_t held = Ahead().size();
        if (!Fill(room))
            return false;
        end = BehindLineEnd(Ahead(), byLine, 1);
        const bool whole = Ahead().size() == held && room > 1;
        if (end != std::string_view::npos || whole || Ahead().empty() || held > longestLine)
            break;
    }
    atEnd = Ahead().empty();
    const std::size_t length = std::min(end, Ahead().size());
    line = Decode(Ahead().substr(0, length));
    Pass(length);
    if (line.back() == u'\n')
        line.Truncate(line.size() - 1);
    if (line.back() == u'\r')
        line.Truncate(line.size() - 1);
    return true;
}

bool TextFile::ReadCharacters(std::size_t count, CString& text)
{
    // No encoding takes more than three bytes for a unit, or four for the two of a pair.
    if (!Fill(count * 3 + 4))
        return false;
    const bool byBytes = kind == TextKind::Bytes || encoding == TextEncoding::CodePage;
    const std::size_t length = BytesOfCharacters(Ahead(), byBytes ? TextEncoding::CodePage : encoding, count);
    text = Decode(Ahead().substr(0, length));
    Pass(length);
    return true;
}

bool TextFile::ReadBytes(std::size_t count, std::string& bytes)
{
    if (!Fill(count))
        return false;
    bytes = Ahead().substr(0, count);
    Pass(bytes.size());
    return true;
}

std::int64_t TextFile::WriteText(std::u16string_view text)
{
    const bool marked = encoding == TextEncoding::Utf16 && kind != TextKind::Bytes && Size() == 0;
    if (marked && WriteBytes(utf16Mark) < 0)
        return -1;
    return WriteBytes(Encode(text));
}

std::int64_t TextFile::WriteBytes(std::string_view bytes)
{
    // Others may have added to the file.
    Seek(access == FileAccess::Append ? std::max<std::int64_t>(Size(), 0) : place);
    if (!file.Write(place, bytes))
        return -1;
    place += static_cast<std::int64_t>(bytes.size());
    return static_cast<std::int64_t>(bytes.size());
}

void TextFile::Seek(std::int64_t to)
{
    ahead.clear();
    passed = 0;
    place = to;
}

bool TextFile::SeekLine(std::int64_t n)
{
    Seek(static_cast<std::int64_t>(markLength));
    while (n > 0) {
        if (!Fill(blockSize))
            return false;
        if (Ahead().empty())
            return false;
        const std::size_t behind = BehindLineEnd(Ahead(), encoding, static_cast<std::size_t>(n));
        if (behind != std::string_view::npos) {
            Pass(behind);
            break;
        }
        n -= static_cast<std::int64_t>(CountLineEnds(Ahead(), encoding));
        Pass(Ahead().size());
    }
    return Fill(1) && !Ahead().empty();
}

bool TextFile::Cut(std::int64_t size)
{
    const std::int64_t to = std::min(place, size);
    Seek(to);
    return file.SetSize(size);
}
