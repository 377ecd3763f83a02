// A row of numbers that tells the smallest of any range and lets each number change, both in time
// that grows with the logarithm of the row's length.
#pragma once

#include <algorithm>
#include <cstddef>
#include <limits>
#include <vector>

namespace tamblin {

class RangeMinimum {
  public:
    static constexpr std::size_t None = std::numeric_limits<std::size_t>::max();

    // Every number is None at first.
    explicit RangeMinimum(std::size_t count) : size(count), smallest(2 * count, None) {}

    void Set(std::size_t place, std::size_t number) {
        std::size_t node = size + place;
        for (smallest[node] = number; node > 1; node /= 2)
            smallest[node / 2] = std::min(smallest[node], smallest[node ^ 1]);
    }

    // The smallest from `begin` to before `end`; None for an empty range.
    std::size_t Smallest(std::size_t begin, std::size_t end) const {
        std::size_t found = None;
        for (begin += size, end += size; begin < end; begin /= 2, end /= 2) {
            if (begin % 2 == 1)
                found = std::min(found, smallest[begin++]);
            if (end % 2 == 1)
                found = std::min(found, smallest[--end]);
        }
        return found;
    }

  private:
    // A tree in an array: the numbers are in its second half, node n is the smaller one of nodes
    // 2n and 2n + 1.
    const std::size_t size;
    std::vector<std::size_t> smallest;
};

} // namespace tamblin
