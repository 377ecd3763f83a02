// Unpacks a collection of archives by many old archivers and compares with the list of contents
// beside them. The folder is named by TAMBLIN_LZH_SAMPLES.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <map>
#include <sstream>
#include <string>

#include "support/lzh_extraction.h"
#include "support/sha256.h"

namespace tamblin::lzh {
namespace {

namespace fs = std::filesystem;

// By upper-cased path with "/": size and checksum.
using FilesOfSample = std::map<std::string, std::pair<std::size_t, std::string>>;

std::string UpperAscii(std::string text) {
    std::transform(text.begin(), text.end(), text.begin(),
                   [](char c) { return c >= 'a' && c <= 'z' ? static_cast<char>(c - 32) : c; });
    return text;
}

std::string ReadFile(const fs::path& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

// By archive ("lha213/lh5.lzh").
std::map<std::string, FilesOfSample> ReadList(const fs::path& path) {
    std::map<std::string, FilesOfSample> list;
    std::istringstream lines(ReadFile(path));
    std::string line;
    std::getline(lines, line); // headings
    while (std::getline(lines, line)) {
        std::istringstream fields(line);
        std::string archive, entry, size, sum;
        std::getline(fields, archive, '\t');
        std::getline(fields, entry, '\t');
        std::getline(fields, size, '\t');
        std::getline(fields, sum);
        list[archive][UpperAscii(entry)] = {std::stoul(size), sum.substr(0, 64)};
    }
    return list;
}

FilesOfSample ContentsOf(const Extraction& extraction) {
    FilesOfSample contents;
    for (const auto& [path, file] : extraction.target.files) {
        std::string name(path.begin(), path.end()); // the samples' names are ASCII
        std::replace(name.begin(), name.end(), '\\', '/');
        contents[UpperAscii(name)] = {file.bytes.size(), Sha256(file.bytes)};
    }
    return contents;
}

class Samples : public testing::Test {
  protected:
    void SetUp() override {
        const char* named = std::getenv("TAMBLIN_LZH_SAMPLES");
        if (named == nullptr || *named == '\0')
            GTEST_SKIP() << "TAMBLIN_LZH_SAMPLES names no folder with sample archives";
        folder = named;
        list = ReadList(folder / "expected.tsv");
    }

    fs::path folder;
    std::map<std::string, FilesOfSample> list;
};

TEST_F(Samples, UnpackToTheListedContents) {
    std::size_t unpacked = 0;
    for (const auto& item : fs::recursive_directory_iterator(folder)) {
        const std::string extension = UpperAscii(item.path().extension().string());
        if (extension != ".LZH" && extension != ".LZS")
            continue;
        const std::string name = fs::relative(item.path(), folder).generic_string();
        const Extraction extraction(ReadFile(item.path()));
        EXPECT_EQ(ContentsOf(extraction), list[name]) << name;
        const bool isTruncated = name == "regression/truncated.lzh";
        EXPECT_EQ(extraction.Failure(), isTruncated ? LzhFailure::Truncated : LzhFailure::None)
            << name;
        ++unpacked;
    }
    EXPECT_GE(unpacked, 70u);
    for (const auto& [archive, contents] : list)
        EXPECT_TRUE(fs::exists(folder / archive)) << archive;
}

} // namespace
} // namespace tamblin::lzh
