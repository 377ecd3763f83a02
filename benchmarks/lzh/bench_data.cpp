#include "bench_data.h"

#include <cmath>
#include <cstdint>
#include <random>

namespace tamblin::bench {
namespace {

// Words of a made-up language: common ones are short, and each is as frequent as its rank says.
std::string Text(std::size_t size) {
    constexpr std::size_t vocabulary = 8000;
    std::mt19937 random(1);
    std::vector<std::string> words;
    while (words.size() < vocabulary) {
        std::string word;
        const std::size_t length = 2 + random() % (3 + words.size() / 800);
        while (word.size() < length) {
            word += "ptkbdgmnrslw"[random() % 12];
            word += "aeiouy"[random() % 6];
        }
        words.push_back(word);
    }
    std::string text;
    while (text.size() < size) {
        const double place = static_cast<double>(random()) / 4294967296.0;
        text += words[static_cast<std::size_t>(std::pow(double{vocabulary}, place)) - 1];
        text += random() % 12 == 0 ? (random() % 4 == 0 ? ".\r\n" : ", ") : " ";
    }
    text.resize(size);
    return text;
}

// Records as programs and pictures have them: counters, small numbers, addresses that are close to
// one another, flat stretches and some noise.
std::string Binary(std::size_t size) {
    std::mt19937 generator(2);
    const auto random = [&] {
        return static_cast<std::uint32_t>(generator());
    };
    std::string bytes;
    std::uint32_t address = 0x401000;
    const auto put = [&](std::uint32_t value, int count) {
        for (int i = 0; i < count; ++i)
            bytes += static_cast<char>(value >> (8 * i));
    };
    while (bytes.size() < size) {
        switch (random() % 8) {
            case 0:
                bytes += std::string(random() % 64, static_cast<char>(random() % 3));
                break;
            case 1:
            case 2:
                put(0x8B | (random() % 8) << 11 | 0x45 << 16, 3);
                put(random() % 128, 1);
                break;
            case 3:
                address += random() % 64;
                put(0xE8, 1);
                put(address, 4);
                break;
            case 4:
                put(random(), 4);
                break;
            case 5:
                if (bytes.size() > 5000)
                    bytes += bytes.substr(bytes.size() - 1 - random() % 5000, 4 + random() % 40);
                break;
            default:
                put(random() % 256, 2);
                put(random() % 16 * 0x11, 1);
        }
    }
    bytes.resize(size);
    return bytes;
}

std::string Noise(std::size_t size) {
    std::mt19937 random(3);
    std::string bytes(size, '\0');
    for (char& byte : bytes)
        byte = static_cast<char>(random() >> 8);
    return bytes;
}

} // namespace

std::vector<Data> MakeData(std::size_t size) {
    return {{"text", Text(size)}, {"binary", Binary(size)}, {"incompressible", Noise(size)}};
}

} // namespace tamblin::bench
