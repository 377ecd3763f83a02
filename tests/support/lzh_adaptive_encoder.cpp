#include "support/lzh_method_encoders.h"

#include <algorithm>
#include <vector>

#include "support/lzh_bit_writer.h"
#include "support/lzh_match_finder.h"

namespace tamblin::lzh {
namespace {

// A node of the tree; they stand in the order of their weights, the root last.
struct Node {
    unsigned weight = 0;
    int symbol = -1; // of a leaf
    int child = -1;  // the first of two neighbours, of a branch
    int parent = -1;
};

class CodeTree {
  public:
    explicit CodeTree(int symbols) : nodes(static_cast<std::size_t>(2 * symbols - 1)) {
        leaves.resize(static_cast<std::size_t>(symbols));
        for (int i = 0; i < symbols; ++i) {
            At(i).weight = 1;
            At(i).symbol = i;
        }
        for (int i = symbols; i <= Root(); ++i)
            At(i) = Branch((i - symbols) * 2);
        Connect();
        counted = symbols > 1 ? static_cast<unsigned>(symbols) : 0;
    }

    void Put(BitWriter& writer, int symbol) const {
        std::vector<unsigned> bits;
        for (int node = NodeOf(symbol); node != Root(); node = At(node).parent)
            bits.push_back(static_cast<unsigned>(node - At(At(node).parent).child));
        for (std::size_t i = bits.size(); i-- > 0;)
            writer.Put(bits[i], 1);
    }

    // The root's weight is of no use: it is never exchanged.
    void Count(int symbol) {
        if (counted == 0x8000)
            Rebuild();
        ++counted;
        for (int node = NodeOf(symbol); node != Root(); node = At(node).parent) {
            int last = node;
            while (last + 1 < Root() && At(last + 1).weight == At(node).weight)
                ++last;
            ++At(node).weight;
            if (last != node)
                Exchange(node, last);
            node = last;
        }
    }

  private:
    int Root() const { return static_cast<int>(nodes.size()) - 1; }
    Node& At(int index) { return nodes[static_cast<std::size_t>(index)]; }
    const Node& At(int index) const { return nodes[static_cast<std::size_t>(index)]; }

    int NodeOf(int symbol) const { return leaves[static_cast<std::size_t>(symbol)]; }

    Node Branch(int child) const {
        Node branch;
        branch.weight = At(child).weight + At(child + 1).weight;
        branch.child = child;
        return branch;
    }

    void Connect() {
        for (int i = 0; i <= Root(); ++i)
            Adopt(i);
        At(Root()).parent = -1;
    }

    // Tells a branch's children, or a leaf's symbol, where they belong now.
    void Adopt(int index) {
        const Node& node = At(index);
        if (node.symbol >= 0)
            leaves[static_cast<std::size_t>(node.symbol)] = index;
        else
            At(node.child).parent = At(node.child + 1).parent = index;
    }

    void Exchange(int a, int b) {
        const int parentOfA = At(a).parent;
        const int parentOfB = At(b).parent;
        std::swap(At(a), At(b));
        At(a).parent = parentOfA;
        At(b).parent = parentOfB;
        Adopt(a);
        Adopt(b);
    }

    void Rebuild() {
        const std::size_t nodeCount = nodes.size();
        std::vector<Node> kept;
        counted = 0;
        for (const Node& node : nodes) {
            if (node.symbol < 0)
                continue;
            kept.push_back(node);
            kept.back().weight = (node.weight + 1) / 2;
            counted += kept.back().weight;
        }
        nodes = kept;
        for (int child = 0; nodes.size() < nodeCount; child += 2) {
            const Node branch = Branch(child);
            const auto place = std::find_if(nodes.rbegin(), nodes.rend(), [&](const Node& node) {
                return node.weight <= branch.weight;
            });
            nodes.insert(place.base(), branch);
        }
        Connect();
    }

    std::vector<Node> nodes;
    std::vector<int> leaves; // by symbol
    unsigned counted = 0;    // symbols, halved with the weights
};

// The fixed code for the upper six bits of a distance.
void PutUpperBits(BitWriter& writer, unsigned upper) {
    constexpr unsigned codesOfLength[9] = {0, 0, 0, 1, 3, 8, 12, 24, 16};
    unsigned first = 0;
    unsigned code = 0;
    for (unsigned length = 3; length <= 8; ++length) {
        if (upper < first + codesOfLength[length]) {
            writer.Put(code + upper - first, length);
            return;
        }
        first += codesOfLength[length];
        code = (code + codesOfLength[length]) << 1;
    }
}

} // namespace

std::string EncodeLh1(std::string_view data, EncoderOptions options) {
    const std::string history(options.useInitialHistory ? 256 : 0, ' ');
    BitWriter writer;
    CodeTree tree(314);
    for (const Token& token : FindTokens(history, data, {4096, 3, 60, options.lazy})) {
        const int symbol =
            token.distance == 0 ? token.byte : static_cast<int>(token.length - 3 + 256);
        tree.Put(writer, symbol);
        tree.Count(symbol);
        if (token.distance > 0) {
            PutUpperBits(writer, (token.distance - 1) >> 6);
            writer.Put((token.distance - 1) & 63, 6);
        }
    }
    return writer.Finish();
}

} // namespace tamblin::lzh
