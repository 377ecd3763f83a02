// Writes small archives, packed data and names for the fuzz targets to start from, into corpus/.
#include <filesystem>
#include <fstream>
#include <string>

#include "support/lzh_writer.h"

using namespace tamblin::lzh;
namespace fs = std::filesystem;

namespace {

void Save(const std::string& target, const std::string& name, const std::string& bytes) {
    const fs::path folder = fs::path("corpus") / target;
    fs::create_directories(folder);
    std::ofstream(folder / name, std::ios::binary) << bytes;
}

std::string SomeText() {
    std::string text;
    for (int i = 0; i < 60; ++i)
        text += "line " + std::to_string(i * i * 7919) + (i % 3 == 0 ? "\r\n" : " and ");
    return text + std::string(50, ' ') + text.substr(100, 300);
}

void SaveDecoders() {
    const std::string text = SomeText();
    const std::string size = LittleEndian(text.size(), 4);
    const auto packed = [&](const std::string& method) {
        return size + Encode(method, text, {.blockSize = 150});
    };
    Save("lzh_adaptive_decoder", "lh1", packed("-lh1-"));
    Save("lzh_larc_decoder", "lzs", LittleEndian(0, 1) + packed("-lzs-"));
    Save("lzh_larc_decoder", "lz5", LittleEndian(1, 1) + packed("-lz5-"));
    Save("lzh_larc_decoder", "stored", LittleEndian(2, 1) + packed("-lh0-"));
    unsigned choice = 0;
    for (const std::string method : {"-lh4-", "-lh5-", "-lh6-", "-lh7-", "-lhx-"})
        Save("lzh_static_decoder", "text" + method, LittleEndian(choice++, 1) + packed(method));
    const std::string one = LittleEndian(100'000, 4) + Encode("-lh5-", std::string(100'000, 'x'));
    Save("lzh_static_decoder", "one_byte_repeated", LittleEndian(1, 1) + one);
}

LzhEntry FullEntry(unsigned level) {
    LzhEntry entry = MakeEntry(L"dir\\表ソ能.txt", "text and text and text", "-lh5-", level);
    entry.headerCrc = false;
    entry.extended = {{0x3F, "comment"},
                      {0x40, LittleEndian(0x21, 2)},
                      {0x41, std::string(24, '\1')},
                      {0x44, Utf16Bytes(u"表.txt")},
                      {0x45, Utf16Bytes(u"dir\uFFFF")},
                      {0x46, LittleEndian(932, 4)},
                      {0x50, LittleEndian(0100644, 2)},
                      {0x54, LittleEndian(1, 4)}};
    return entry;
}

void SaveArchives() {
    for (unsigned level = 0; level <= 3; ++level) {
        LzhWriter writer;
        writer.AddFolder(L"dir", level).Add(FullEntry(level));
        writer.AddFile(L"b.txt", "stored", "-lh0-", level);
        for (const char* target : {"lzh_headers", "lzh_archive"}) {
            Save(target, "level" + std::to_string(level), writer.Finish());
            Save(target, "stub" + std::to_string(level), "MZ stub, stub" + writer.Finish());
        }
    }
    LzhWriter methods;
    for (const char* method : {"-lh0-", "-lh1-", "-lh4-", "-lh6-", "-lz4-", "-lz5-", "-lzs-"})
        methods.AddFile(L"file", "some text, some text", method, 2);
    Save("lzh_archive", "methods", methods.Finish());
    LzhEntry large = MakeEntry(L"a", "x", "-lh0-", 2);
    large.extended.push_back({0x42, LittleEndian(1, 8) + LittleEndian(1, 8)});
    large.headerCrc = true;
    Save("lzh_headers", "large_sizes", LzhWriter().Add(large).Finish());
    LzhEntry mac = MakeEntry(L"mac", std::string(300, '\0'), "-lh0-", 1);
    mac.system = 'm';
    Save("lzh_archive", "mac", LzhWriter().Add(mac).Finish());
}

void SaveNames() {
    const char* const names[] = {
        "dir\\a.txt",          "C:\\x\\..\\a", "/abs/NUL.txt", "dir\xFFx:b",
        "\x95\x5C\x83\x5C\\a", "\x81.",        "\x81\xFF..",   "COM1.txt ",
    };
    int number = 0;
    for (const char* name : names) {
        for (const char codePage : {'\0', '\2', '\3', '\10'})
            Save("lzh_names", "name" + std::to_string(number++),
                 std::string{codePage, '\4'} + name);
    }
}

} // namespace

int main() {
    SaveDecoders();
    SaveArchives();
    SaveNames();
}
