// Character codes and character classes.
#include "functions/families.h"

#include <algorithm>

#include "functions/arguments.h"
#include "lang/errors.h"
#include "text/code_points.h"
#include "text/compare.h"
#include "text/format.h"

namespace {

using View = std::u16string_view;
using Predicate = bool (*)(char16_t unit);

bool IsAscii(char16_t unit) { return unit < 0x80; }
bool IsControl(char16_t unit) { return unit < 0x20 || (unit >= 0x7F && unit < 0xA0); }
bool IsSpace(char16_t unit) { return unit == u' ' || (unit >= u'\t' && unit <= u'\r') || unit == 0xA0; }
bool IsPrintable(char16_t unit) { return !IsControl(unit); }
bool IsPunctuation(char16_t unit) { return IsPrintable(unit) && !IsSpace(unit) && !IsLetterOrDigit(unit); }
bool IsLower(char16_t unit) { return UpperCase(unit) != unit; }
bool IsUpper(char16_t unit) { return LowerCase(unit) != unit; }
bool IsDigitUnit(char16_t unit) { return IsDigit(unit); }
bool IsHexDigit(char16_t unit) { return HexDigit(unit) >= 0; }

// 1 when the text is not empty and all of its characters are of the class.
int AnswerAll(FunctionCall& call, Predicate is)
{
    const View text = call.arguments;
    call.value = !text.empty() && std::all_of(text.begin(), text.end(), is) ? u"1" : u"0";
    return 0;
}

// The characters of the class alone.
int AnswerFiltered(FunctionCall& call, Predicate is)
{
    call.value.Clear();
    for (const char16_t unit : call.arguments) {
        if (is(unit))
            call.value.Append(unit);
    }
    return 0;
}

// The code points of the text, each printed by the pattern.
int AnswerCodes(FunctionCall& call, View pattern)
{
    const View text = call.arguments;
    call.value.Clear();
    for (std::size_t at = 0; at < text.size(); ++at) {
        const std::uint32_t code = CodePointAt(text, at);
        if (!call.value.empty())
            call.value.Append(u' ');
        FormatInto(call.value, pattern, {code});
    }
    return 0;
}

} // namespace

// @ascii, @unicode[text]: the code of each character, parted by blanks; @asciix, @unicodex in hexadecimal.
int Ascii_Function(FunctionCall& call) { return AnswerCodes(call, u"%u"); }
int Asciix_Function(FunctionCall& call) { return AnswerCodes(call, u"%02X"); }
int Unicode_Function(FunctionCall& call) { return AnswerCodes(call, u"%u"); }
int Unicodex_Function(FunctionCall& call) { return AnswerCodes(call, u"%04X"); }

// @char, @unichar[n n n]: the characters of these codes.
int Char_Function(FunctionCall& call)
{
    CString text;
    View rest = call.arguments;
    for (;;) {
        const std::size_t start = rest.find_first_not_of(u" \t,");
        if (start == View::npos)
            break;
        const std::size_t end = std::min(rest.find_first_of(u" \t,", start), rest.size());
        std::int64_t code = 0;
        if (!ReadNumberArgument(rest.substr(start, end - start), code) || code < 1 || code > 0x10FFFF)
            return static_cast<int>(errors::invalidNumber);
        AppendCodePoint(text, static_cast<std::uint32_t>(code));
        rest.remove_prefix(end);
    }
    if (text.empty())
        return static_cast<int>(errors::missingArgument);
    call.value = text;
    // Someone who asks for "%" by its code does not want it expanded.
    return function_result::neverRescan;
}

// @isalnum[text] and its like: 1 when all characters are of the class, else 0.
int Isalnum_Function(FunctionCall& call) { return AnswerAll(call, IsLetterOrDigit); }
int Isalpha_Function(FunctionCall& call) { return AnswerAll(call, IsLetter); }
int Isascii_Function(FunctionCall& call) { return AnswerAll(call, IsAscii); }
int Iscntrl_Function(FunctionCall& call) { return AnswerAll(call, IsControl); }
int Isdigit_Function(FunctionCall& call) { return AnswerAll(call, IsDigitUnit); }
int Islower_Function(FunctionCall& call) { return AnswerAll(call, IsLower); }
int Isprint_Function(FunctionCall& call) { return AnswerAll(call, IsPrintable); }
int Ispunct_Function(FunctionCall& call) { return AnswerAll(call, IsPunctuation); }
int Isspace_Function(FunctionCall& call) { return AnswerAll(call, IsSpace); }
int Isupper_Function(FunctionCall& call) { return AnswerAll(call, IsUpper); }
int Isxdigit_Function(FunctionCall& call) { return AnswerAll(call, IsHexDigit); }
// @digits[text]: 1 when the text consists of digits.
int Digits_Function(FunctionCall& call) { return AnswerAll(call, IsDigitUnit); }

// @talnum[text] and its like: the characters of the class alone.
int Talnum_Function(FunctionCall& call) { return AnswerFiltered(call, IsLetterOrDigit); }
int Talpha_Function(FunctionCall& call) { return AnswerFiltered(call, IsLetter); }
int Tascii_Function(FunctionCall& call) { return AnswerFiltered(call, IsAscii); }
int Tdigit_Function(FunctionCall& call) { return AnswerFiltered(call, IsDigitUnit); }
int Tlower_Function(FunctionCall& call) { return AnswerFiltered(call, IsLower); }
int Tprint_Function(FunctionCall& call) { return AnswerFiltered(call, IsPrintable); }
int Tpunct_Function(FunctionCall& call) { return AnswerFiltered(call, IsPunctuation); }
int Tspace_Function(FunctionCall& call) { return AnswerFiltered(call, IsSpace); }
int Tupper_Function(FunctionCall& call) { return AnswerFiltered(call, IsUpper); }
int Txdigit_Function(FunctionCall& call) { return AnswerFiltered(call, IsHexDigit); }
