// Array variables: up to 100 arrays of one to four dimensions, their elements texts. Pure; the engine's own
// table is ArrayVariables() of lists.h.
//
// Small arrays keep their elements in a row, large ones only those that hold something. An element that was
// never set, or was set to nothing, is empty.
#pragma once

#include <cstdint>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "text/cstring.h"
#include "text/syntax.h"

constexpr int maximumArrays = 100;
constexpr int maximumDimensions = 4;

enum class ArrayStatus {
    Ok,
    NotAnArray,
    BadIndex, // negative, missing, too many or out of range
    TableFull,
    Failed, // an index could not be calculated; reported already
};

// Calculates one index in place; 0, or the code of an error that it reported.
using IndexEvaluator = int (*)(CString& expression);

struct ArrayIndexes {
    int count = 0;
    std::int64_t values[maximumDimensions] = {};
};

struct ARRAYS {
    CString name; // empty: the record is free
    ArrayIndexes sizes;
    std::vector<CString> row; // all elements, the last dimension running fastest; empty in a large array
    std::unordered_map<std::uint64_t, CString> sparse;
};

// Whether an array may be named so.
bool IsArrayName(std::u16string_view name);

// Takes "name[i,j]" apart; false when it is not of this form. The parts are views of the text.
bool SplitArrayElement(std::u16string_view text, std::u16string_view& name, std::u16string_view& indexes);

// Calculates the indexes of "i,j,k,l". Fractions are dropped.
ArrayStatus ReadArrayIndexes(std::u16string_view text, IndexEvaluator evaluate, const Syntax& syntax,
                             ArrayIndexes& indexes);

class ArrayTable {
public:
    ArrayTable() : records(maximumArrays) {}

    int Find(std::u16string_view name) const; // 0 to 99, or -1
    const ARRAYS& At(int index) const { return records[static_cast<std::size_t>(index)]; }

    // Makes an array of these sizes, in the place of one of the same name.
    ArrayStatus Define(std::u16string_view name, const ArrayIndexes& sizes);
    bool Remove(std::u16string_view name);

    ArrayStatus Get(std::u16string_view name, const ArrayIndexes& indexes, CString& value) const;
    ArrayStatus Set(std::u16string_view name, const ArrayIndexes& indexes, std::u16string_view value);

private:
    std::vector<ARRAYS> records;
};
