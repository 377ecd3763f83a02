#include "support/lzh_test_data.h"

#include <random>

namespace tamblin::lzh {

std::string RandomBytes(std::size_t size, unsigned seed) {
    std::mt19937 random(seed);
    std::string bytes(size, '\0');
    for (char& byte : bytes)
        byte = static_cast<char>(random() & 0xFF);
    return bytes;
}

std::string RandomText(std::size_t size, unsigned seed) {
    std::mt19937 random(seed);
    std::string text;
    while (text.size() < size) {
        if (random() % 8 == 0 && text.size() > 100) {
            const std::size_t from = random() % (text.size() - 50);
            text += text.substr(from, 3 + random() % 300);
        } else {
            text += std::string(1 + random() % 9, static_cast<char>('a' + random() % 26)) + ' ';
        }
    }
    text.resize(size);
    return text;
}

std::string SkewedBytes(std::size_t size, unsigned seed) {
    std::mt19937 random(seed);
    std::string bytes(size, '\0');
    for (char& byte : bytes) {
        unsigned value = 0;
        while (value < 255 && random() % 2 == 0)
            ++value;
        byte = static_cast<char>(value);
    }
    return bytes;
}

} // namespace tamblin::lzh
