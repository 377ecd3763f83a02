// A Huffman code that changes with every symbol, as -lh1- and -lh2- use it.
//
// It is a binary tree whose nodes are kept in the order of their weights: the root stands first,
// and both children of a branch stand side by side. A symbol that is met gains weight, and so do
// the branches above it; a node that gains weight first changes places with the foremost of those
// that weighed the same. When the weights have grown too large, all are halved and the tree is
// built anew.
#pragma once

#include <cstdint>
#include <vector>

#include "platform/lzh/bit_reader.h"

namespace tamblin::lzh {

class AdaptiveTree {
  public:
    explicit AdaptiveTree(unsigned mostSymbols);

    // Starts with the symbols from 0 up to `symbols`, all of the same weight.
    void Reset(unsigned symbols);
    // Adds one more symbol, as the lightest, and counts it once.
    void Grow();

    // Reads a symbol and counts it.
    unsigned Decode(BitReader& reader);

  private:
    void Count(unsigned symbol);
    void Place(unsigned node);
    void Swap(unsigned a, unsigned b);
    void Halve();

    std::vector<std::uint16_t> weights;  // by node; the root's only stops searches
    std::vector<std::uint16_t> children; // by node: the second of the two, or leafMark + symbol
    std::vector<std::uint16_t> parents;  // by node
    std::vector<std::uint16_t> leaves;   // by symbol: its node
    unsigned symbolCount = 0;
    unsigned total = 0; // symbols counted since the beginning, halved with the weights
};

} // namespace tamblin::lzh
