#include "bench_data.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>

namespace tamblin::bench {
namespace {

namespace fs = std::filesystem;

constexpr std::size_t madeUpSize = 4 << 20;
constexpr std::size_t sizeOfArchive = 16 << 20; // unpacked, about

std::string ReadFile(const fs::path& path, std::size_t most) {
    std::ifstream file(path, std::ios::binary);
    std::string bytes{std::istreambuf_iterator<char>(file), {}};
    bytes.resize(std::min(bytes.size(), most));
    return bytes;
}

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

// This program's own sources, one behind the other as tar keeps them.
std::string TarOfSources() {
    constexpr std::size_t unit = 512;
    std::vector<fs::path> paths;
    std::error_code error;
    for (const auto& item : fs::recursive_directory_iterator(TAMBLIN_SOURCES, error)) {
        if (item.is_regular_file())
            paths.push_back(item.path());
    }
    std::sort(paths.begin(), paths.end());
    std::string tar;
    for (const fs::path& path : paths) {
        const std::string bytes = ReadFile(path, madeUpSize);
        char header[unit] = {};
        std::snprintf(header, 100, "%s", fs::relative(path, TAMBLIN_SOURCES).string().c_str());
        std::snprintf(header + 100, unit - 100, "%07o", 0644u);
        std::snprintf(header + 124, unit - 124, "%011zo", bytes.size());
        std::memcpy(header + 257, "ustar", 6);
        tar.append(header, unit).append(bytes);
        tar.append((unit - bytes.size() % unit) % unit, '\0');
    }
    return tar;
}

// The beginning of the largest program for Windows that the compiler brings along: its code.
std::string WindowsProgram() {
    std::error_code error;
    for (const auto& item : fs::directory_iterator("/usr/lib/gcc/x86_64-w64-mingw32", error)) {
        const fs::path path = item.path() / "libstdc++-6.dll";
        if (fs::exists(path))
            return ReadFile(path, 2 << 20);
    }
    return {};
}

// A figure in a few shaded colours on an even ground, in 256 colours, as the pictures of a
// character are: the next one differs in little.
std::string Bitmap(unsigned number, int side) {
    std::mt19937 random(4);
    std::string bytes = "BM" + std::string(52, '\0');
    for (int i = 0; i < 256; ++i)
        bytes +=
            {static_cast<char>(i), static_cast<char>(i * 7 / 8), static_cast<char>(i / 2), '\0'};
    const double middle = side / 2.0;
    const double lean = 0.1 * (number % 16);
    for (int y = 0; y < side; ++y) {
        for (int x = 0; x < side; ++x) {
            const double dx = (x - middle) / middle;
            const double dy = (y - middle) / middle;
            const double radius = dx * dx * (1.3 + lean) + dy * dy;
            const double shade = 40 + 100 * radius + 30 * std::sin(9 * dx + lean) * dy;
            const bool isDithered = random() % 4 == 0;
            bytes += radius > 0.8 ? '\0' : static_cast<char>(static_cast<int>(shade) + isDithered);
        }
    }
    return bytes;
}

std::vector<std::string> Bitmaps() {
    std::vector<std::string> files;
    for (unsigned number = 0; number < 64; ++number)
        files.push_back(Bitmap(number, 96 + static_cast<int>(number % 4) * 32));
    return files;
}

// Texts, programs' data and pictures of about 2.8 KB.
std::vector<std::string> SmallFiles() {
    constexpr std::size_t size = 2800;
    constexpr unsigned count = 2000;
    const std::string text = Text(count * size / 2);
    const std::string binary = Binary(count * size / 2);
    std::vector<std::string> files;
    for (unsigned number = 0; number < count; ++number) {
        const std::size_t at = number / 4 * size;
        if (number % 4 == 3)
            files.push_back(Bitmap(number, 42));
        else
            files.push_back((number % 4 == 2 ? binary : text).substr(at + number % 4, size));
    }
    return files;
}

void Add(std::vector<Data>& all, const char* name, std::vector<std::string> files) {
    Data data{name, std::move(files)};
    if (const std::size_t size = data.Size(); size > 0) {
        data.copies = static_cast<int>((sizeOfArchive + size - 1) / size);
        all.push_back(std::move(data));
    }
}

} // namespace

std::size_t Data::Size() const {
    std::size_t size = 0;
    for (const std::string& file : files)
        size += file.size();
    return size * static_cast<std::size_t>(copies);
}

std::vector<Data> MadeUpData() {
    std::vector<Data> all;
    Add(all, "text", {Text(madeUpSize)});
    Add(all, "binary", {Binary(madeUpSize)});
    Add(all, "incompressible", {Noise(madeUpSize)});
    return all;
}

std::vector<Data> RealData() {
    std::vector<Data> all;
    Add(all, "tar of sources", {TarOfSources()});
    Add(all, "program", {WindowsProgram()});
    Add(all, "bitmaps", Bitmaps());
    Add(all, "small files", SmallFiles());
    return all;
}

} // namespace tamblin::bench
