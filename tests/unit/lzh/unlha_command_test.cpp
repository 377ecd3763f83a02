#include "platform/lzh/unlha_command.h"

#include <gtest/gtest.h>

#include "support/lzh_memory_unlha.h"
#include "support/lzh_writer.h"
#include "support/memory_file_system.h"

namespace tamblin {
namespace {

using lzh::ArchiveOfCommand;
using lzh::LzhFailure;
using lzh::LzhWriter;

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

class MemoryUnlhaTest : public testing::Test {
  protected:
    MemoryUnlhaTest() {
        files.AddDrive(L"C:");
        files.MakeFolder(L"C:\\TAMTMP");
        files.SetCurrentFolder(L"C:\\TAMTMP");
    }

    std::int16_t Run(const std::string& archive) {
        files.Write(L"C:\\a.lzh", archive);
        return unlha.Run(nullptr, L"x \"C:\\a.lzh\"", L"\"C:\\TAMTMP\"", 0);
    }

    MemoryFileSystem files;
    MemoryUnlha unlha{files};
};

TEST_F(MemoryUnlhaTest, UnpacksIntoTheCurrentFolder) {
    EXPECT_EQ(Run(LzhWriter().AddFile(L"ふ\\a.txt", "text").AddFolder(L"空").Finish()), 0);
    EXPECT_EQ(files.Read(L"C:\\TAMTMP\\ふ\\a.txt"), "text");
    EXPECT_TRUE(files.Find(L"C:\\TAMTMP\\空")->attributes.folder);
}

TEST_F(MemoryUnlhaTest, SetsAndReplacesReadOnlyFilesAndHidesNone) {
    lzh::LzhEntry entry = lzh::MakeEntry(L"a.txt", "text", "-lh5-", 1);
    entry.dosAttributes = 0x27;
    EXPECT_EQ(Run(LzhWriter().Add(entry).Add(entry).Finish()), 0);
    const FileAttributes attributes = files.Find(L"C:\\TAMTMP\\a.txt")->attributes;
    EXPECT_TRUE(attributes.readOnly);
    EXPECT_FALSE(attributes.hidden);
    EXPECT_FALSE(attributes.system);
}

TEST_F(MemoryUnlhaTest, ReturnsTheNumberOfTheFailure) {
    EXPECT_EQ(Run("no archive at all, whatever its name says"),
              static_cast<std::int16_t>(LzhFailure::NotAnArchive));
    EXPECT_EQ(unlha.Run(nullptr, L"x \"C:\\missing.lzh\"", L"", 0),
              static_cast<std::int16_t>(LzhFailure::CannotOpenArchive));
    EXPECT_EQ(unlha.Run(nullptr, L"l \"C:\\a.lzh\"", L"", 0),
              static_cast<std::int16_t>(LzhFailure::BadCommand));
}

} // namespace
} // namespace tamblin
