#include <libdeflate.h>

#include <cmath>
#include <cstdlib>

#include "reader_under_test.h"

namespace tamblin::bench {
namespace {

// No reader of LZH archives, but the fastest decoder of codes and matches of the same kind. It is
// given the same data, packed by itself to about the same size, a piece per file, with checksums.
class LibdeflateReader : public ReaderUnderTest {
  public:
    ~LibdeflateReader() override { libdeflate_free_decompressor(decompressor); }

    std::string Name() const override { return "libdeflate"; }

    void Prepare(const Data& data, const std::string& archive) override {
        const double wanted = static_cast<double>(archive.size()) / data.copies;
        pieces = Pack(data.files, 1);
        for (int level = 2; level <= 12; ++level) {
            auto other = Pack(data.files, level);
            if (std::abs(SizeOf(other) - wanted) < std::abs(SizeOf(pieces) - wanted))
                pieces = std::move(other);
        }
        copies = data.copies;
        room.resize(0);
        for (const std::string& file : data.files)
            room.resize(std::max(room.size(), file.size()));
    }

    std::uint64_t Unpack(const std::string&) override {
        std::uint64_t count = 0;
        for (int copy = 0; copy < copies; ++copy) {
            for (const std::string& piece : pieces) {
                std::size_t size = 0;
                if (libdeflate_gzip_decompress(decompressor, piece.data(), piece.size(),
                                               room.data(), room.size(),
                                               &size) != LIBDEFLATE_SUCCESS)
                    return 0;
                count += size;
            }
        }
        return count;
    }

  private:
    static std::vector<std::string> Pack(const std::vector<std::string>& files, int level) {
        libdeflate_compressor* compressor = libdeflate_alloc_compressor(level);
        std::vector<std::string> packed;
        for (const std::string& file : files) {
            std::string piece(libdeflate_gzip_compress_bound(compressor, file.size()), '\0');
            piece.resize(libdeflate_gzip_compress(compressor, file.data(), file.size(),
                                                  piece.data(), piece.size()));
            packed.push_back(piece);
        }
        libdeflate_free_compressor(compressor);
        return packed;
    }

    static double SizeOf(const std::vector<std::string>& all) {
        double size = 0;
        for (const std::string& piece : all)
            size += static_cast<double>(piece.size());
        return size;
    }

    libdeflate_decompressor* decompressor = libdeflate_alloc_decompressor();
    std::vector<std::string> pieces;
    std::string room;
    int copies = 1;
};

} // namespace

std::unique_ptr<ReaderUnderTest> MakeLibdeflateReader() {
    return std::make_unique<LibdeflateReader>();
}

} // namespace tamblin::bench
