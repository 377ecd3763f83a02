// A Huffman code that changes with every symbol, as -lh1- uses it.
//
// The tree. Its nodes are kept in the order of their weights: the root stands first, and both
// children of a branch stand side by side. A symbol that is met gains weight, and so do the
// branches above it; a node that gains weight first changes places with the foremost of those that
// weighed the same. When the weights have grown too large, all are halved and the tree is built
// anew.
//
// The foremost node of weight w stands behind all that weigh more, so its place is their number.
// That number is kept for every w. It grows by one whenever a node of weight w gains, and never
// otherwise, so that nothing has to be searched: `heavier[w]++` gives the place and puts the count
// right.
//
// The top. Close to the root the weights lie far apart. The first `top` nodes are those of which
// each weighs less than the one before it by some margin: while fewer symbols than that are met,
// none of them can change places, and it is enough to count in `hits` where the symbols entered the
// top. Settle adds the hits to the weights and chooses a new top. Until then the weights of the top
// are out of date, and `heavier` knows the top only where its last node begins. Who changes places
// with a node of the top has to settle first (CountRest). As the top stands still, a table leads
// through it by several bits at once.
//
// The order of work. Finding a symbol is a chain of look-ups, each of which waits for the one
// before. So of the symbol before it only the leaf is counted first. The branches above are counted
// while the next symbol is being looked for; when one of them changed places, it is looked for
// again.
//
// What was tried and was no faster over all: tops of 23 to 47 nodes, margins of 4 and 8, a table by
// five or six bits, one parent for each pair of children, asking before leaves change places, and
// looking again only for a code that leads through what has moved. Counting a symbol wholly at once
// reads sources 8 % faster, but binary data 9 % slower and what does not compress 30 %. What is
// left is probably what nobody can foresee: how long each code is, and which branches change
// places, 26 for 100 symbols of programs, 52 for those of small files.
#pragma once

#include <array>
#include <cstdint>

#include "platform/lzh/bit_reader.h"

namespace tamblin::lzh {

class AdaptiveTree {
  public:
    static constexpr unsigned symbolCount = 314;

    // Weights that add up to no more than 0x8000 make no tree deeper than this.
    static constexpr unsigned mostBits = 25;
    // Bits that have to be valid before Decode. It refills.
    static constexpr unsigned bitsAhead = 4;

    // Starts with all symbols of the same weight.
    void Reset();

    // Reads a symbol and counts it.
    unsigned Decode(BitReader& reader) {
        const unsigned ahead = table[reader.Peek(bitsAhead)];
        reader.Refill();
        Code code = Find(ahead, reader.Bits());
        if (CountBranches(uncounted)) [[unlikely]]
            code = Find(table[reader.Peek(bitsAhead)], reader.Bits());
        reader.Skip(code.length);
        uncounted = CountLeaf(code.leaf);
        return code.leaf - firstLeaf;
    }

  private:
    static constexpr unsigned root = 0;
    static constexpr unsigned nodeCount = 2 * symbolCount - 1;
    static constexpr unsigned firstLeaf = nodeCount; // in `children`: this and above are symbols
    static constexpr unsigned heaviest = 0x8000;
    static constexpr unsigned largestTop = 15;
    static constexpr unsigned margin = 16;
    static constexpr unsigned longestCredit = 128; // then a larger top may be possible
    static constexpr unsigned lengthShift = 12;    // in `table`

    struct Code {
        unsigned leaf;
        unsigned length;
    };

    // The code that the bits begin with, from the table's entry for them on.
    Code Find(unsigned entry, std::uint64_t bits) const {
        unsigned length = entry >> lengthShift;
        unsigned child = entry & ((1u << lengthShift) - 1);
        bits <<= length;
        for (; child < firstLeaf; ++length) {
            child = children[child - static_cast<unsigned>(bits >> 63)];
            bits <<= 1;
        }
        return {child, length};
    }

    // Returns the branch to go on from. A leaf changes places so often that it is not worth a
    // question.
    unsigned CountLeaf(unsigned leaf) {
        if (credit-- == 0) [[unlikely]]
            Settle();
        const unsigned node = parents[leaf];
        if (node < top)
            return node;
        const unsigned weight = weights[node];
        const unsigned foremost = heavier[weight];
        if (foremost < lookedThrough) [[unlikely]]
            return CountRest(node);
        Swap(node, foremost);
        Gain(foremost, weight);
        return parents[foremost];
    }

    // Whether nodes have changed places.
    bool CountBranches(unsigned node) {
        bool swapped = false;
        while (node >= top) {
            const unsigned weight = weights[node];
            if (weights[node - 1] == weight) {
                swapped = true;
                const unsigned foremost = heavier[weight];
                if (foremost < lookedThrough) [[unlikely]] {
                    node = CountRest(node);
                    break;
                }
                Swap(node, foremost);
                node = foremost;
            }
            Gain(node, weight);
            node = parents[node];
        }
        ++hits[node];
        return swapped;
    }

    void Gain(unsigned foremost, unsigned weight) {
        ++heavier[weight];
        weights[foremost] = static_cast<std::uint16_t>(weight + 1);
    }

    // What hangs below two nodes of the same weight, which may be one.
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

    unsigned CountRest(unsigned node);
    void AddHits();
    void Settle();
    unsigned ChooseTop();
    void LookThroughTop();
    void Halve();

    unsigned top = 0;           // nodes
    unsigned credit = 0;        // symbols that may be counted before the next Settle
    unsigned lookedThrough = 0; // no less than `top`: the nodes whose children the table knows
    unsigned uncounted = root;  // the branch from which on the last symbol is not counted yet
    unsigned total = 0;         // symbols counted since the beginning, halved with the weights

    std::array<std::uint16_t, largestTop> hits;
    std::array<std::uint16_t, 1u << bitsAhead> table; // by the next bits: a child, and their number
    std::array<std::uint16_t, nodeCount> weights;     // by node; the root's is unlike all others
    std::array<std::uint16_t, nodeCount> children;    // the second of the two, or a leaf
    std::array<std::uint16_t, firstLeaf + symbolCount> parents; // by node, and behind by leaf
    std::array<std::uint16_t, heaviest + 1> heavier;            // by weight
};

} // namespace tamblin::lzh
