#include <gtest/gtest.h>

#include <string>

#include "functions/arguments.h"
#include "functions/families.h"
#include "lang/errors.h"
#include "text/encoding.h"

namespace {

using Function = int (*)(FunctionCall& call);

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
        {Left_Function, u"hello,2", "he"},
        {Left_Function, u"hello,-2", "hel"},
        {Left_Function, u"hello,99", "hello"},
        {Left_Function, u"hello,-99", ""},
        {Left_Function, u"hello,0", ""},
        {Left_Function, u"a,b,c,3", "a,b"}, // surplus commas belong to the text
        {Left_Function, u"\"a,b\",2", "\"a"},
        {Left_Function, u"hello", "!3005"},
        {Left_Function, u"hello,x", "!3006"},
        {Left_Function, u"hello,0x2", "he"},
        {Left_Function, u"hello, 2 ", "he"},
        {Right_Function, u"hello,2", "lo"},
        {Right_Function, u"hello,-2", "llo"},
        {Right_Function, u"hello,99", "hello"},
        {Right_Function, u"hello,-99", ""},
        {Right_Function, u"hello,0", ""},
        {Right_Function, u"hello,-9223372036854775808", ""},
        {Substr_Function, u"hello,1", "ello"},
        {Substr_Function, u"hello,1,2", "el"},
        {Substr_Function, u"hello,-3,2", "ll"},
        {Substr_Function, u"hello,1,-1", "ell"},
        {Substr_Function, u"hello,9", ""},
        {Substr_Function, u"hello,-9,1", "h"},
        {Substr_Function, u"a,b,1,2", ",b"},
        {Substr_Function, u"a,b,1", ",b"}, // "b" is no number: the comma belongs to the text
        {Insert_Function, u"ac,1,b", "abc"},
        {Insert_Function, u"ab,2,c", "abc"},
        {Insert_Function, u"ac,-1,b", "abc"},
        {Insert_Function, u"ab,99,c", "abc"},
        {Repeat_Function, u"ab,3", "ababab"},
        {Repeat_Function, u"ab,0", ""},
        {Repeat_Function, u"ab,-1", "!3006"},
        {Repeat_Function, u"ab,9999999999", "!3088"},
        {Repeat_Function, u",9999999999", ""},
        {Reverse_Function, u"abc", "cba"},
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
        {Upper_Function, u"abc ä", "ABC Ä"},
        {Lower_Function, u"ABC Ä", "abc ä"},
        {Caps_Function, u"the quick bROWN", "The Quick BROWN"},
        {Caps_Function, u"a-b c,\"-\"", "A-B c"},
        {Caps_Function, u"one,two", "One,Two"},
        {Replace_Function, u"hello,l,LL", "heLLLLo"},
        {Replace_Function, u"hello,L,", "heo"},
        {Replace_Function, u"a,b,c,\",\",;", "a;b;c"},
        {Replace_Function, u"hello,,x", "hello"},
        {Replace_Function, u"a b,\" \",_", "a_b"},
        {Strip_Function, u"a.b,c.,\".,\"", "abc"},
        {Trim_Function, u"  a b \t", "a b"},
        {Trim_Function, u"xxaxx,\"x\"", "a"},
        {Trim_Function, u"a,b", "a,b"},
        {Ltrim_Function, u"  a ", "a "},
        {Rtrim_Function, u" a  ", " a"},
        {Trim_Function, u"   ", ""},
        {Trimall_Function, u"  a   b\t\tc ", "a b c"},
        {Quote_Function, u"a b", "\"a b\""},
        {Quote_Function, u"ab", "ab"},
        {Unquote_Function, u"\"a b\"", "a b"},
        {Unquotes_Function, u"\"a\" \"b\"", "a b"},
        {Format_Function, u"ab,5", "   ab"},
        {Format_Function, u"ab,-5", "ab   "},
        {Format_Function, u"7,03", "007"},
        {Format_Function, u"abcdef,4.2", "  ab"},
        {Format_Function, u"abcdef,.2", "ab"},
        {Format_Function, u"abcdef,2", "abcdef"},
        {Format_Function, u"abc,x", "!3006"},
        {Format_Function, u"abc,9999999999", "!3088"},
    };
    CheckAll(cases);
}

TEST(Functions, Finding)
{
    const Case cases[] = {
        {Index_Function, u"banana,an", "1"},    {Index_Function, u"banana,AN", "1"},
        {Index_Function, u"banana,an,1", "3"},  {Index_Function, u"banana,an,-1", "3"},
        {Index_Function, u"banana,an,2", "-1"}, {Index_Function, u"banana,x", "-1"},
        {Index_Function, u"a,b,c,\",\"", "1"},  {Index_Function, u"banana,", "-1"},
        {Count_Function, u"banana,an", "2"},    {Count_Function, u"aaaa,aa", "2"},
        {Count_Function, u"banana,", "0"},      {Count_Function, u"banana", "!3005"},
    };
    CheckAll(cases);
}

TEST(Functions, Words)
{
    const Case cases[] = {
        {Word_Function, u"one two three,0", "one"},
        {Word_Function, u"one two three,2", "three"},
        {Word_Function, u"one two three,-1", "three"},
        {Word_Function, u"one two three,3", ""},
        {Word_Function, u"one two three,-4", ""},
        {Word_Function, u"a, b,c,1", "b"},
        {Word_Function, u"a b;c d,1,\";\"", "c d"},
        {Word_Function, u"\"a b\" c,0", "\"a b\""},
        {Word_Function, u"one two", "!3005"},
        {Words_Function, u"one  two,three", "3"},
        {Words_Function, u"", "0"},
        {Words_Function, u"a;b;;c,\";\"", "3"},
        {Field_Function, u"a,,c,1", ""},
        {Field_Function, u"a,,c,2", "c"},
        {Field_Function, u"a::b,2,\":\"", "b"},
        {Fields_Function, u"a,,c", "3"},
        {Fields_Function, u"", "0"},
        {Fields_Function, u"a:b:,\":\"", "3"},
    };
    CheckAll(cases);
}

TEST(Functions, Characters)
{
    const Case cases[] = {
        {Ascii_Function, u"aB", "97 66"},
        {Asciix_Function, u"a\n", "61 0A"},
        {Unicode_Function, u"é😀", "233 128512"},
        {Unicodex_Function, u"a", "0061"},
        {Char_Function, u"72 105", "Hi"},
        {Char_Function, u"0x48,128512", "H😀"},
        {Char_Function, u"0", "!3006"},
        {Char_Function, u"1114112", "!3006"},
        {Char_Function, u"x", "!3006"},
        {Char_Function, u"", "!3005"},
        {Isalpha_Function, u"abcÄ", "1"},
        {Isalpha_Function, u"abc1", "0"},
        {Isalpha_Function, u"", "0"},
        {Isalnum_Function, u"abc1", "1"},
        {Isdigit_Function, u"0123", "1"},
        {Digits_Function, u"12.3", "0"},
        {Isxdigit_Function, u"09afAF", "1"},
        {Isxdigit_Function, u"0g", "0"},
        {Islower_Function, u"abc", "1"},
        {Islower_Function, u"aB", "0"},
        {Isupper_Function, u"AB", "1"},
        {Isspace_Function, u" \t", "1"},
        {Ispunct_Function, u".,!", "1"},
        {Ispunct_Function, u"a.", "0"},
        {Isprint_Function, u"a b", "1"},
        {Isprint_Function, u"a\tb", "0"},
        {Iscntrl_Function, u"\x01\x1f", "1"},
        {Isascii_Function, u"aä", "0"},
        {Talnum_Function, u"a-1 b", "a1b"},
        {Tdigit_Function, u"a1b2", "12"},
        {Tupper_Function, u"aBcD", "BD"},
        {Tpunct_Function, u"a.b,c", ".,"},
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

// Whatever a function is given, it answers.
TEST(Functions, AbsurdArguments)
{
    const Function functions[] = {
        Left_Function,    Right_Function,   Substr_Function,   Insert_Function, Repeat_Function,
        Reverse_Function, Len_Function,     Upper_Function,    Caps_Function,   Replace_Function,
        Strip_Function,   Trim_Function,    Ltrim_Function,    Rtrim_Function,  Trimall_Function,
        Quote_Function,   Unquote_Function, Unquotes_Function, Format_Function, Index_Function,
        Count_Function,   Word_Function,    Words_Function,    Field_Function,  Fields_Function,
        Ascii_Function,   Char_Function,    Isalpha_Function,  Talnum_Function,
    };
    const std::u16string huge(65536, u'x');
    const std::u16string commas(65536, u',');
    const std::u16string_view absurd[] = {
        u"",           u",",
        u",,,,,,,,,",  u"\"",
        u"\"\"",       u"`",
        u"^",          u"a,b,c,d,e,f,g,h,i,j,k",
        u"x,-1,-1,-1", u"x,99999999999999999999,99999999999999999999",
        huge,          commas,
        u"[]()%",      u"\"a,1",
        u"x,0x,\"",    {u"a\0b,1", 5},
    };
    for (const Function function : functions) {
        for (const std::u16string_view arguments : absurd)
            EXPECT_LE(Call(function, arguments).size(), 4000000u);
    }
}

} // namespace
