#include "platform/lzh/adaptive_huffman_decoder.h"

#include <algorithm>

#include "platform/lzh/bit_reader.h"
#include "platform/lzh/match_copy.h"

namespace tamblin::lzh {
namespace {

constexpr unsigned leafMark = 0x8000; // in `children`: the rest is a symbol

constexpr unsigned historySize = 4096;

// The fixed code for the upper six bits of a place, by the next eight bits of the data.
struct PlaceCode {
    std::uint8_t upper;
    std::uint8_t length;
};

constexpr std::array<PlaceCode, 256> MakePlaceCodes() {
    constexpr unsigned codesOfLength[9] = {0, 0, 0, 1, 3, 8, 12, 24, 16};
    std::array<PlaceCode, 256> codes{};
    unsigned next = 0;
    unsigned upper = 0;
    for (unsigned length = 3; length <= 8; ++length) {
        for (unsigned n = 0; n < codesOfLength[length]; ++n, ++upper) {
            for (unsigned i = 0; i < 256u >> length; ++i)
                codes[next++] = {static_cast<std::uint8_t>(upper),
                                 static_cast<std::uint8_t>(length)};
        }
    }
    return codes;
}

constexpr std::array<PlaceCode, 256> placeCodes = MakePlaceCodes();

unsigned ReadDistance(BitReader& reader) {
    const PlaceCode code = placeCodes[reader.Peek(8)];
    reader.Skip(code.length);
    return (unsigned{code.upper} << 6 | reader.Take(6)) + 1;
}

} // namespace

void AdaptiveTree::Reset() {
    for (unsigned symbol = 0; symbol < symbolCount; ++symbol) {
        weights[symbol] = 1;
        children[symbol] = static_cast<std::uint16_t>(leafMark | symbol);
    }
    for (unsigned node = symbolCount, child = 0; node < nodeCount; ++node, child += 2) {
        weights[node] = static_cast<std::uint16_t>(weights[child] + weights[child + 1]);
        children[node] = static_cast<std::uint16_t>(child);
    }
    weights[nodeCount] = 0xFFFF;
    ConnectParents();
}

void AdaptiveTree::ConnectParents() {
    for (unsigned node = 0; node < nodeCount; ++node) {
        const unsigned child = children[node];
        if ((child & leafMark) != 0)
            leaves[child ^ leafMark] = static_cast<std::uint16_t>(node);
        else
            parents[child] = parents[child + 1] = static_cast<std::uint16_t>(node);
    }
    parents[root] = root;
}

unsigned AdaptiveTree::Decode(BitReader& reader) {
    unsigned child = children[root];
    reader.Refill();
    while ((child & leafMark) == 0) {
        // A tree of such weights is never deeper than the weights' Fibonacci numbers allow (some
        // 23 levels); a refill gives twice as many bits.
        child = children[child + reader.Take(1)];
    }
    return child ^ leafMark;
}

void AdaptiveTree::Add(unsigned symbol) {
    if (weights[root] == heaviest)
        Halve();
    unsigned node = leaves[symbol];
    while (true) {
        const unsigned weight = weights[node]++;
        if (node == root)
            return;
        unsigned last = node;
        while (weights[last + 1] == weight)
            ++last;
        if (last != node) {
            Swap(node, last);
            node = last;
        }
        node = parents[node];
    }
}

// `a` has just gained the weight that `b`, behind it, does not have yet.
void AdaptiveTree::Swap(unsigned a, unsigned b) {
    std::swap(weights[a], weights[b]);
    std::swap(children[a], children[b]);
    for (const unsigned node : {a, b}) {
        const unsigned child = children[node];
        if ((child & leafMark) != 0)
            leaves[child ^ leafMark] = static_cast<std::uint16_t>(node);
        else
            parents[child] = parents[child + 1] = static_cast<std::uint16_t>(node);
    }
}

// Halves the weights of all symbols and builds the tree anew, before weights overflow.
void AdaptiveTree::Halve() {
    CollectLeaves();
    for (unsigned node = symbolCount, child = 0; node < nodeCount; ++node, child += 2)
        InsertBranch(node, child, weights[child] + weights[child + 1]);
    ConnectParents();
}

void AdaptiveTree::CollectLeaves() {
    unsigned leaf = 0;
    for (unsigned node = 0; node < nodeCount; ++node) {
        if ((children[node] & leafMark) != 0) {
            weights[leaf] = static_cast<std::uint16_t>((weights[node] + 1) / 2);
            children[leaf] = children[node];
            ++leaf;
        }
    }
}

// The nodes before `end` are in order; the branch goes behind all that are not heavier.
void AdaptiveTree::InsertBranch(unsigned end, unsigned firstChild, unsigned weight) {
    unsigned at = end;
    while (weights[at - 1] > weight)
        --at;
    std::copy_backward(&weights[at], &weights[end], &weights[end] + 1);
    std::copy_backward(&children[at], &children[end], &children[end] + 1);
    weights[at] = static_cast<std::uint16_t>(weight);
    children[at] = static_cast<std::uint16_t>(firstChild);
}

void AdaptiveHuffmanDecoder::Decode(PackedInput& input, std::uint64_t size, ByteSink& sink) {
    BitReader reader(input);
    window.Start(historySize, ' ', size, sink);
    tree.Reset();
    while (!window.Complete()) {
        std::uint8_t* out = window.Next();
        while (out < window.Limit()) {
            reader.Check();
            const unsigned symbol = tree.Decode(reader);
            tree.Add(symbol);
            if (symbol < 256) {
                *out++ = static_cast<std::uint8_t>(symbol);
            } else {
                reader.Refill();
                const unsigned length = symbol - 256 + 3;
                CopyMatch(out, ReadDistance(reader), length);
                out += length;
            }
        }
        window.PassOn(out);
    }
    reader.Finish();
}

} // namespace tamblin::lzh
