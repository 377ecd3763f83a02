#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>

#include "reader_under_test.h"

namespace tamblin::bench {
namespace {

// 7-Zip's own test of an archive, as a program on one thread. Its start counts too.
class SevenZipReader : public ReaderUnderTest {
  public:
    ~SevenZipReader() override { std::filesystem::remove(path); }

    std::string Name() const override { return "7-Zip"; }

    std::uint64_t Unpack(const std::string& archive) override {
        if (archive.size() != written) {
            std::ofstream(path, std::ios::binary) << archive;
            written = archive.size();
        }
        FILE* output = popen(("7zz t -mmt1 -tlzh " + path.string() + " 2>/dev/null").c_str(), "r");
        if (output == nullptr)
            return 0;
        std::uint64_t size = 0;
        char line[512];
        while (std::fgets(line, sizeof line, output) != nullptr) {
            unsigned long long number = 0;
            if (std::sscanf(line, "Size: %llu", &number) == 1)
                size = number;
        }
        return pclose(output) == 0 ? size : 0;
    }

  private:
    std::filesystem::path path =
        std::filesystem::temp_directory_path() / ("bench_lzh_" + std::to_string(getpid()) + ".lzh");
    std::size_t written = 0;
};

} // namespace

std::unique_ptr<ReaderUnderTest> MakeSevenZipReader() {
    return std::make_unique<SevenZipReader>();
}

} // namespace tamblin::bench
