#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "batch/packed_text.h"

namespace {

std::string Word(unsigned value) { return {static_cast<char>(value & 255), static_cast<char>(value >> 8)}; }

// The table of the tests: entry i is the letter 'A' + i.
std::string Table()
{
    std::string table;
    for (char c = 'A'; table.size() < 30; ++c)
        table.push_back(c);
    return table;
}

// The table as it must stand in a file so that unscrambling gives Table(): byte i was replaced by byte i xor
// byte i + 1, in rising order, so each stored byte is the wanted one xor the stored next.
std::string ScrambledTable()
{
    std::string table = Table();
    for (std::size_t i = table.size() - 1; i-- > 0;)
        table[i] = static_cast<char>(table[i] ^ table[i + 1]);
    return table;
}

std::string Unpacked(const std::string& file, UnpackResult expected = UnpackResult::Done)
{
    std::vector<char> text;
    EXPECT_EQ(UnpackText(file, text), expected);
    return {text.begin(), text.end()};
}

// Codes 2 F 1-0 1-F 0-1-6: table entries 0, 13, 14, 29, then the literal 0x61.
const std::string stream = {'\x2F', '\x10', '\x1F', '\x01', '\x60'};
const std::string streamText = "ANO^a";

TEST(PackedText, BothForms)
{
    EXPECT_EQ(Unpacked(Word(0xBEEB) + Word(5) + Table() + stream), streamText);
    EXPECT_EQ(Unpacked(Word(0xEBBE) + Word(1) + Word(5) + ScrambledTable() + stream), streamText);
}

TEST(PackedText, PackingRoundTrips)
{
    for (std::size_t length = 0; length < 300; ++length) {
        std::string text;
        for (std::size_t i = 0; i < length; ++i)
            text.push_back(static_cast<char>(i % 7 == 0 ? i * 31 : 'a' + i % 20));
        // Multiples of 17 below 256 would read as keyed.
        const bool keyedLength = length < 256 && length % 17 == 0;
        EXPECT_EQ(Unpacked(PackText(text, TableForm::Plain, "\n")), text + (keyedLength ? "\n" : ""))
            << length;
        EXPECT_EQ(Unpacked(PackText(text, TableForm::Scrambled, "\n")), text) << length;
    }
}

TEST(PackedText, LengthDecidesWhereTheTextEnds)
{
    EXPECT_EQ(Unpacked(Word(0xBEEB) + Word(3) + Table() + stream), "ANO");
}

TEST(PackedText, KeyedFilesAreRefused)
{
    Unpacked(Word(0xEBBE) + Word(0) + Word(5) + ScrambledTable() + stream, UnpackResult::Keyed);
    Unpacked(Word(0xEBBE) + Word(0x33) + Word(5) + ScrambledTable() + stream, UnpackResult::Keyed);
    Unpacked(Word(0xBEEB) + Word(17) + Table() + std::string(40, '\x22'), UnpackResult::Keyed);
}

TEST(PackedText, CutAtEveryByte)
{
    const std::string whole = Word(0xBEEB) + Word(5) + Table() + stream;
    for (std::size_t length = 0; length < whole.size(); ++length) {
        std::vector<char> text;
        const UnpackResult expected = length < 2 ? UnpackResult::NotPacked : UnpackResult::Damaged;
        EXPECT_EQ(UnpackText(std::string_view(whole).substr(0, length), text), expected) << length;
        EXPECT_TRUE(text.empty());
    }
}

TEST(PackedText, PlainTextIsLeftAlone) { Unpacked("@echo off\r\n", UnpackResult::NotPacked); }

} // namespace
