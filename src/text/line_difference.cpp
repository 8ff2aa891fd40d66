#include "text/line_difference.h"

#include <algorithm>
#include <unordered_set>

namespace {

// Beyond so many changes in one stretch the search stops and parts the stretch where it has come farthest:
// the list is no longer the shortest, but time stays in proportion to the length.
constexpr std::ptrdiff_t mostSteps = 1024;

class Comparer {
public:
    Comparer(std::span<const std::uint32_t> leftRow, std::span<const std::uint32_t> rightRow)
        : left(leftRow), right(rightRow)
    {
        const std::size_t diagonals =
            2 * std::min<std::size_t>(left.size() + right.size(), 2 * mostSteps) + 3;
        forward.resize(diagonals);
        backward.resize(diagonals);
    }

    std::vector<RowChange> Run()
    {
        // Stretches that are still to be compared, the leftmost last.
        stretches.push_back({0, left.size(), 0, right.size()});
        while (!stretches.empty()) {
            const Stretch next = stretches.back();
            stretches.pop_back();
            Compare(next);
        }
        return std::move(changes);
    }

private:
    struct Stretch {
        std::size_t leftStart, leftEnd, rightStart, rightEnd;
    };
    struct Place {
        std::size_t left, right;
    };

    void Compare(Stretch s)
    {
        while (s.leftStart < s.leftEnd && s.rightStart < s.rightEnd &&
               left[s.leftStart] == right[s.rightStart])
            ++s.leftStart, ++s.rightStart;
        while (s.leftStart < s.leftEnd && s.rightStart < s.rightEnd &&
               left[s.leftEnd - 1] == right[s.rightEnd - 1])
            --s.leftEnd, --s.rightEnd;
        if (s.leftStart == s.leftEnd || s.rightStart == s.rightEnd)
            return Add(s);
        const Place middle = FindMiddle(s);
        const bool parts = (middle.left > s.leftStart || middle.right > s.rightStart) &&
                           (middle.left < s.leftEnd || middle.right < s.rightEnd);
        if (!parts)
            return Add(s);
        stretches.push_back({middle.left, s.leftEnd, middle.right, s.rightEnd});
        stretches.push_back({s.leftStart, middle.left, s.rightStart, middle.right});
    }

    void Add(const Stretch& s)
    {
        if (s.leftStart == s.leftEnd && s.rightStart == s.rightEnd)
            return;
        if (!changes.empty() && changes.back().left + changes.back().leftCount == s.leftStart &&
            changes.back().right + changes.back().rightCount == s.rightStart) {
            changes.back().leftCount += s.leftEnd - s.leftStart;
            changes.back().rightCount += s.rightEnd - s.rightStart;
            return;
        }
        changes.push_back({s.leftStart, s.leftEnd - s.leftStart, s.rightStart, s.rightEnd - s.rightStart});
    }

    // A place that a shortest way goes through: the farthest ways from both ends are followed, with one
    // change more in each round, until they meet. x counts items of the left row, y of the right one, and a
    // diagonal is x - y.
    Place FindMiddle(const Stretch& s)
    {
        const auto width = static_cast<std::ptrdiff_t>(s.leftEnd - s.leftStart);
        const auto height = static_cast<std::ptrdiff_t>(s.rightEnd - s.rightStart);
        const std::ptrdiff_t difference = width - height;
        const bool odd = (difference & 1) != 0;
        const auto origin = static_cast<std::ptrdiff_t>(forward.size() / 2);
        auto at = [origin](std::vector<std::ptrdiff_t>& row, std::ptrdiff_t diagonal) -> std::ptrdiff_t& {
            return row[static_cast<std::size_t>(origin + diagonal)];
        };
        auto leftItem = [&](std::ptrdiff_t x) { return left[s.leftStart + static_cast<std::size_t>(x)]; };
        auto rightItem = [&](std::ptrdiff_t y) { return right[s.rightStart + static_cast<std::size_t>(y)]; };
        at(forward, 1) = 0;
        at(backward, 1) = 0;
        const std::ptrdiff_t most = std::min((width + height + 1) / 2, mostSteps);
        for (std::ptrdiff_t steps = 0; steps <= most; ++steps) {
            for (std::ptrdiff_t k = -steps; k <= steps; k += 2) {
                const bool down = k == -steps || (k != steps && at(forward, k - 1) < at(forward, k + 1));
                std::ptrdiff_t x = down ? at(forward, k + 1) : at(forward, k - 1) + 1;
                while (x < width && x - k < height && x >= 0 && x - k >= 0 && leftItem(x) == rightItem(x - k))
                    ++x;
                at(forward, k) = x;
                const std::ptrdiff_t other = difference - k;
                if (odd && other >= -(steps - 1) && other <= steps - 1 && x + at(backward, other) >= width)
                    return Clamp(s, x, x - k);
            }
            for (std::ptrdiff_t k = -steps; k <= steps; k += 2) {
                const bool up = k == -steps || (k != steps && at(backward, k - 1) < at(backward, k + 1));
                std::ptrdiff_t x = up ? at(backward, k + 1) : at(backward, k - 1) + 1;
                while (x < width && x - k < height && x >= 0 && x - k >= 0 &&
                       leftItem(width - 1 - x) == rightItem(height - 1 - (x - k)))
                    ++x;
                at(backward, k) = x;
                const std::ptrdiff_t other = difference - k;
                if (!odd && other >= -steps && other <= steps && x + at(forward, other) >= width)
                    return Clamp(s, width - x, height - (x - k));
            }
        }
        return Farthest(s, most, [&](std::ptrdiff_t k) { return at(forward, k); });
    }

    // Where a search that was given up had come farthest from the beginning.
    template <typename At> static Place Farthest(const Stretch& s, std::ptrdiff_t steps, At at)
    {
        Place best = {s.leftStart, s.rightStart};
        for (std::ptrdiff_t k = -steps; k <= steps; k += 2) {
            const Place place = Clamp(s, at(k), at(k) - k);
            if (place.left + place.right > best.left + best.right)
                best = place;
        }
        return best;
    }

    static Place Clamp(const Stretch& s, std::ptrdiff_t x, std::ptrdiff_t y)
    {
        auto inside = [](std::ptrdiff_t offset, std::size_t start, std::size_t end) {
            return start + static_cast<std::size_t>(std::clamp<std::ptrdiff_t>(
                               offset, 0, static_cast<std::ptrdiff_t>(end - start)));
        };
        return {inside(x, s.leftStart, s.leftEnd), inside(y, s.rightStart, s.rightEnd)};
    }

    std::span<const std::uint32_t> left;
    std::span<const std::uint32_t> right;
    std::vector<std::ptrdiff_t> forward; // by diagonal: how far x has come
    std::vector<std::ptrdiff_t> backward;
    std::vector<Stretch> stretches;
    std::vector<RowChange> changes;
};

// The items of a row that the other row has, too, and their places. Only they can be equal to anything.
struct SharedItems {
    SharedItems(std::span<const std::uint32_t> row, std::span<const std::uint32_t> other)
    {
        const std::unordered_set<std::uint32_t> known(other.begin(), other.end());
        for (std::size_t i = 0; i < row.size(); ++i)
            if (known.contains(row[i])) {
                items.push_back(row[i]);
                places.push_back(i);
            }
    }
    std::vector<std::uint32_t> items;
    std::vector<std::size_t> places;
};

} // namespace

std::vector<RowChange> CompareRows(std::span<const std::uint32_t> left, std::span<const std::uint32_t> right)
{
    const SharedItems inLeft(left, right);
    const SharedItems inRight(right, left);
    std::vector<RowChange> changes;
    RowChange next; // counts are open until the next pair of equal items
    auto close = [&](std::size_t leftEnd, std::size_t rightEnd) {
        next.leftCount = leftEnd - next.left;
        next.rightCount = rightEnd - next.right;
        if (next.leftCount + next.rightCount > 0)
            changes.push_back(next);
        next.left = leftEnd + 1;
        next.right = rightEnd + 1;
    };
    std::size_t atLeft = 0; // among the shared items
    std::size_t atRight = 0;
    auto pass = [&](std::size_t leftEnd) {
        for (; atLeft < leftEnd; ++atLeft, ++atRight)
            close(inLeft.places[atLeft], inRight.places[atRight]);
    };
    for (const RowChange& change : Comparer(inLeft.items, inRight.items).Run()) {
        pass(change.left);
        atLeft += change.leftCount;
        atRight += change.rightCount;
    }
    pass(inLeft.items.size());
    close(left.size(), right.size());
    return changes;
}
