// bench_lzh: prints how fast archives are unpacked, in megabytes of unpacked data per second, by
// our reader and by others, and ours divided by the others. All read the same archives from memory
// (one runs as a program and reads a file), check checksums and throw the data away; of several
// rounds, in which the readers take turns, the fastest counts.
#include <algorithm>
#include <cstdio>
#include <string>
#include <vector>

#include "bench_data.h"
#include "processor_time.h"
#include "reader_under_test.h"
#include "support/lzh_writer.h"

namespace {

using namespace tamblin;
using namespace tamblin::bench;

constexpr std::size_t dataSize = 4 << 20;
constexpr int copies = 4; // files of the same contents in an archive
constexpr int rounds = 7;

const char* const methods[] = {"-lh5-", "-lh6-", "-lh7-", "-lh4-", "-lh1-",
                               "-lz5-", "-lzs-", "-lhx-", "-lh0-"};

std::string MakeArchive(const std::string& method, const std::string& bytes) {
    lzh::LzhEntry entry = lzh::MakeEntry(L"x", bytes, method, 2);
    entry.packed = lzh::Encode(method, bytes, {.blockSize = 32 * 1024, .useInitialHistory = false});
    lzh::LzhWriter writer;
    for (int i = 0; i < copies; ++i) {
        entry.name = "file" + std::to_string(i);
        writer.Add(entry);
    }
    return writer.Finish();
}

double SecondsOf(ReaderUnderTest& reader, const std::string& archive) {
    const double start = ProcessorSeconds();
    const std::uint64_t count = reader.Unpack(archive);
    const double time = ProcessorSeconds() - start;
    return count == dataSize * copies ? time : 0; // 0: it cannot read this
}

std::vector<double> BestSeconds(const Readers& readers, const std::string& archive) {
    std::vector<double> best(readers.size(), 1e9);
    for (int round = 0; round < rounds; ++round) {
        for (std::size_t i = 0; i < readers.size(); ++i)
            best[i] = std::min(best[i], SecondsOf(*readers[i], archive));
    }
    return best;
}

void PrintHeadings(const Readers& readers) {
    std::printf("%-7s %-15s %7s", "method", "data", "packed");
    for (const auto& reader : readers)
        std::printf(" %11s", reader->Name().c_str());
    for (std::size_t i = 1; i < readers.size(); ++i)
        std::printf(" %13s", ("/ " + readers[i]->Name()).c_str());
    std::printf("\n");
}

void PrintLine(const char* method, const Data& data, const Readers& readers) {
    const std::string archive = MakeArchive(method, data.bytes);
    const std::vector<double> seconds = BestSeconds(readers, archive);
    const double size = static_cast<double>(dataSize) * copies;
    std::printf("%-7s %-15s %6.1f%%", method, data.name,
                100.0 * static_cast<double>(archive.size()) / size);
    for (const double time : seconds) {
        if (time > 0)
            std::printf(" %6.0f MB/s", size / time / 1e6);
        else
            std::printf(" %11s", "-");
    }
    for (std::size_t i = 1; i < seconds.size(); ++i) {
        if (seconds[i] > 0)
            std::printf(" %13.2f", seconds[i] / seconds[0]);
        else
            std::printf(" %13s", "-");
    }
    std::printf("\n");
    std::fflush(stdout);
}

} // namespace

// Arguments: the methods to try; all without any.
int main(int argumentCount, char** arguments) {
    Readers readers;
    readers.push_back(MakeOwnReader());
    for (auto& reader : MakeOtherReaders())
        readers.push_back(std::move(reader));
    const std::vector<std::string> wanted(arguments + 1, arguments + argumentCount);
    const std::vector<Data> allData = MakeData(dataSize);
    PrintHeadings(readers);
    for (const char* method : methods) {
        if (!wanted.empty() && std::find(wanted.begin(), wanted.end(), method) == wanted.end())
            continue;
        for (const Data& data : allData)
            PrintLine(method, data, readers);
    }
}
