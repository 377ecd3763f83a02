// Cuts data into bytes and matches, by chains of places that begin with the same three bytes.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace tamblin::lzh {

// A byte (length 1, distance 0) or a repetition.
struct Token {
    unsigned length = 1;
    unsigned distance = 0;
    unsigned char byte = 0;
};

struct MatchLimits {
    std::size_t farthest;
    unsigned shortest;
    unsigned longest;
    bool lazy;
};

// `history` stands before the data and can be copied from.
std::vector<Token> FindTokens(std::string_view history, std::string_view data, MatchLimits limits);

} // namespace tamblin::lzh
