#include "support/lzh_method_encoders.h"

#include <algorithm>
#include <bit>
#include <queue>
#include <span>
#include <utility>
#include <vector>

#include "support/lzh_bit_writer.h"
#include "support/lzh_match_finder.h"

namespace tamblin::lzh {
namespace {

using Counts = std::vector<unsigned>;

constexpr unsigned longestCode = 16;

struct Code {
    std::vector<unsigned> lengths;
    std::vector<unsigned> bits;
    int only = -1; // the one symbol there is, or -1
};

// Lengths of a Huffman code for the counts, however long they become.
std::vector<unsigned> HuffmanLengths(const Counts& counts) {
    struct Fork {
        int left;
        int right;
    };
    std::vector<Fork> nodes;
    using Item = std::pair<unsigned long, int>; // weight; symbol, or node behind all symbols
    std::priority_queue<Item, std::vector<Item>, std::greater<>> heap;
    const int symbolCount = static_cast<int>(counts.size());
    for (int symbol = 0; symbol < symbolCount; ++symbol) {
        if (const unsigned count = counts[static_cast<std::size_t>(symbol)]; count > 0)
            heap.push({count, symbol});
    }
    while (heap.size() > 1) {
        const Item a = heap.top();
        heap.pop();
        const Item b = heap.top();
        heap.pop();
        nodes.push_back({a.second, b.second});
        heap.push({a.first + b.first, symbolCount + static_cast<int>(nodes.size()) - 1});
    }
    std::vector<unsigned> lengths(counts.size(), 0);
    std::vector<unsigned> depths(nodes.size(), 0);
    for (std::size_t i = nodes.size(); i-- > 0;) {
        for (const int child : {nodes[i].left, nodes[i].right}) {
            if (child < symbolCount)
                lengths[static_cast<std::size_t>(child)] = depths[i] + 1;
            else
                depths[static_cast<std::size_t>(child - symbolCount)] = depths[i] + 1;
        }
    }
    return lengths;
}

void AssignBits(Code& code) {
    code.bits.assign(code.lengths.size(), 0);
    unsigned next = 0;
    for (unsigned length = 1; length <= longestCode; ++length) {
        next <<= 1;
        for (std::size_t symbol = 0; symbol < code.lengths.size(); ++symbol) {
            if (code.lengths[symbol] == length)
                code.bits[symbol] = next++;
        }
    }
}

Code MakeCode(Counts counts) {
    Code code;
    const auto used = std::count_if(counts.begin(), counts.end(), [](unsigned n) { return n > 0; });
    if (used <= 1) {
        const auto it =
            std::find_if(counts.begin(), counts.end(), [](unsigned n) { return n > 0; });
        code.only = it == counts.end() ? 0 : static_cast<int>(it - counts.begin());
        code.lengths.assign(counts.size(), 0);
        code.bits.assign(counts.size(), 0);
        return code;
    }
    while (true) {
        code.lengths = HuffmanLengths(counts);
        if (*std::max_element(code.lengths.begin(), code.lengths.end()) <= longestCode)
            break;
        for (unsigned& count : counts)
            count = (count + 1) / 2;
    }
    AssignBits(code);
    return code;
}

std::size_t UsedSize(const std::vector<unsigned>& lengths) {
    std::size_t size = lengths.size();
    while (size > 0 && lengths[size - 1] == 0)
        --size;
    return size;
}

struct Symbol {
    unsigned symbol;
    unsigned distance; // less one; of a match
};

class BlockWriter {
  public:
    BlockWriter(BitWriter& bitWriter, unsigned bitsOfHistory)
        : writer(bitWriter), historyBits(bitsOfHistory) {}

    void Write(std::span<const Symbol> block) {
        Counts symbolCounts(510, 0);
        Counts distanceCounts(historyBits + 1, 0);
        for (const Symbol& symbol : block) {
            ++symbolCounts[symbol.symbol];
            if (symbol.symbol >= 256)
                ++distanceCounts[std::bit_width(symbol.distance)];
        }
        const Code symbols = MakeCode(symbolCounts);
        const Code distances = MakeCode(distanceCounts);
        writer.Put(static_cast<unsigned>(block.size()) & 0xFFFF, 16);
        WriteSymbolCode(symbols);
        WritePlainCode(distances, historyBits > 13 ? 5 : 4, false);
        for (const Symbol& symbol : block)
            WriteSymbol(symbol, symbols, distances);
    }

  private:
    void WriteSymbol(const Symbol& symbol, const Code& symbols, const Code& distances) {
        writer.Put(symbols.bits[symbol.symbol], symbols.lengths[symbol.symbol]);
        if (symbol.symbol < 256)
            return;
        const unsigned magnitude = static_cast<unsigned>(std::bit_width(symbol.distance));
        writer.Put(distances.bits[magnitude], distances.lengths[magnitude]);
        if (magnitude > 1)
            writer.Put(symbol.distance, magnitude - 1);
    }

    void WritePlainCode(const Code& code, unsigned countBits, bool gapBehindThird) {
        if (code.only >= 0) {
            writer.Put(0, countBits);
            writer.Put(static_cast<unsigned>(code.only), countBits);
            return;
        }
        const std::size_t size = UsedSize(code.lengths);
        writer.Put(static_cast<unsigned>(size), countBits);
        for (std::size_t i = 0; i < size;) {
            const unsigned length = code.lengths[i++];
            writer.Put(std::min(length, 7u), 3);
            for (unsigned n = 7; n < length; ++n)
                writer.Put(1, 1);
            if (length >= 7)
                writer.Put(0, 1);
            if (gapBehindThird && i == 3) {
                while (i < 6 && code.lengths[i] == 0)
                    ++i;
                writer.Put(static_cast<unsigned>(i - 3), 2);
            }
        }
    }

    // How lengths are told: 0 none, 1 and 2 runs of symbols without a code, else the length + 2.
    struct LengthItem {
        unsigned item;
        unsigned extra;
        unsigned extraBits;
    };

    static std::vector<LengthItem> LengthItems(const std::vector<unsigned>& lengths) {
        std::vector<LengthItem> items;
        const std::size_t size = UsedSize(lengths);
        for (std::size_t i = 0; i < size;) {
            std::size_t run = 0;
            while (lengths[i + run] == 0)
                ++run;
            i += run;
            if (run >= 20) {
                items.push_back({2, static_cast<unsigned>(run - 20), 9});
            } else {
                if (run == 19) {
                    items.push_back({0, 0, 0});
                    --run;
                }
                if (run >= 3)
                    items.push_back({1, static_cast<unsigned>(run - 3), 4});
                else
                    items.insert(items.end(), run, {0, 0, 0});
            }
            items.push_back({lengths[i++] + 2, 0, 0});
        }
        return items;
    }

    void WriteSymbolCode(const Code& code) {
        if (code.only >= 0) {
            WritePlainCode(MakeCode(Counts(19, 0)), 5, true);
            writer.Put(0, 9);
            writer.Put(static_cast<unsigned>(code.only), 9);
            return;
        }
        const std::vector<LengthItem> items = LengthItems(code.lengths);
        Counts counts(19, 0);
        for (const LengthItem& item : items)
            ++counts[item.item];
        const Code lengthsCode = MakeCode(counts);
        WritePlainCode(lengthsCode, 5, true);
        writer.Put(static_cast<unsigned>(UsedSize(code.lengths)), 9);
        for (const LengthItem& item : items) {
            writer.Put(lengthsCode.bits[item.item], lengthsCode.lengths[item.item]);
            writer.Put(item.extra, item.extraBits);
        }
    }

    BitWriter& writer;
    const unsigned historyBits;
};

} // namespace

std::string EncodeStatic(unsigned historyBits, std::string_view data, EncoderOptions options) {
    const std::string history(options.useInitialHistory ? 256 : 0, ' ');
    const std::vector<Token> tokens =
        FindTokens(history, data, {std::size_t{1} << historyBits, 3, 256, options.lazy});
    std::vector<Symbol> symbols;
    symbols.reserve(tokens.size());
    for (const Token& token : tokens) {
        if (token.distance == 0)
            symbols.push_back({token.byte, 0});
        else
            symbols.push_back({token.length - 3 + 256, token.distance - 1});
    }
    BitWriter writer;
    BlockWriter blocks(writer, historyBits);
    for (std::size_t at = 0; at < symbols.size(); at += options.blockSize) {
        const std::size_t size = std::min(options.blockSize, symbols.size() - at);
        blocks.Write(std::span(symbols).subspan(at, size));
    }
    return writer.Finish();
}

} // namespace tamblin::lzh
