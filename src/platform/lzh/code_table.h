// Looks the next bits of the data up and tells at once what they begin with. Codes that are longer
// than the table's index are left out; they are found the slow way (PrefixCode::Find).
#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>

#include "platform/lzh/prefix_code.h"

namespace tamblin::lzh {

template <typename Entry, unsigned bitsOfIndex>
class CodeTable {
  public:
    static constexpr unsigned indexBits = bitsOfIndex;
    static constexpr std::size_t size = std::size_t{1} << indexBits;

    // The entry for the data whose next bits stand at the top of the word.
    Entry operator[](std::uint64_t bits) const { return entries[bits >> (64 - indexBits)]; }

    Entry& At(std::size_t index) { return entries[index]; }

    // entryFor(symbol, length) for each code, `missing` where none fits. The codes' stretches
    // follow one another, so each may be written too far by its last few entries.
    template <typename EntryFor>
    void Fill(const PrefixCode& code, Entry missing, EntryFor entryFor) {
        Entry* next = entries.data();
        code.ForEach(indexBits, [&](unsigned symbol, unsigned length) {
            const Entry entry = entryFor(symbol, length);
            Entry* const end = next + (size >> length);
            do {
                std::fill_n(next, entriesAtOnce, entry);
                next += entriesAtOnce;
            } while (next < end);
            next = end;
        });
        std::fill(next, entries.data() + size, missing);
    }

    // The one symbol there is, whose code takes no bits.
    void FillAll(Entry entry) { entries.fill(entry); }

  private:
    static constexpr std::size_t entriesAtOnce = 16 / sizeof(Entry);

    std::array<Entry, size + entriesAtOnce> entries;
};

} // namespace tamblin::lzh
