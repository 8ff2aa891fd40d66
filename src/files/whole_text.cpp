#include "files/whole_text.h"

#include <cstring>

#include "platform/codepage.h"

namespace {

constexpr std::string_view utf8Mark = "\xEF\xBB\xBF";
constexpr std::string_view utf16Mark = "\xFF\xFE";

} // namespace

CString DecodeWhole(std::string_view bytes, const RecognisedEncoding& found, unsigned codePage)
{
    bytes.remove_prefix(found.markLength);
    if (found.encoding == TextEncoding::Utf8)
        return FromUtf8(bytes);
    if (found.encoding == TextEncoding::CodePage)
        return FromCodePage(bytes, codePage);
    CString text;
    std::memcpy(text.Edit(bytes.size() / 2), bytes.data(), bytes.size() & ~std::size_t{1});
    text.SetLength(bytes.size() / 2);
    return text;
}

std::string EncodeWhole(const CString& text, const RecognisedEncoding& wanted, unsigned codePage)
{
    const bool marked = wanted.markLength > 0;
    if (wanted.encoding == TextEncoding::Utf16) {
        std::string bytes(marked ? utf16Mark : "");
        return bytes.append(reinterpret_cast<const char*>(text.c_str()), text.size() * sizeof(char16_t));
    }
    if (wanted.encoding == TextEncoding::CodePage) {
        std::string bytes = ToCodePage(text, codePage);
        if (FromCodePage(bytes, codePage) == text)
            return bytes;
        return std::string(utf8Mark) + ToUtf8(text);
    }
    return std::string(marked ? utf8Mark : "") + ToUtf8(text);
}
