#include "support/lzh_method_encoders.h"

#include <vector>

#include "support/lzh_bit_writer.h"
#include "support/lzh_match_finder.h"

namespace tamblin::lzh {
namespace {

// The ring of -lz5- as it is before the first byte, in the order in which it will be overwritten.
std::string Lz5History() {
    std::string ring;
    for (int value = 0; value < 256; ++value)
        ring += std::string(13, static_cast<char>(value));
    for (int value = 0; value < 256; ++value)
        ring += static_cast<char>(value);
    for (int value = 255; value >= 0; --value)
        ring += static_cast<char>(value);
    ring += std::string(128, '\0') + std::string(110, ' ') + std::string(18, '\0');
    return ring.substr(4096 - 18) + ring.substr(0, 4096 - 18);
}

} // namespace

std::string EncodeLzs(std::string_view data, EncoderOptions options) {
    const std::string history(options.useInitialHistory ? 256 : 0, ' ');
    BitWriter writer;
    unsigned place = 2048 - 17;
    for (const Token& token : FindTokens(history, data, {2048, 2, 17, options.lazy})) {
        if (token.distance == 0) {
            writer.Put(1, 1);
            writer.Put(token.byte, 8);
        } else {
            writer.Put(0, 1);
            writer.Put((place - token.distance) & 2047, 11);
            writer.Put(token.length - 2, 4);
        }
        place += token.length;
    }
    return writer.Finish();
}

std::string EncodeLz5(std::string_view data, EncoderOptions options) {
    const std::string history = options.useInitialHistory ? Lz5History() : std::string();
    const std::vector<Token> tokens = FindTokens(history, data, {4096, 3, 18, options.lazy});
    std::string bytes;
    unsigned place = 4096 - 18;
    std::size_t flagsAt = 0;
    for (std::size_t i = 0; i < tokens.size(); ++i) {
        if (i % 8 == 0) {
            flagsAt = bytes.size();
            bytes += '\0';
        }
        const Token& token = tokens[i];
        if (token.distance == 0) {
            bytes[flagsAt] = static_cast<char>(bytes[flagsAt] | 1 << (i % 8));
            bytes += static_cast<char>(token.byte);
        } else {
            const unsigned from = (place - token.distance) & 4095;
            bytes += static_cast<char>(from & 0xFF);
            bytes += static_cast<char>((from >> 4 & 0xF0) | (token.length - 3));
        }
        place += token.length;
    }
    return bytes;
}

} // namespace tamblin::lzh
