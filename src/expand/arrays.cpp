#include "expand/arrays.h"

#include "text/compare.h"
#include "text/numbers.h"
#include "text/scanner.h"

namespace {

constexpr std::size_t npos = std::u16string_view::npos;
constexpr std::uint64_t longestRow = 0x10000; // elements; larger arrays are kept sparse
constexpr std::uint64_t mostElements = std::uint64_t{1} << 62;

// The number of elements, 0 when a size is not above 0 or there are more than can be counted.
std::uint64_t CountElements(const ArrayIndexes& sizes)
{
    std::uint64_t count = sizes.count > 0 ? 1 : 0;
    for (int i = 0; i < sizes.count; ++i) {
        const std::int64_t size = sizes.values[i];
        if (size <= 0 || count > mostElements / static_cast<std::uint64_t>(size))
            return 0;
        count *= static_cast<std::uint64_t>(size);
    }
    return count;
}

bool PlaceOf(const ARRAYS& array, const ArrayIndexes& indexes, std::uint64_t& place)
{
    place = 0;
    if (indexes.count != array.sizes.count)
        return false;
    for (int i = 0; i < indexes.count; ++i) {
        const std::int64_t index = indexes.values[i];
        if (index < 0 || index >= array.sizes.values[i])
            return false;
        place = place * static_cast<std::uint64_t>(array.sizes.values[i]) + static_cast<std::uint64_t>(index);
    }
    return true;
}

} // namespace

bool IsArrayName(std::u16string_view name)
{
    constexpr std::size_t longestName = 127;
    return !name.empty() && name.size() <= longestName &&
           name.find_first_of(u" <>|=.*?!@#$%^&[]") == std::u16string_view::npos;
}

bool SplitArrayElement(std::u16string_view text, std::u16string_view& name, std::u16string_view& indexes)
{
    const std::size_t open = text.find(u'[');
    if (open == 0 || open == npos || text.back() != u']')
        return false;
    name = text.substr(0, open);
    indexes = text.substr(open + 1, text.size() - open - 2);
    return true;
}

ArrayStatus ReadArrayIndexes(std::u16string_view text, IndexEvaluator evaluate, const Syntax& syntax,
                             ArrayIndexes& indexes)
{
    indexes.count = 0;
    for (std::size_t from = 0;;) {
        // An index may be an expression with brackets of its own: a function or another element.
        std::size_t comma = from;
        while (comma < text.size() && text[comma] != u',') {
            const bool opens = text[comma] == u'(' || text[comma] == u'[';
            const std::size_t closing = opens ? FindClosing(text, comma, quotes::back, syntax) : npos;
            comma = closing == npos ? comma + 1 : closing + 1;
        }
        CString expression(text.substr(from, comma - from));
        expression.Trim();
        if (expression.empty() || indexes.count == maximumDimensions)
            return ArrayStatus::BadIndex;
        if (evaluate(expression) != 0)
            return ArrayStatus::Failed;
        const auto value = ReadDecimal(expression);
        if (!value)
            return ArrayStatus::BadIndex;
        indexes.values[indexes.count++] = *value;
        if (comma >= text.size())
            return ArrayStatus::Ok;
        from = comma + 1;
    }
}

int ArrayTable::Find(std::u16string_view name) const
{
    if (name.empty())
        return -1;
    for (int i = 0; i < maximumArrays; ++i)
        if (EqualNoCase(At(i).name, name))
            return i;
    return -1;
}

ArrayStatus ArrayTable::Define(std::u16string_view name, const ArrayIndexes& sizes)
{
    const std::uint64_t count = CountElements(sizes);
    if (count == 0)
        return ArrayStatus::BadIndex;
    int index = Find(name);
    for (int i = 0; index < 0 && i < maximumArrays; ++i)
        if (At(i).name.empty())
            index = i;
    if (index < 0)
        return ArrayStatus::TableFull;
    ARRAYS array;
    array.name = name;
    array.sizes = sizes;
    if (count <= longestRow)
        array.row.resize(static_cast<std::size_t>(count));
    records[static_cast<std::size_t>(index)] = std::move(array);
    return ArrayStatus::Ok;
}

bool ArrayTable::Remove(std::u16string_view name)
{
    const int index = Find(name);
    if (index >= 0)
        records[static_cast<std::size_t>(index)] = ARRAYS();
    return index >= 0;
}

ArrayStatus ArrayTable::Get(std::u16string_view name, const ArrayIndexes& indexes, CString& value) const
{
    const int index = Find(name);
    if (index < 0)
        return ArrayStatus::NotAnArray;
    const ARRAYS& array = At(index);
    std::uint64_t place = 0;
    if (!PlaceOf(array, indexes, place))
        return ArrayStatus::BadIndex;
    if (!array.row.empty()) {
        value = array.row[static_cast<std::size_t>(place)];
        return ArrayStatus::Ok;
    }
    const auto found = array.sparse.find(place);
    value = found == array.sparse.end() ? CString() : found->second;
    return ArrayStatus::Ok;
}

ArrayStatus ArrayTable::Set(std::u16string_view name, const ArrayIndexes& indexes, std::u16string_view value)
{
    const int index = Find(name);
    if (index < 0)
        return ArrayStatus::NotAnArray;
    ARRAYS& array = records[static_cast<std::size_t>(index)];
    std::uint64_t place = 0;
    if (!PlaceOf(array, indexes, place))
        return ArrayStatus::BadIndex;
    if (!array.row.empty())
        array.row[static_cast<std::size_t>(place)] = value;
    else if (value.empty())
        array.sparse.erase(place);
    else
        array.sparse[place] = value;
    return ArrayStatus::Ok;
}
