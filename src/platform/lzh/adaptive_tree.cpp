#include "platform/lzh/adaptive_tree.h"

#include <utility>

namespace tamblin::lzh {
namespace {

constexpr unsigned root = 0;
constexpr unsigned leafMark = 0x8000; // in `children`: the rest is a symbol
constexpr unsigned heaviest = 0x8000;
constexpr std::uint16_t neverReached = 0xFFFF;

std::uint16_t Narrow(unsigned value) {
    return static_cast<std::uint16_t>(value);
}

} // namespace

AdaptiveTree::AdaptiveTree(unsigned mostSymbols)
    : weights(2 * mostSymbols),
      children(2 * mostSymbols),
      parents(2 * mostSymbols),
      leaves(mostSymbols) {}

void AdaptiveTree::Reset(unsigned symbols) {
    symbolCount = symbols;
    total = symbols > 1 ? symbols : 0; // a symbol alone counts from its second time on
    const unsigned last = 2 * symbols - 2;
    for (unsigned symbol = 0; symbol < symbols; ++symbol) {
        weights[last - symbol] = 1;
        children[last - symbol] = Narrow(leafMark | symbol);
    }
    for (unsigned node = symbols - 1, child = last; node-- > 0; child -= 2) {
        weights[node] = Narrow(weights[child] + weights[child - 1]);
        children[node] = Narrow(child);
    }
    for (unsigned node = 0; node <= last; ++node)
        Place(node);
    if (symbols > 1)
        weights[root] = neverReached;
}

// Tells a leaf's symbol, or a branch's children, where they belong now.
void AdaptiveTree::Place(unsigned node) {
    const unsigned child = children[node];
    if ((child & leafMark) != 0)
        leaves[child ^ leafMark] = Narrow(node);
    else
        parents[child] = parents[child - 1] = Narrow(node);
}

unsigned AdaptiveTree::Decode(BitReader& reader) {
    reader.Refill();
    // Weights that add up to no more than 0x8000 make no tree deeper than some 25 levels, and a
    // refill gives twice as many bits.
    unsigned child = children[root];
    while ((child & leafMark) == 0)
        child = children[child - reader.Take(1)];
    const unsigned symbol = child ^ leafMark;
    Count(symbol);
    return symbol;
}

void AdaptiveTree::Count(unsigned symbol) {
    if (total == heaviest)
        Halve();
    ++total;
    for (unsigned node = leaves[symbol]; node != root; node = parents[node]) {
        const unsigned weight = weights[node];
        unsigned first = node;
        while (weights[first - 1] == weight)
            --first;
        if (first != node) {
            Swap(node, first);
            node = first;
        }
        ++weights[node];
    }
}

// Two nodes of the same weight.
void AdaptiveTree::Swap(unsigned a, unsigned b) {
    std::swap(children[a], children[b]);
    Place(a);
    Place(b);
}

// Builds the tree from the lightest nodes to the root. A branch goes in front of all that are not
// heavier.
void AdaptiveTree::Halve() {
    const unsigned last = 2 * symbolCount - 2;
    std::vector<std::uint16_t> leafWeights;
    std::vector<std::uint16_t> symbols;
    total = 0;
    for (unsigned node = last + 1; node-- > 0;) {
        if ((children[node] & leafMark) == 0)
            continue;
        leafWeights.push_back(Narrow((weights[node] + 1u) / 2));
        symbols.push_back(children[node]);
        total += leafWeights.back();
    }
    std::size_t leaf = 0;
    unsigned pair = last; // the second of the next two children
    for (unsigned node = last + 1; node-- > 0;) {
        // Two nodes have to be there before a branch can be put above them.
        const bool hasPair = pair >= node + 2;
        const unsigned branch = hasPair ? weights[pair] + weights[pair - 1] : 0u;
        if (leaf < symbols.size() && (!hasPair || leafWeights[leaf] <= branch)) {
            weights[node] = leafWeights[leaf];
            children[node] = symbols[leaf++];
        } else {
            weights[node] = Narrow(branch);
            children[node] = Narrow(pair);
            pair -= 2;
        }
    }
    for (unsigned node = 0; node <= last; ++node)
        Place(node);
    weights[root] = neverReached;
}

} // namespace tamblin::lzh
