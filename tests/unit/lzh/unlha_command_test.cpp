#include "platform/lzh/unlha_command.h"

#include <gtest/gtest.h>

namespace tamblin::lzh {
namespace {

TEST(UnlhaCommand, NamesAnArchiveToUnpack) {
    EXPECT_EQ(ArchiveOfCommand(L"x \"C:\\my folder\\a.lzh\""), L"C:\\my folder\\a.lzh");
    EXPECT_EQ(ArchiveOfCommand(L"x a.lzh"), L"a.lzh");
    EXPECT_EQ(ArchiveOfCommand(L"  x   \"a b.lzh\"  "), L"a b.lzh");
}

TEST(UnlhaCommand, IsNothingElse) {
    for (const wchar_t* command : {L"", L"x", L"x ", L"x \"\"", L"e \"a.lzh\"", L"xa.lzh",
                                   L"x \"a.lzh\" \"b\"", L"x \"a.lzh", L"-x a.lzh"})
        EXPECT_EQ(ArchiveOfCommand(command), std::nullopt);
}

} // namespace
} // namespace tamblin::lzh
