#include "platform/lzh/output_window.h"

#include <algorithm>
#include <cstring>

namespace tamblin::lzh {
namespace {

// Small enough to stay in the processor's cache, large enough that moving the history is rare.
constexpr std::size_t smallestChunk = 64 * 1024;

} // namespace

void OutputWindow::Start(std::size_t historySize, std::uint8_t fill, std::uint64_t size,
                         ByteSink& byteSink) {
    history = historySize;
    chunk = std::max(smallestChunk, 2 * historySize);
    remaining = size;
    sink = &byteSink;
    Reserve(history + chunk + slack);
    FillHistory(fill);
    SetLimit();
}

void OutputWindow::FillHistory(std::uint8_t fill) {
    if (filledSize == history && filledWith == fill)
        return;
    std::memset(memory.get(), fill, history);
    filledSize = history;
    filledWith = fill;
}

void OutputWindow::Reserve(std::size_t size) {
    if (size <= memorySize)
        return;
    memory.reset(); // first, so that the two are never there at once
    memorySize = 0;
    filledSize = 0;
    memory = std::make_unique_for_overwrite<std::uint8_t[]>(size);
    memorySize = size;
}

void OutputWindow::SetLimit() {
    next = memory.get() + history;
    limit = next + std::min<std::uint64_t>(chunk, remaining);
}

void OutputWindow::PassOn(std::uint8_t* end) {
    const auto unpacked = static_cast<std::size_t>(end - next);
    const auto wanted = static_cast<std::size_t>(std::min<std::uint64_t>(unpacked, remaining));
    if (wanted > 0)
        sink->Write(next, wanted);
    remaining -= wanted;
    if (remaining > 0) {
        std::memmove(memory.get(), end - history, history);
        filledSize = 0;
    }
    SetLimit();
}

} // namespace tamblin::lzh
