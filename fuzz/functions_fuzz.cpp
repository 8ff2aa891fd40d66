// Functions that only compute: the first byte names one, the rest is its argument text. Whatever stands
// there, the answer is a value of bounded size or a positive code, and what was encoded is decoded again.
#include <cstdint>
#include <cstdlib>
#include <iterator>
#include <string>

#include "commands/checksum_lines.h"
#include "commands/printf_format.h"
#include "engine/country.h"
#include "engine/inifile.h"
#include "expand/expansion.h"
#include "files/byte_coding.h"
#include "functions/families.h"
#include "platform/clock.h"
#include "text/encoding.h"
#include "text/punycode.h"
#include "text/uuid.h"
#include "text/web_text.h"

// The world as the functions ask for it.
INIFILE aIniFile = {};
NationalSettings Country() { return {}; }
ClockTime LocalTime() { return {2026, 1, 31, 6, 14, 5, 9, 0}; }
std::uint64_t LocalFileTime(std::uint64_t universal) { return universal; }
std::uint64_t UniversalFileTime(std::uint64_t local) { return local; }
CString WeekdayName(int, bool) { return u"Saturday"; }

namespace {

using Function = int (*)(FunctionCall& call);

constexpr Function functions[] = {
    Caps_Function,       Left_Function,       Right_Function,      Substr_Function,     Index_Function,
    Count_Function,      Insert_Function,     Replace_Function,    Strip_Function,      Filter_Function,
    Trim_Function,       Trimall_Function,    Repeat_Function,     Reverse_Function,    Format_Function,
    Parse_Function,      Word_Function,       Words_Function,      Field_Function,      Fields_Function,
    Ascii_Function,      Char_Function,       Unicodex_Function,   Regex_Function,      Regexindex_Function,
    Regexsub_Function,   Rereplace_Function,  Similar_Function,    Lcs_Function,        Version_Function,
    Isprime_Function,    Prime_Function,      Date_Function,       Makedate_Function,   Dateconv_Function,
    Datefmt_Function,    Dow_Function,        Doy_Function,        Isoweek_Function,    Time_Function,
    Maketime_Function,   Makeage_Function,    Agedate_Function,    Urlencode_Function,  Urldecode_Function,
    Htmlencode_Function, Htmldecode_Function, Punyencode_Function, Punydecode_Function,
};

void Require(bool sound)
{
    if (!sound)
        std::abort();
}

void RequireSound(Function function, std::u16string_view arguments)
{
    CString value;
    const Syntax syntax;
    FunctionCall call{arguments, value, syntax};
    const int answer = function(call);
    Require(answer >= 0 || answer == function_result::neverRescan);
    // An escape is six times as long as its character.
    Require(value.size() <= longestExpansion + 10 * arguments.size());
}

std::string Run(ByteCoder& coder, std::string_view input, std::size_t piece, bool& sound)
{
    std::string output;
    for (std::size_t at = 0; at < input.size() && sound; at += piece)
        sound = coder.Feed(input.substr(at, piece), output);
    sound = sound && coder.Finish(output);
    return output;
}

// However the bytes are cut into pieces, they come back as they were.
void RequireRoundTrip(std::string_view bytes, std::size_t piece)
{
    for (const ByteCoding coding : {ByteCoding::Base64, ByteCoding::Hex, ByteCoding::QuotedPrintable,
                                    ByteCoding::Uu, ByteCoding::Yenc}) {
        for (const bool lines : {false, true}) {
            bool sound = true;
            const std::string coded =
                Run(*MakeEncoder(coding, {lines, "name", bytes.size()}), bytes, piece, sound);
            Require(sound && Run(*MakeDecoder(coding), coded, piece, sound) == bytes && sound);
        }
        bool ignored = true;
        Run(*MakeDecoder(coding), bytes, piece, ignored);
    }
}

void RequireTextsBack(const CString& text)
{
    Require(DecodeUrl(EncodeUrl(text)) == text && DecodeHtml(EncodeHtml(text)) == text);
    if (const auto uuid = ParseUuid(text))
        Require(ParseUuid(FormatUuid(*uuid)) == uuid);
    ReadChecksumLine(text);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    if (size < 2 || size > 512)
        return 0;
    const std::string bytes(data + 1, data + size);
    const CString text = FromUtf8(bytes);
    RequireSound(functions[data[0] % std::size(functions)], text);
    RequireRoundTrip(bytes, data[0] % 7 + 1);
    RequireTextsBack(text);
    const PrintfAnswer printed = FormatPrintf(text, SplitPrintfWords(text));
    Require(printed.text.size() < 20'000'000);
    return 0;
}
