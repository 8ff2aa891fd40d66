#include "expand/arrays.h"

#include <gtest/gtest.h>

#include "expand/typed_value.h"
#include "text/format.h"

namespace {

// Knows "two", "twice(n)" and numbers as they stand; anything else fails.
int FakeEvaluator(CString& expression)
{
    if (expression == u"two") {
        expression = u"2";
        return 0;
    }
    if (expression == u"f(1,2)" || expression == u"a[1,2]") {
        expression = u"7";
        return 0;
    }
    return expression[0] == u'!' ? 2 : 0;
}

TEST(Arrays, ReadsIndexes)
{
    struct Row {
        const char16_t* text;
        ArrayStatus status;
        std::vector<std::int64_t> values;
    };
    const Row rows[] = {
        {u"3", ArrayStatus::Ok, {3}},
        {u" 1 , two ,3,4 ", ArrayStatus::Ok, {1, 2, 3, 4}},
        {u"f(1,2),a[1,2]", ArrayStatus::Ok, {7, 7}},
        {u"2.9", ArrayStatus::Ok, {2}},
        {u"-1", ArrayStatus::Ok, {-1}},
        {u"010", ArrayStatus::Ok, {10}},
        {u"1,2,3,4,5", ArrayStatus::BadIndex, {}},
        {u"", ArrayStatus::BadIndex, {}},
        {u"1,", ArrayStatus::BadIndex, {}},
        {u",1", ArrayStatus::BadIndex, {}},
        {u"word", ArrayStatus::BadIndex, {}},
        {u"1,!", ArrayStatus::Failed, {}},
        {u"f(1,2", ArrayStatus::BadIndex, {}},
    };
    for (const Row& row : rows) {
        ArrayIndexes indexes;
        ASSERT_EQ(ReadArrayIndexes(row.text, FakeEvaluator, Syntax(), indexes), row.status);
        if (row.status == ArrayStatus::Ok) {
            EXPECT_EQ(std::vector<std::int64_t>(indexes.values, indexes.values + indexes.count), row.values);
        }
    }
}

TEST(Arrays, TakesElementsApart)
{
    std::u16string_view name, indexes;
    ASSERT_TRUE(SplitArrayElement(u"a[1,b[2]]", name, indexes));
    EXPECT_EQ(name, u"a");
    EXPECT_EQ(indexes, u"1,b[2]");
    for (const char16_t* text : {u"a", u"", u"[1]", u"a[1", u"a]", u"a[1]x"})
        EXPECT_FALSE(SplitArrayElement(text, name, indexes));
}

TEST(Arrays, KeepsEveryElementApart)
{
    // The second is too large to be kept as a row.
    for (const ArrayIndexes& sizes : {ArrayIndexes{3, {3, 4, 5}}, ArrayIndexes{3, {3, 400000, 500000}}}) {
        ArrayTable table;
        ASSERT_EQ(table.Define(u"Cube", sizes), ArrayStatus::Ok);
        auto each = [](auto&& act) {
            for (std::int64_t i = 0; i < 3; ++i)
                for (std::int64_t j = 0; j < 4; ++j)
                    for (std::int64_t k = 0; k < 5; ++k)
                        act(ArrayIndexes{3, {i, j, k}}, Format(u"%d-%d-%d", i, j, k));
        };
        each([&](const ArrayIndexes& at, const CString& text) {
            EXPECT_EQ(table.Set(u"cube", at, text), ArrayStatus::Ok);
        });
        each([&](const ArrayIndexes& at, const CString& text) {
            CString value;
            EXPECT_EQ(table.Get(u"CUBE", at, value), ArrayStatus::Ok);
            EXPECT_EQ(value, text);
        });
        CString value(u"old");
        EXPECT_EQ(table.Set(u"cube", {3, {1, 1, 1}}, u""), ArrayStatus::Ok);
        EXPECT_EQ(table.Get(u"cube", {3, {1, 1, 1}}, value), ArrayStatus::Ok);
        EXPECT_TRUE(value.empty());
        for (const ArrayIndexes& bad : {ArrayIndexes{3, {3, 0, 0}}, ArrayIndexes{3, {0, -1, 0}},
                                        ArrayIndexes{2, {0, 0}}, ArrayIndexes{4, {0, 0, 0, 0}}})
            EXPECT_EQ(table.Get(u"cube", bad, value), ArrayStatus::BadIndex);
    }
}

TEST(Arrays, HoldsAHundred)
{
    ArrayTable table;
    for (int i = 0; i < 100; ++i)
        ASSERT_EQ(table.Define(Format(u"a%d", i), {1, {2}}), ArrayStatus::Ok);
    EXPECT_EQ(table.Define(u"more", {1, {2}}), ArrayStatus::TableFull);
    EXPECT_EQ(table.Find(u"A99"), 99);
    CString value;
    EXPECT_EQ(table.Set(u"a5", {1, {0}}, u"x"), ArrayStatus::Ok);
    EXPECT_EQ(table.Define(u"A5", {2, {3, 3}}), ArrayStatus::Ok); // again: empty, in its old place
    EXPECT_EQ(table.Get(u"a5", {2, {0, 0}}, value), ArrayStatus::Ok);
    EXPECT_TRUE(value.empty());
    EXPECT_EQ(table.Find(u"a5"), 5);
    EXPECT_TRUE(table.Remove(u"a5"));
    EXPECT_FALSE(table.Remove(u"a5"));
    EXPECT_EQ(table.Get(u"a5", {1, {0}}, value), ArrayStatus::NotAnArray);
    EXPECT_EQ(table.Define(u"more", {1, {2}}), ArrayStatus::Ok);
    EXPECT_EQ(table.Find(u"more"), 5);
}

TEST(Arrays, RefusesImpossibleSizes)
{
    ArrayTable table;
    constexpr std::int64_t large = std::int64_t{1} << 40;
    for (const ArrayIndexes& sizes : {ArrayIndexes{0, {}}, ArrayIndexes{1, {0}}, ArrayIndexes{2, {3, -1}},
                                      ArrayIndexes{4, {large, large, large, large}}})
        EXPECT_EQ(table.Define(u"a", sizes), ArrayStatus::BadIndex);
    EXPECT_EQ(table.Find(u"a"), -1);
    EXPECT_EQ(table.Find(u""), -1);
}

TEST(TypedValue, ChecksValues)
{
    struct Row {
        const char16_t* type;
        const char16_t* value;
        TypeCheck result;
    };
    const Row rows[] = {
        {u"integer", u"-0x1F", TypeCheck::Fits},
        {u"Int", u"12", TypeCheck::Fits},
        {u"integer", u"12x", TypeCheck::DoesNotFit},
        {u"integer", u"1.5", TypeCheck::DoesNotFit},
        {u"number", u"-1.5e-3", TypeCheck::Fits},
        {u"number", u".5", TypeCheck::Fits},
        {u"number", u"1.", TypeCheck::Fits},
        {u"number", u".", TypeCheck::DoesNotFit},
        {u"number", u"1e", TypeCheck::DoesNotFit},
        {u"number", u"1.2.3", TypeCheck::DoesNotFit},
        {u"boolean", u"Yes", TypeCheck::Fits},
        {u"boolean", u"2", TypeCheck::DoesNotFit},
        {u"char", u"x", TypeCheck::Fits},
        {u"char", u"xy", TypeCheck::DoesNotFit},
        {u"path", u"C:\\a b\\c.txt", TypeCheck::Fits},
        {u"path", u"a|b", TypeCheck::DoesNotFit},
        {u"text", u"<>|", TypeCheck::Fits},
        {u"colour", u"red", TypeCheck::UnknownType},
        {u"", u"x", TypeCheck::UnknownType},
    };
    for (const Row& row : rows)
        EXPECT_EQ(CheckValueType(row.type, row.value), row.result) << CString(row.value).size();
}

} // namespace
