#include "text/line_difference.h"

#include <algorithm>
#include <vector>

#include <gtest/gtest.h>

namespace {

using Row = std::vector<std::uint32_t>;

// All rows of up to `longest` items of three kinds.
std::vector<Row> AllRows(std::size_t longest)
{
    std::vector<Row> rows = {{}};
    for (std::size_t i = 0; i < rows.size(); ++i)
        if (rows[i].size() < longest)
            for (std::uint32_t item = 0; item < 3; ++item) {
                rows.push_back(rows[i]);
                rows.back().push_back(item);
            }
    return rows;
}

Row Apply(const std::vector<RowChange>& changes, const Row& left, const Row& right)
{
    Row result;
    std::size_t at = 0;
    for (const RowChange& change : changes) {
        for (; at < change.left; ++at)
            result.push_back(left.at(at));
        EXPECT_EQ(result.size(), change.right);
        for (std::size_t i = 0; i < change.rightCount; ++i)
            result.push_back(right.at(change.right + i));
        at += change.leftCount;
    }
    for (; at < left.size(); ++at)
        result.push_back(left[at]);
    return result;
}

std::size_t LongestShared(const Row& left, const Row& right)
{
    std::vector<std::size_t> lengths(right.size() + 1);
    for (const std::uint32_t item : left) {
        std::size_t diagonal = 0;
        for (std::size_t j = 0; j < right.size(); ++j) {
            const std::size_t above = lengths[j + 1];
            lengths[j + 1] = item == right[j] ? diagonal + 1 : std::max(above, lengths[j]);
            diagonal = above;
        }
    }
    return lengths.back();
}

} // namespace

TEST(LineDifference, ChangesAreShortestAndLeadToTheOtherRow)
{
    const std::vector<Row> rows = AllRows(4);
    for (const Row& left : rows)
        for (const Row& right : rows) {
            const std::vector<RowChange> changes = CompareRows(left, right);
            ASSERT_EQ(Apply(changes, left, right), right);
            std::size_t cost = 0;
            for (const RowChange& change : changes)
                cost += change.leftCount + change.rightCount;
            ASSERT_EQ(cost, left.size() + right.size() - 2 * LongestShared(left, right));
        }
}

TEST(LineDifference, RowsWithLittleInCommonStillLeadToEachOther)
{
    Row left;
    Row right;
    for (std::uint32_t i = 0; i < 20'000; ++i) {
        left.push_back(i * 7919 % 20'011);
        right.push_back(i * 104'729 % 20'011);
    }
    EXPECT_EQ(Apply(CompareRows(left, right), left, right), right);
}
