#include "platform/lzh/adaptive_tree.h"

#include <algorithm>

namespace tamblin::lzh {
namespace {

constexpr std::uint16_t neverReached = 0xFFFF;

std::uint16_t Narrow(unsigned value) {
    return static_cast<std::uint16_t>(value);
}

} // namespace

void AdaptiveTree::Reset() {
    constexpr unsigned last = nodeCount - 1;
    for (unsigned symbol = 0; symbol < symbolCount; ++symbol) {
        weights[last - symbol] = 1;
        Place(Narrow(firstLeaf + symbol), last - symbol);
    }
    for (unsigned node = symbolCount - 1, child = last; node-- > 0; child -= 2) {
        weights[node] = Narrow(weights[child] + weights[child - 1]);
        Place(Narrow(child), node);
    }
    weights[root] = neverReached;
    hits.fill(0);
    // Decode will count a symbol before the first, from the root on.
    uncounted = root;
    total = symbolCount - 1;
    top = nodeCount - 1;
    lookedThrough = 0;
    Settle();
    ++credit;
}

void AdaptiveTree::AddHits() {
    for (unsigned node = std::min(top, largestTop) - 1; node > root; --node) {
        weights[node] = Narrow(weights[node] + hits[node]);
        hits[parents[node]] = Narrow(hits[parents[node]] + hits[node]);
        hits[node] = 0;
    }
    total += hits[root];
    hits[root] = 0;
}

// Makes way for a symbol that is about to be counted.
void AdaptiveTree::Settle() {
    AddHits();
    if (total == heaviest) {
        Halve();
        top = nodeCount - 1;
        lookedThrough = 0;
    }
    const unsigned formerTop = top;
    top = ChooseTop();
    for (unsigned node = formerTop; node >= top; --node) {
        std::fill(heavier.begin() + weights[node], heavier.begin() + weights[node - 1],
                  Narrow(node));
    }
    heavier[weights[top - 1]] = Narrow(top - 1);
    if (top > lookedThrough)
        LookThroughTop();
}

// At least the root and the heavier of its children, which cannot change places.
unsigned AdaptiveTree::ChooseTop() {
    unsigned narrowest = std::min(heaviest - total, longestCredit);
    unsigned node = 2;
    for (; node < largestTop && weights[node] + margin <= weights[node - 1]; ++node)
        narrowest = std::min<unsigned>(narrowest, weights[node - 1] - weights[node]);
    credit = narrowest - 1;
    return node;
}

void AdaptiveTree::LookThroughTop() {
    lookedThrough = top;
    for (unsigned bits = 0; bits < table.size(); ++bits) {
        unsigned child = children[root];
        unsigned length = 0;
        for (; length < bitsAhead && child < firstLeaf; ++length) {
            const unsigned node = child - ((bits >> (bitsAhead - 1 - length)) & 1);
            if (node >= top)
                break;
            child = children[node];
        }
        table[bits] = Narrow(child | length << lengthShift);
    }
}

// Counts from a node to the root where the top is, or may be, no longer what it was. Returns the
// root, in which the hit is still to be counted.
unsigned AdaptiveTree::CountRest(unsigned node) {
    AddHits();
    while (node != root) {
        const unsigned weight = weights[node];
        unsigned foremost = node;
        while (weights[foremost - 1] == weight)
            --foremost;
        Swap(node, foremost);
        heavier[weight] = Narrow(foremost);
        Gain(foremost, weight);
        node = parents[foremost];
    }
    LookThroughTop();
    credit = 0;
    return root;
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
    weights[root] = neverReached;
}

} // namespace tamblin::lzh
