#include <gtest/gtest.h>

#include <string>

#include "functions/arguments.h"
#include "functions/families.h"
#include "lang/errors.h"
#include "text/encoding.h"

namespace {

using Function = int (*)(FunctionCall& call);

// What the examples of docs/reference, which are run, do not tell already.
struct Case {
    Function function;
    const char16_t* arguments;
    const char* expected; // a value, or "!" and the number of the message
};

std::string Call(Function function, std::u16string_view arguments)
{
    CString value;
    const Syntax syntax;
    FunctionCall call{arguments, value, syntax};
    const int answer = function(call);
    return answer > 0 ? "!" + std::to_string(MessageNumber(static_cast<unsigned>(answer))) : ToUtf8(value);
}

template <std::size_t n> void CheckAll(const Case (&cases)[n])
{
    for (const Case& test : cases)
        EXPECT_EQ(Call(test.function, test.arguments), test.expected) << ToUtf8(CString(test.arguments));
}

TEST(Functions, Cutting)
{
    const Case cases[] = {
        {Left_Function, u"hello,99", "hello"},
        {Left_Function, u"hello,-99", ""},
        {Left_Function, u"hello,0", ""},
        {Left_Function, u"\"a,b\",2", "\"a"},
        {Left_Function, u"hello", "!3005"},
        {Left_Function, u"hello,x", "!3006"},
        {Left_Function, u"hello,0x2", "he"},
        {Left_Function, u"hello, 2 ", "he"},
        {Right_Function, u"hello,99", "hello"},
        {Right_Function, u"hello,-99", ""},
        {Right_Function, u"hello,0", ""},
        {Right_Function, u"hello,-9223372036854775808", ""},
        {Substr_Function, u"hello,9", ""},
        {Substr_Function, u"hello,-9,1", "h"},
        {Substr_Function, u"a,b,1,2", ",b"},
        {Substr_Function, u"a,b,1", ",b"}, // "b" is no number: the comma belongs to the text
        {Insert_Function, u"ab,99,c", "abc"},
        {Repeat_Function, u"ab,0", ""},
        {Repeat_Function, u"ab,-1", "!3006"},
        {Repeat_Function, u"ab,9999999999", "!3088"},
        {Repeat_Function, u",9999999999", ""},
        {Reverse_Function, u"", ""},
        {Reverse_Function, u"a😀b", "b😀a"},
    };
    CheckAll(cases);
}

TEST(Functions, Changing)
{
    const Case cases[] = {
        {Len_Function, u"a[b]c", "5"},
        {Len_Function, u"", "0"},
        {Caps_Function, u"one,two", "One,Two"},
        {Replace_Function, u"hello,L,", "heo"},
        {Replace_Function, u"a,b,c,\",\",;", "a;b;c"},
        {Replace_Function, u"hello,,x", "hello"},
        {Strip_Function, u"a.b,c.,\".,\"", "abc"},
        {Trim_Function, u"  a b \t", "a b"},
        {Trim_Function, u"a,b", "a,b"},
        {Trim_Function, u"   ", ""},
        {Trimall_Function, u"  a   b\t\tc ", "a b c"},
        {Format_Function, u"abcdef,4.2", "  ab"},
        {Format_Function, u"abcdef,2", "abcdef"},
        {Format_Function, u"abc,x", "!3006"},
        {Format_Function, u"abc,9999999999", "!3088"},
    };
    CheckAll(cases);
}

TEST(Functions, Finding)
{
    const Case cases[] = {
        {Index_Function, u"banana,AN", "1"}, {Index_Function, u"banana,an,2", "-1"},
        {Index_Function, u"banana,", "-1"},  {Index_Function, u"a,b,c,\",\"", "1"},
        {Count_Function, u"banana,", "0"},   {Count_Function, u"banana", "!3005"},
    };
    CheckAll(cases);
}

TEST(Functions, Words)
{
    const Case cases[] = {
        {Word_Function, u"one two three,3", ""}, {Word_Function, u"one two three,-4", ""},
        {Word_Function, u"a, b,c,1", "b"},       {Word_Function, u"\"a b\" c,0", "\"a b\""},
        {Word_Function, u"one two", "!3005"},    {Words_Function, u"", "0"},
        {Field_Function, u"a,,c,1", ""},         {Field_Function, u"a,,c,2", "c"},
        {Fields_Function, u"a,,c", "3"},         {Fields_Function, u"", "0"},
    };
    CheckAll(cases);
}

TEST(Functions, Characters)
{
    const Case cases[] = {
        {Asciix_Function, u"a\n", "61 0A"},    {Unicode_Function, u"é😀", "233 128512"},
        {Char_Function, u"0x48,128512", "H😀"}, {Char_Function, u"0", "!3006"},
        {Char_Function, u"1114112", "!3006"},  {Char_Function, u"x", "!3006"},
        {Char_Function, u"", "!3005"},         {Isalpha_Function, u"abcÄ", "1"},
        {Isalpha_Function, u"abc1", "0"},      {Isalpha_Function, u"", "0"},
        {Isxdigit_Function, u"09afAF", "1"},   {Isxdigit_Function, u"0g", "0"},
        {Islower_Function, u"aB", "0"},        {Isupper_Function, u"AB", "1"},
        {Isspace_Function, u" \t", "1"},       {Ispunct_Function, u".,!", "1"},
        {Ispunct_Function, u"a.", "0"},        {Isprint_Function, u"a\tb", "0"},
        {Iscntrl_Function, u"\x01\x1f", "1"},  {Isascii_Function, u"aä", "0"},
    };
    CheckAll(cases);
}

TEST(Functions, ArgumentSplitting)
{
    const struct {
        const char16_t* text;
        std::vector<std::string> pieces;
    } cases[] = {
        {u"", {""}},
        {u"a", {"a"}},
        {u"a,b", {"a", "b"}},
        {u",", {"", ""}},
        {u"\"a,b\",c", {"\"a,b\"", "c"}},
        {u"`a,b`,c", {"`a,b`", "c"}},
        {u"a^,b,c", {"a^,b", "c"}},
        {u"it\"s,b", {"it\"s", "b"}},
        {u"a^", {"a^"}},
    };
    for (const auto& test : cases) {
        std::vector<std::string> pieces;
        for (const std::u16string_view piece : SplitFunctionArguments(test.text, Syntax()))
            pieces.push_back(ToUtf8(piece));
        EXPECT_EQ(pieces, test.pieces) << ToUtf8(CString(test.text));
    }
}

} // namespace
