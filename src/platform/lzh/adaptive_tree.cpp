#include "platform/lzh/adaptive_tree.h"

#include <algorithm>

namespace tamblin::lzh {
namespace {

constexpr std::uint16_t neverReached = 0xFFFF;

std::uint16_t Narrow(unsigned value) {
    return static_cast<std::uint16_t>(value);
}

} // namespace

void AdaptiveTree::Reset(std::uint64_t mostSymbols) {
    constexpr unsigned last = nodeCount - 1;
    total = symbolCount;
    limit =
        Narrow(static_cast<unsigned>(std::min<std::uint64_t>(heaviest, total + mostSymbols))) + 1u;
    for (unsigned symbol = 0; symbol < symbolCount; ++symbol) {
        weights[last - symbol] = 1;
        Place(Narrow(firstLeaf + symbol), last - symbol);
    }
    for (unsigned node = symbolCount - 1, child = last; node-- > 0; child -= 2) {
        weights[node] = Narrow(weights[child] + weights[child - 1]);
        Place(Narrow(child), node);
    }
    CountHeavier();
}

// The root counts as heavier than all.
void AdaptiveTree::CountHeavier() {
    weights[root] = neverReached;
    unsigned end = limit;
    for (unsigned node = root + 1; node < nodeCount && end > 0; ++node) {
        const unsigned weight = weights[node];
        if (weight < end) {
            std::fill(heavier.begin() + weight, heavier.begin() + end, Narrow(node));
            end = weight;
        }
    }
}

// Builds the tree from the lightest nodes to the root. A branch goes in front of all that are not
// heavier.
void AdaptiveTree::Halve() {
    std::array<std::uint16_t, symbolCount> leafWeights;
    std::array<std::uint16_t, symbolCount> leaves; // the lightest first
    std::size_t leafCount = 0;
    total = 0;
    for (unsigned node = nodeCount; node-- > 0;) {
        if (children[node] < firstLeaf)
            continue;
        leafWeights[leafCount] = Narrow((weights[node] + 1u) / 2);
        leaves[leafCount] = children[node];
        total += leafWeights[leafCount++];
    }
    std::size_t leaf = 0;
    unsigned pair = nodeCount - 1; // the second of the next two children
    for (unsigned node = nodeCount; node-- > 0;) {
        // Two nodes have to be there before a branch can be put above them.
        const bool hasPair = pair >= node + 2;
        const unsigned branch = hasPair ? weights[pair] + weights[pair - 1] : 0u;
        if (leaf < leafCount && (!hasPair || leafWeights[leaf] <= branch)) {
            weights[node] = leafWeights[leaf];
            Place(leaves[leaf++], node);
        } else {
            weights[node] = Narrow(branch);
            Place(Narrow(pair), node);
            pair -= 2;
        }
    }
    CountHeavier();
}

} // namespace tamblin::lzh
