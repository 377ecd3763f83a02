// bench_lzh: prints how fast archives are unpacked, in megabytes of unpacked data per second, by
// our reader and by others, and ours divided by the others. All read the same archives from memory
// (one runs as a program and reads a file; libdeflate reads a format of its own), check checksums
// and throw the data away; of several rounds, in which the readers take turns, the fastest counts.
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

constexpr int rounds = 7;

const char* const methods[] = {"-lh5-", "-lh6-", "-lh7-", "-lh4-", "-lh1-",
                               "-lz5-", "-lzs-", "-lhx-", "-lh0-"};

// Those that packages are packed by are tried on real data, too.
bool IsUsual(const std::string& method) {
    return method == "-lh5-" || method == "-lh6-" || method == "-lh7-" || method == "-lh1-";
}

std::string MakeArchive(const std::string& method, const Data& data) {
    std::vector<lzh::LzhEntry> entries;
    for (const std::string& bytes : data.files) {
        entries.push_back(lzh::MakeEntry(L"x", bytes, method, 2));
        entries.back().packed =
            lzh::Encode(method, bytes, {.blockSize = 32 * 1024, .useInitialHistory = false});
    }
    lzh::LzhWriter writer;
    for (int i = 0; i < data.copies; ++i) {
        for (lzh::LzhEntry& entry : entries) {
            entry.name = "file" + std::to_string(i);
            writer.Add(entry);
        }
    }
    return writer.Finish();
}

double SecondsOf(ReaderUnderTest& reader, const std::string& archive, std::size_t size) {
    const double start = ProcessorSeconds();
    const std::uint64_t count = reader.Unpack(archive);
    const double time = ProcessorSeconds() - start;
    return count == size ? time : 0; // 0: it cannot read this
}

std::vector<double> BestSeconds(const Readers& readers, const std::string& archive,
                                const Data& data) {
    for (const auto& reader : readers)
        reader->Prepare(data, archive);
    std::vector<double> best(readers.size(), 1e9);
    for (int round = 0; round < rounds; ++round) {
        for (std::size_t i = 0; i < readers.size(); ++i)
            best[i] = std::min(best[i], SecondsOf(*readers[i], archive, data.Size()));
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
    const std::string archive = MakeArchive(method, data);
    const std::vector<double> seconds = BestSeconds(readers, archive, data);
    const auto size = static_cast<double>(data.Size());
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
    const std::vector<Data> madeUp = MadeUpData();
    const std::vector<Data> real = RealData();
    PrintHeadings(readers);
    for (const char* method : methods) {
        if (!wanted.empty() && std::find(wanted.begin(), wanted.end(), method) == wanted.end())
            continue;
        for (const Data& data : madeUp)
            PrintLine(method, data, readers);
        for (const Data& data : real) {
            if (IsUsual(method))
                PrintLine(method, data, readers);
        }
    }
}
