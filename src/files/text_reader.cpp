#include "files/text_reader.h"

#include <algorithm>
#include <cstring>
#include <utility>

#include <windows.h>

#include "files/text_encoding.h"
#include "files/text_pieces.h"
#include "platform/byte_files.h"
#include "platform/codepage.h"
#include "platform/file_facts.h"

namespace {

constexpr std::size_t blockSize = 65536;

} // namespace

CString DecodeText(std::string_view bytes, TextEncoding encoding)
{
    switch (encoding) {
    case TextEncoding::Utf8: return FromUtf8(bytes);
    case TextEncoding::Utf16: {
        CString text;
        std::memcpy(text.Edit(bytes.size() / 2), bytes.data(), bytes.size() & ~std::size_t{1});
        text.SetLength(bytes.size() / 2);
        return text;
    }
    case TextEncoding::CodePage: break;
    }
    return FromCodePage(bytes, OutputCodePage());
}

bool TextReader::Open(std::u16string_view name, OtherWriters others)
{
    const DWORD sharing = FILE_SHARE_READ | (others == OtherWriters::Allowed ? FILE_SHARE_WRITE : 0);
    file = OwnedHandle(CreateFileW(SystemPath(name).w(), GENERIC_READ, sharing, nullptr, OPEN_EXISTING,
                                   FILE_FLAG_SEQUENTIAL_SCAN, nullptr));
    if (!file)
        return false;
    left = BytesToRead(file.Get());
    if (!Fill())
        return false;
    encoding = RecogniseTextFile(block);
    highByteFirst = block.starts_with("\xFE\xFF");
    if (highByteFirst)
        encoding = {TextEncoding::Utf16, 2};
    return true;
}

bool TextReader::Fill()
{
    const std::size_t held = block.size();
    block.resize(blockSize);
    DWORD count = 0;
    const auto wanted = static_cast<DWORD>(std::min<std::uint64_t>(blockSize - held, left));
    const BOOL done = ReadFile(file.Get(), block.data() + held, wanted, &count, nullptr);
    block.resize(held + count);
    left -= count;
    const bool pipeEnded = !done && GetLastError() == ERROR_BROKEN_PIPE;
    atEnd = count == 0;
    if (markPassed)
        TurnBytes(held & ~std::size_t{1}); // an odd byte has waited for its other half
    return done || pipeEnded;
}

// Puts the low bytes first, from a place in the block on.
void TextReader::TurnBytes(std::size_t from)
{
    for (std::size_t at = from; highByteFirst && at + 1 < block.size(); at += 2)
        std::swap(block[at], block[at + 1]);
}

bool TextReader::Read(CString& piece)
{
    piece.Clear();
    if (!markPassed) {
        block.erase(0, encoding.markLength);
        TurnBytes(0);
    }
    markPassed = true;
    std::size_t whole = WholeLines(block, encoding.encoding);
    while (whole == 0 && !atEnd && block.size() < blockSize) {
        if (!Fill())
            return false;
        whole = WholeLines(block, encoding.encoding);
    }
    if (whole == 0)
        whole = atEnd ? block.size() : WholeCharacters(block, encoding.encoding);
    const std::string_view bytes = std::string_view(block).substr(0, whole);
    piece = codePage && encoding.encoding == TextEncoding::CodePage ? FromCodePage(bytes, codePage)
                                                                    : DecodeText(bytes, encoding.encoding);
    block.erase(0, whole);
    return true;
}

bool TextReader::ReadBytes(std::string& bytes)
{
    if (block.empty() && !atEnd && !Fill())
        return false;
    bytes = std::move(block);
    block.clear();
    return true;
}
