// Looks the next bits of the data up and tells at once what they begin with. Codes that are longer
// than the table's index are left out; they are found the slow way (PrefixCode::Find).
#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>

#include "platform/lzh/prefix_code.h"

namespace tamblin::lzh {

template <unsigned indexBits>
class CodeTable {
  public:
    static constexpr std::size_t size = std::size_t{1} << indexBits;

    // The entry for the data whose next bits stand at the top of the word.
    std::uint32_t operator[](std::uint64_t bits) const { return entries[bits >> (64 - indexBits)]; }

    std::uint32_t& At(std::size_t index) { return entries[index]; }

    // entryFor(symbol, length) for each code, `missing` where none fits.
    template <typename EntryFor>
    void Fill(const PrefixCode& code, std::uint32_t missing, EntryFor entryFor) {
        std::uint32_t* next = entries.data();
        code.ForEach(indexBits, [&](unsigned symbol, unsigned length) {
            next = std::fill_n(next, size >> length, entryFor(symbol, length));
        });
        std::fill(next, entries.data() + size, missing);
    }

    // The one symbol there is, whose code takes no bits.
    void FillAll(std::uint32_t entry) { entries.fill(entry); }

  private:
    std::array<std::uint32_t, size> entries;
};

} // namespace tamblin::lzh
