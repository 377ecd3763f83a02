// Unpacking into a real folder natively: archives of another archiver, and links in the way.
#ifndef _WIN32

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>

#include "platform/lzh/extractor.h"
#include "platform/posix/iconv_code_pages.h"
#include "platform/posix/lzh_file_source.h"
#include "platform/posix/lzh_folder_target.h"
#include "support/lzh_memory_source.h"
#include "support/lzh_test_data.h"
#include "support/lzh_writer.h"

namespace tamblin::lzh {
namespace {

namespace fs = std::filesystem;

class NativeFolder : public testing::Test {
  protected:
    NativeFolder() {
        std::string pattern = (fs::temp_directory_path() / "lzh_folder_XXXXXX").string();
        folder = mkdtemp(pattern.data());
        target = folder / "target";
        fs::create_directory(target);
        fs::create_directory(folder / "elsewhere");
    }
    ~NativeFolder() override { fs::remove_all(folder); }

    ExtractionResult Unpack(ArchiveSource& source) {
        LzhFolderTarget folderTarget(target.string());
        IconvCodePages codePages;
        return Extractor(source, folderTarget, codePages).Run();
    }

    LzhFailure Unpack(const std::string& archive) {
        MemorySource source(archive);
        return Unpack(source).failure;
    }

    static void Save(const fs::path& path, const std::string& bytes) {
        std::ofstream(path, std::ios::binary) << bytes;
    }

    static std::string Load(const fs::path& path) {
        std::ifstream file(path, std::ios::binary);
        return {std::istreambuf_iterator<char>(file), {}};
    }

    fs::path folder;
    fs::path target;
};

TEST_F(NativeFolder, TakesFilesFoldersTimesAndWriteProtection) {
    LzhEntry entry = MakeEntry(L"表ソ能\\ア.TXT", "text", "-lh5-", 2);
    entry.extended.push_back({0x40, LittleEndian(0x21, 2)});
    EXPECT_EQ(Unpack(LzhWriter().Add(entry).AddFolder(L"空").Finish()), LzhFailure::None);
    const fs::path file = target / "表ソ能/ア.TXT";
    EXPECT_EQ(Load(file), "text");
    EXPECT_TRUE(fs::is_directory(target / "空"));
    struct stat status {};
    ASSERT_EQ(stat(file.c_str(), &status), 0);
    EXPECT_EQ(status.st_mtime, 1015302330);
    EXPECT_EQ(status.st_mode & 0222, 0u);
}

TEST_F(NativeFolder, NewFileTakesThePlaceOfAReadOnlyOne) {
    Save(target / "a", "old");
    fs::permissions(target / "a", fs::perms::owner_read);
    EXPECT_EQ(Unpack(LzhWriter().AddFile(L"a", "new").Finish()), LzhFailure::None);
    EXPECT_EQ(Load(target / "a"), "new");
}

TEST_F(NativeFolder, SecondNameOfAnOldFileElsewhereKeepsItsContents) {
    Save(folder / "elsewhere/a", "untouched");
    fs::create_hard_link(folder / "elsewhere/a", target / "a");
    EXPECT_EQ(Unpack(LzhWriter().AddFile(L"a", "new").Finish()), LzhFailure::None);
    EXPECT_EQ(Load(folder / "elsewhere/a"), "untouched");
}

TEST_F(NativeFolder, LinksInTheWayAreNotFollowed) {
    Save(folder / "elsewhere/a", "untouched");
    fs::create_directory_symlink(folder / "elsewhere", target / "dir");
    fs::create_symlink(folder / "elsewhere/a", target / "a");
    fs::create_symlink(folder / "elsewhere/new", target / "dangling");
    fs::create_directory(target / "real");
    fs::create_directory_symlink("../../elsewhere", target / "real/deep");
    for (const wchar_t* path : {L"dir\\a", L"a", L"dangling", L"real\\deep\\a", L"dir\\sub\\x"}) {
        EXPECT_EQ(Unpack(LzhWriter().AddFile(path, "evil").Finish()), LzhFailure::LinkInTheWay);
    }
    EXPECT_EQ(Unpack(LzhWriter().AddFolder(L"dir\\sub").Finish()), LzhFailure::LinkInTheWay);
    EXPECT_EQ(Load(folder / "elsewhere/a"), "untouched");
    EXPECT_EQ(std::distance(fs::directory_iterator(folder / "elsewhere"), {}), 1);
}

TEST_F(NativeFolder, FoldersAndFilesInEachOthersWayAreAFailure) {
    fs::create_directory(target / "x");
    EXPECT_EQ(Unpack(LzhWriter().AddFile(L"x", "file").Finish()), LzhFailure::CannotWrite);
    Save(target / "y", "file");
    EXPECT_EQ(Unpack(LzhWriter().AddFile(L"y\\z", "file").Finish()), LzhFailure::CannotWrite);
    EXPECT_EQ(Load(target / "y"), "file");
}

TEST_F(NativeFolder, FailedFileIsTakenAway) {
    LzhEntry entry = MakeEntry(L"dir\\a", RandomText(200'000, 1), "-lh5-", 2);
    entry.claimedCrc = 1;
    EXPECT_EQ(Unpack(LzhWriter().Add(entry).Finish()), LzhFailure::WrongChecksum);
    EXPECT_FALSE(fs::exists(target / "dir/a"));
}

TEST_F(NativeFolder, ArchiveHasToBeAFile) {
    EXPECT_THROW(LzhFileSource((folder / "missing").string()), LzhError);
    EXPECT_THROW(LzhFileSource(folder.string()), LzhError);
}

TEST_F(NativeFolder, ArchivesByJlhaUnpack) {
    if (std::system("command -v jlha >/dev/null 2>&1") != 0)
        GTEST_SKIP() << "jlha is not installed";
    const std::string big = RandomText(400'000, 5) + RandomBytes(100'000, 6);
    fs::create_directories(folder / "in/表ソ能");
    Save(folder / "in/表ソ能/ソ.txt", "ソ");
    Save(folder / "in/ア.TXT", big);
    for (const char* command : {"aqo5", "aqo6", "aqo7"}) {
        const fs::path archive = folder / (std::string(command) + ".lzh");
        ASSERT_EQ(
            std::system(("cd '" + (folder / "in").string() + "' && LC_ALL=ja_JP.UTF-8 jlha " +
                         command + " '" + archive.string() + "' 表ソ能 ア.TXT >/dev/null 2>&1")
                            .c_str()),
            0);
        LzhFileSource source(archive.string());
        EXPECT_EQ(Unpack(source).Message(), L"no error");
        EXPECT_EQ(Load(target / "表ソ能/ソ.txt"), "ソ");
        EXPECT_EQ(Load(target / "ア.TXT"), big);
    }
}

} // namespace
} // namespace tamblin::lzh

#endif
