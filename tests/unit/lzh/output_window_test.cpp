// The history that each entry begins with, whatever the entries before it have left.
#include "platform/lzh/output_window.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>

namespace tamblin::lzh {
namespace {

class Text : public ByteSink {
  public:
    std::string bytes;
    void Write(const std::uint8_t* data, std::size_t size) override {
        bytes.append(reinterpret_cast<const char*>(data), size);
    }
};

class OutputWindowTest : public testing::Test {
  protected:
    void Start(std::size_t history, char fill, std::uint64_t size) {
        text.bytes.clear();
        window.Start(history, static_cast<std::uint8_t>(fill), size, text);
    }
    void Unpack(std::size_t size, char letter) {
        while (size > 0) {
            const auto room = static_cast<std::size_t>(window.Limit() - window.Next());
            const std::size_t piece = std::min(size, room);
            std::fill_n(window.Next(), piece, static_cast<std::uint8_t>(letter));
            window.PassOn(window.Next() + piece);
            size -= piece;
        }
    }
    std::string History(std::size_t size) const {
        return {reinterpret_cast<const char*>(window.Next()) - size, size};
    }

    OutputWindow window;
    Text text;
};

TEST_F(OutputWindowTest, EveryEntryBeginsWithAFreshHistory) {
    for (const std::size_t size : {1u, 100u, 65'536u, 65'537u, 300'000u, 5u}) {
        for (const std::size_t history : {4096u, 8192u, 65'536u, 8192u}) {
            for (const char fill : {' ', '\0', ' ', ' '}) {
                Start(history, fill, size);
                ASSERT_EQ(History(history), std::string(history, fill)) << size << " " << history;
                Unpack(size, 'x');
                ASSERT_TRUE(window.Complete());
                ASSERT_EQ(text.bytes, std::string(size, 'x'));
            }
        }
    }
}

TEST_F(OutputWindowTest, HistoryThatAMethodHasWrittenIsNotLeftForTheNext) {
    Start(4096, ' ', 10);
    std::fill_n(window.History(), 4096, std::uint8_t{'h'});
    Unpack(10, 'x');
    Start(4096, ' ', 10);
    EXPECT_EQ(History(4096), std::string(4096, ' '));
}

TEST_F(OutputWindowTest, EntryWithAShorterHistoryLeavesNothingInTheNextLongerOne) {
    for (const std::size_t history : {65'536u, 4096u, 65'536u}) {
        Start(history, ' ', 10);
        EXPECT_EQ(History(history), std::string(history, ' ')) << history;
        Unpack(10, 'x');
    }
}

TEST_F(OutputWindowTest, WhatIsUnpackedBeyondTheEntryIsDropped) {
    Start(4096, ' ', 10);
    EXPECT_EQ(window.Limit() - window.Next(), 10);
    std::fill_n(window.Next(), 60, std::uint8_t{'x'});
    window.PassOn(window.Next() + 60);
    EXPECT_TRUE(window.Complete());
    EXPECT_EQ(text.bytes, std::string(10, 'x'));
}

TEST_F(OutputWindowTest, HistoryOfALongEntryMovesAlong) {
    Start(4096, ' ', 200'000);
    Unpack(100'000, 'a');
    EXPECT_EQ(History(4096), std::string(4096, 'a'));
    Unpack(100'000, 'b');
    EXPECT_EQ(text.bytes, std::string(100'000, 'a') + std::string(100'000, 'b'));
}

} // namespace
} // namespace tamblin::lzh
