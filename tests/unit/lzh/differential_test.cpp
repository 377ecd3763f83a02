// Generated archives, unpacked by our reader and by two others: the contents have to be equal. Runs
// natively, where lhasa and bsdtar are; without them the tests are skipped. Which archives are made
// follows from a seed, which is always the same unless TAMBLIN_SEED gives another one.
#ifndef _WIN32

#include <gtest/gtest.h>

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <map>
#include <random>
#include <string>

#include "support/lzh_extraction.h"
#include "support/lzh_test_data.h"
#include "support/lzh_writer.h"
#include "support/sha256.h"

namespace tamblin::lzh {
namespace {

namespace fs = std::filesystem;

constexpr int archivesPerRun = 2000;

using Checksums = std::map<std::string, std::string>; // checksums by path with "/"

bool HasProgram(const std::string& name) {
    return std::system(("command -v " + name + " >/dev/null 2>&1").c_str()) == 0;
}

class Differential : public testing::Test {
  protected:
    Differential() {
        std::string pattern = (fs::temp_directory_path() / "lzh_differential_XXXXXX").string();
        folder = mkdtemp(pattern.data());
    }
    ~Differential() override { fs::remove_all(folder); }

    // What a program makes of the archive, in a folder of its own.
    Checksums UnpackBy(const std::string& command, const std::string& archive) {
        const fs::path target = folder / "out";
        fs::create_directory(target);
        const fs::path file = folder / "a.lzh";
        std::ofstream(file, std::ios::binary) << archive;
        const int code = std::system(("cd '" + target.string() + "' && " + command + " '" +
                                      file.string() + "' >/dev/null 2>&1")
                                         .c_str());
        Checksums contents = ReadTree(target);
        if (code != 0)
            contents["(failure)"] = std::to_string(code);
        fs::remove_all(target);
        return contents;
    }

    static Checksums UnpackByUs(const std::string& archive) {
        const Extraction extraction(archive);
        Checksums contents;
        for (const auto& [path, file] : extraction.target.files) {
            std::string name(path.begin(), path.end()); // only ASCII names are made up here
            for (char& letter : name)
                letter = letter == '\\' ? '/' : letter;
            contents[name] = Sha256(file.bytes);
        }
        if (extraction.Failure() != LzhFailure::None)
            contents["(failure)"] = Describe(extraction.Failure());
        return contents;
    }

  private:
    static Checksums ReadTree(const fs::path& root) {
        Checksums contents;
        for (const auto& item : fs::recursive_directory_iterator(root)) {
            if (!item.is_regular_file())
                continue;
            std::ifstream file(item.path(), std::ios::binary);
            const std::string bytes{std::istreambuf_iterator<char>(file), {}};
            contents[fs::relative(item.path(), root).generic_string()] = Sha256(bytes);
        }
        return contents;
    }

    fs::path folder;
};

unsigned Seed() {
    constexpr unsigned usual = 1;
    const char* given = std::getenv("TAMBLIN_SEED");
    const unsigned seed =
        given == nullptr ? usual : static_cast<unsigned>(std::strtoul(given, nullptr, 10));
    std::printf("TAMBLIN_SEED=%u\n", seed);
    return seed;
}

class ArchiveMaker {
  public:
    // Some readers want a checksum in every header that can have one, and an end mark.
    ArchiveMaker(unsigned seed, bool mustBeTidy) : random(seed), tidy(mustBeTidy) {}

    std::string Make(const std::vector<std::string>& methods, bool useInitialHistory) {
        LzhWriter writer;
        const unsigned level = Below(4);
        const unsigned entries = 1 + Below(4);
        for (unsigned i = 0; i < entries; ++i) {
            const std::string& method = methods[Below(static_cast<unsigned>(methods.size()))];
            const std::wstring folder = Below(3) == 0 ? L"sub\\deeper\\" : L"";
            LzhEntry entry =
                MakeEntry(folder + L"file" + std::to_wstring(i), MakeBytes(), method, level);
            entry.encoder = {.blockSize = 1 + Below(Below(2) == 0 ? 300 : 65536),
                             .lazy = Below(2) == 0,
                             .useInitialHistory = useInitialHistory};
            entry.system = Below(2) == 0 ? 'M' : 'w';
            entry.headerCrc = level > 0 && (tidy || Below(2) == 0);
            writer.Add(entry);
        }
        return !tidy && Below(4) == 0 ? writer.WithoutEndMark() : writer.Finish();
    }

  private:
    unsigned Below(unsigned limit) { return static_cast<unsigned>(random() % limit); }

    std::string MakeBytes() {
        const unsigned size = Below(10) == 0 ? Below(3) : Below(12'000);
        const unsigned seed = Below(1'000'000);
        switch (Below(5)) {
            case 0:
                return RandomBytes(size, seed);
            case 1:
                return SkewedBytes(size, seed);
            case 2:
                return std::string(size, static_cast<char>(seed));
            default:
                return RandomText(size, seed);
        }
    }

    std::mt19937 random;
    const bool tidy;
};

TEST_F(Differential, EqualsLhasa) {
    if (!HasProgram("lhasa"))
        GTEST_SKIP() << "lhasa is not installed";
    ArchiveMaker maker(Seed(), false);
    for (int i = 0; i < archivesPerRun / 2; ++i) {
        const std::string archive = maker.Make({"-lh0-", "-lh1-", "-lh4-", "-lh5-", "-lh6-",
                                                "-lh7-", "-lhx-", "-lz4-", "-lz5-", "-lzs-"},
                                               true);
        ASSERT_EQ(UnpackByUs(archive), UnpackBy("lhasa xqf", archive)) << "archive " << i;
    }
}

TEST_F(Differential, EqualsBsdtar) {
    if (!HasProgram("bsdtar"))
        GTEST_SKIP() << "bsdtar is not installed";
    ArchiveMaker maker(Seed() + 1, true);
    int compared = 0;
    for (int i = 0; i < archivesPerRun / 2; ++i) {
        const std::string archive = maker.Make({"-lh0-", "-lh5-", "-lh6-", "-lh7-"}, false);
        const Checksums theirs = UnpackBy("bsdtar xf", archive);
        const Checksums ours = UnpackByUs(archive);
        ASSERT_EQ(ours.count("(failure)"), 0u) << "archive " << i;
        // It refuses some of the codes with one symbol only.
        if (theirs.count("(failure)") > 0)
            continue;
        ASSERT_EQ(ours, theirs) << "archive " << i;
        ++compared;
    }
    EXPECT_GE(compared, archivesPerRun / 4);
}

} // namespace
} // namespace tamblin::lzh

#endif
