// What must be changed in one row of items to make it another: the shortest list of changes, or one near it
// where the rows have little in common. Pure. Items are numbers; equal items have equal numbers.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

// `leftCount` items from `left` on are replaced by `rightCount` items from `right` on; one of the counts may
// be 0.
struct RowChange {
    std::size_t left = 0;
    std::size_t leftCount = 0;
    std::size_t right = 0;
    std::size_t rightCount = 0;
    friend bool operator==(const RowChange&, const RowChange&) = default;
};

// In their order, with equal items between any two. Time is bounded by a multiple of the rows' lengths;
// memory, too.
std::vector<RowChange> CompareRows(std::span<const std::uint32_t> left, std::span<const std::uint32_t> right);
