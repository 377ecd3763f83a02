// A Huffman code that changes with every symbol, as -lh1- uses it.
//
// It is a binary tree whose nodes are kept in the order of their weights: the root stands first,
// and both children of a branch stand side by side. A symbol that is met gains weight, and so do
// the branches above it; a node that gains weight first changes places with the foremost of those
// that weighed the same. When the weights have grown too large, all are halved and the tree is
// built anew.
//
// The foremost node of weight w stands behind all that weigh more, so its place is their number.
// That number is kept for every w. It grows by one whenever a node of weight w gains, and never
// otherwise, so that nothing has to be searched: `heavier[w]++` gives the place and puts the count
// right.
#pragma once

#include <array>
#include <cstdint>

#include "platform/lzh/bit_reader.h"

namespace tamblin::lzh {

class AdaptiveTree {
  public:
    static constexpr unsigned symbolCount = 314;

    // Starts with all symbols of the same weight. No more than `mostSymbols` will be read.
    void Reset(std::uint64_t mostSymbols);

    // Reads a symbol and counts it. Takes no more bits than one refill gives, and refills.
    unsigned Decode(BitReader& reader) {
        reader.Refill();
        // Weights that add up to no more than 0x8000 make no tree deeper than some 25 levels, and
        // a refill gives twice as many bits.
        unsigned child = children[root];
        while (child < firstLeaf)
            child = children[child - reader.Take(1)];
        Count(child);
        return child - firstLeaf;
    }

  private:
    static constexpr unsigned root = 0;
    static constexpr unsigned nodeCount = 2 * symbolCount - 1;
    static constexpr unsigned firstLeaf = nodeCount; // in `children`: this and above are symbols
    static constexpr unsigned heaviest = 0x8000;

    void Count(unsigned leaf) {
        if (total == heaviest) [[unlikely]]
            Halve();
        ++total;
        for (unsigned node = parents[leaf]; node != root; node = parents[node]) {
            const unsigned weight = weights[node];
            // Whether it is the foremost is asked of its neighbour: in most cases the processor
            // guesses so and goes on to the parent, without waiting for a place to be looked up.
            if (weights[node - 1] == weight) {
                const unsigned foremost = heavier[weight];
                Swap(node, foremost);
                node = foremost;
            }
            ++heavier[weight];
            weights[node] = static_cast<std::uint16_t>(weight + 1);
        }
    }

    // What hangs below two nodes of the same weight.
    void Swap(unsigned a, unsigned b) {
        const std::uint16_t childOfA = children[a];
        const std::uint16_t childOfB = children[b];
        Place(childOfB, a);
        Place(childOfA, b);
    }

    // Puts a symbol or a pair of nodes below a node.
    void Place(std::uint16_t child, unsigned node) {
        children[node] = child;
        parents[child] = static_cast<std::uint16_t>(node);
        parents[child - (child < firstLeaf)] = static_cast<std::uint16_t>(node);
    }

    void CountHeavier();
    void Halve();

    std::array<std::uint16_t, nodeCount> weights;  // by node; the root's is unlike all others
    std::array<std::uint16_t, nodeCount> children; // the second of the two, or a leaf
    std::array<std::uint16_t, firstLeaf + symbolCount> parents; // by node, and behind by leaf
    std::array<std::uint16_t, heaviest + 1> heavier;            // by weight
    unsigned total = 0; // symbols counted since the beginning, halved with the weights
    unsigned limit = 0; // no weight will be as large
};

} // namespace tamblin::lzh
