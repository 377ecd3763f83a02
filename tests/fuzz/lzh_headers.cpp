// Walking through the headers of an archive.
#include "fuzz_support.h"
#include "platform/lzh/entry_list.h"

using namespace tamblin::lzh;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    MemoryView archive(AsText(data, size));
    EntryList entries(archive);
    std::uint64_t before = 0;
    bool wasCut = false;
    try {
        while (const auto entry = entries.Next()) {
            Demand(entry->dataOffset > before);
            Demand(!wasCut);
            wasCut = !entry->FitsInto(size);
            before = entry->dataOffset;
        }
    } catch (const LzhError&) {
        // as good as any other end
    }
    return 0;
}
