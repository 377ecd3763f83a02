#include "support/lzh_match_finder.h"

#include <algorithm>

namespace tamblin::lzh {
namespace {

constexpr unsigned largeHashBits = 16;
constexpr unsigned smallHashBits = 10;
constexpr int longestChain = 48;
constexpr std::int64_t none = -1;

class Finder {
  public:
    Finder(std::string_view history, std::string_view data, MatchLimits matchLimits)
        : text(std::string(history) + std::string(data)),
          limits(matchLimits),
          hashBits(text.size() < 10'000 ? smallHashBits : largeHashBits),
          heads(std::size_t{1} << hashBits, none),
          before(text.size(), none) {
        // All places of a long, uniform history are the same; the last ones will do.
        const std::size_t first = history.size() > 512 ? history.size() - 512 : 0;
        for (std::size_t at = first; at < history.size(); ++at)
            Insert(at);
    }

    unsigned char ByteAt(std::size_t at) const { return static_cast<unsigned char>(text[at]); }
    std::size_t Size() const { return text.size(); }

    void Insert(std::size_t at) {
        if (at + 3 > text.size())
            return;
        std::int64_t& head = heads[Hash(at)];
        before[at] = head;
        head = static_cast<std::int64_t>(at);
    }

    Token Longest(std::size_t at) const {
        Token best{1, 0, ByteAt(at)};
        if (at + 3 > text.size())
            return best;
        int left = longestChain;
        for (std::int64_t place = heads[Hash(at)]; place != none && left > 0; --left) {
            const auto from = static_cast<std::size_t>(place);
            if (at - from > limits.farthest)
                break;
            const unsigned length = CommonLength(from, at);
            if (length >= limits.shortest && length > best.length)
                best = {length, static_cast<unsigned>(at - from), 0};
            place = before[from];
        }
        return best;
    }

  private:
    std::size_t Hash(std::size_t at) const {
        const unsigned key = ByteAt(at) | ByteAt(at + 1) << 8 | ByteAt(at + 2) << 16;
        return (key * 2654435761u) >> (32 - hashBits);
    }

    unsigned CommonLength(std::size_t a, std::size_t b) const {
        const std::size_t most = std::min<std::size_t>(limits.longest, text.size() - b);
        std::size_t length = 0;
        while (length < most && text[a + length] == text[b + length])
            ++length;
        return static_cast<unsigned>(length);
    }

    const std::string text;
    const MatchLimits limits;
    const unsigned hashBits;
    std::vector<std::int64_t> heads;  // by hash: the last place
    std::vector<std::int64_t> before; // by place: the one before it with the same hash
};

} // namespace

std::vector<Token> FindTokens(std::string_view history, std::string_view data, MatchLimits limits) {
    Finder finder(history, data, limits);
    std::vector<Token> tokens;
    for (std::size_t at = history.size(); at < finder.Size();) {
        Token token = finder.Longest(at);
        finder.Insert(at);
        if (limits.lazy && token.length > 1 && token.length < limits.longest &&
            at + 1 < finder.Size() && finder.Longest(at + 1).length > token.length)
            token = {1, 0, finder.ByteAt(at)};
        for (std::size_t i = 1; i < token.length; ++i)
            finder.Insert(at + i);
        at += token.length;
        tokens.push_back(token);
    }
    return tokens;
}

} // namespace tamblin::lzh
