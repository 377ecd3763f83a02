// -lh1-: bytes and match lengths in one Huffman code that changes with every symbol, places of
// matches in a fixed code for their upper and as they are for their lower six bits.
#pragma once

#include <array>
#include <cstdint>

#include "platform/lzh/decoder.h"

namespace tamblin::lzh {

class BitReader;

// The changing code, as a binary tree whose nodes are kept in the order of their weights: the
// leaves and branches that were met most often stand last, the root at the very end. Both children
// of a branch stand side by side. A symbol that is met gains weight; when it outweighs its
// neighbours it changes places with the last of those that weighed the same as it did.
class AdaptiveTree {
  public:
    static constexpr unsigned symbolCount = 314;

    void Reset();
    unsigned Decode(BitReader& reader); // takes up to as many bits as the tree is deep
    void Add(unsigned symbol);

  private:
    static constexpr unsigned nodeCount = 2 * symbolCount - 1;
    static constexpr unsigned root = nodeCount - 1;
    static constexpr unsigned heaviest = 0x8000;

    void Swap(unsigned a, unsigned b);
    void Halve();
    void CollectLeaves();
    void InsertBranch(unsigned branch, unsigned firstChild, unsigned weight);
    void ConnectParents();

    std::array<std::uint16_t, nodeCount + 1> weights; // by node; one more stops searches
    std::array<std::uint16_t, nodeCount> children; // by node: the first child, or leafMark + symbol
    std::array<std::uint16_t, nodeCount> parents;  // by node
    std::array<std::uint16_t, symbolCount> leaves; // by symbol: its node
};

class AdaptiveHuffmanDecoder : public Decoder {
  public:
    explicit AdaptiveHuffmanDecoder(OutputWindow& outputWindow) : window(outputWindow) {}
    void Decode(PackedInput& input, std::uint64_t size, ByteSink& sink) override;

  private:
    OutputWindow& window;
    AdaptiveTree tree;
};

} // namespace tamblin::lzh
