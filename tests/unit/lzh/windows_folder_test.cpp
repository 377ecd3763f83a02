// Unpacking into a real folder on Windows: times, attributes, links in the way.
#ifdef _WIN32

#include <gtest/gtest.h>
#include <windows.h>

#include <filesystem>
#include <fstream>
#include <iterator>

#include "platform/lzh/extended_header.h"
#include "platform/win32/lzh_extraction.h"
#include "platform/win32/win32_unlha.h"
#include "support/folder_link.h"
#include "support/lzh_test_data.h"
#include "support/lzh_writer.h"
#include "support/temporary_folder.h"

namespace tamblin::lzh {
namespace {

namespace fs = std::filesystem;

class WindowsFolder : public testing::Test {
  protected:
    WindowsFolder() : folder(temporary.Path()), target(folder + L"\\target") {
        fs::create_directory(target);
        fs::create_directory(folder + L"\\elsewhere");
        SetCurrentDirectoryW(target.c_str());
    }

    LzhFailure Unpack(const std::string& archive) {
        Save(folder + L"\\表 a.lzh", archive);
        return ExtractIntoCurrentFolder(L"..\\表 a.lzh", HiddenFiles::AsStored).failure;
    }

    static void Save(const std::wstring& path, const std::string& bytes) {
        std::ofstream(fs::path(path), std::ios::binary) << bytes;
    }

    static std::string Load(const std::wstring& path) {
        std::ifstream file(fs::path(path), std::ios::binary);
        return {std::istreambuf_iterator<char>(file), {}};
    }

    struct Times {
        std::uint64_t created = 0;
        std::uint64_t accessed = 0;
        std::uint64_t modified = 0;
    };

    static std::uint64_t Number(FILETIME time) {
        return static_cast<std::uint64_t>(time.dwHighDateTime) << 32 | time.dwLowDateTime;
    }

    static Times TimesOf(const std::wstring& path) {
        WIN32_FILE_ATTRIBUTE_DATA data{};
        GetFileAttributesExW(path.c_str(), GetFileExInfoStandard, &data);
        return {Number(data.ftCreationTime), Number(data.ftLastAccessTime),
                Number(data.ftLastWriteTime)};
    }

    TemporaryFolder temporary;
    const std::wstring folder;
    const std::wstring target;
};

TEST_F(WindowsFolder, TakesFilesAndFolders) {
    EXPECT_EQ(Unpack(LzhWriter()
                         .AddFile(L"表ソ能\\ｶﾅ\\ア.TXT", "text")
                         .AddFolder(L"空")
                         .AddFile(L"①㈱髙.txt", "")
                         .Finish()),
              LzhFailure::None);
    EXPECT_EQ(Load(target + L"\\表ソ能\\ｶﾅ\\ア.TXT"), "text");
    EXPECT_TRUE(fs::is_directory(target + L"\\空"));
    EXPECT_TRUE(fs::exists(target + L"\\①㈱髙.txt"));
}

TEST_F(WindowsFolder, SetsReadOnlyHiddenAndSystem) {
    LzhWriter writer;
    for (const unsigned attributes : {0x20u, 0x21u, 0x22u, 0x24u, 0x27u, 0x00u}) {
        LzhEntry entry = MakeEntry(L"f" + std::to_wstring(attributes), "x", "-lh0-", 1);
        entry.dosAttributes = attributes;
        writer.Add(entry);
    }
    LzhEntry inHeader = MakeEntry(L"header", "x", "-lh0-", 2);
    inHeader.extended.push_back({0x40, LittleEndian(0x03, 2)});
    LzhEntry hiddenFolder = MakeEntry(L"hidden\\", "", "-lhd-", 1);
    hiddenFolder.dosAttributes = 0x12;
    EXPECT_EQ(Unpack(writer.Add(inHeader).Add(hiddenFolder).Finish()), LzhFailure::None);
    constexpr DWORD told = FILE_ATTRIBUTE_READONLY | FILE_ATTRIBUTE_HIDDEN | FILE_ATTRIBUTE_SYSTEM;
    for (const unsigned attributes : {0x20u, 0x21u, 0x22u, 0x24u, 0x27u, 0x00u}) {
        const std::wstring path = target + L"\\f" + std::to_wstring(attributes);
        EXPECT_EQ(GetFileAttributesW(path.c_str()) & told, attributes & told) << attributes;
    }
    EXPECT_EQ(GetFileAttributesW((target + L"\\header").c_str()) & told, 3u);
    // A folder with attributes would not go away with the staging folder.
    EXPECT_EQ(GetFileAttributesW((target + L"\\hidden").c_str()) & told, 0u);
}

TEST_F(WindowsFolder, SetsTimes) {
    constexpr std::uint64_t created = 0x01C1C3FE12340000;
    LzhEntry exact = MakeEntry(L"exact", "x", "-lh0-", 2);
    exact.extended.push_back({0x41, LittleEndian(created, 8) +
                                        LittleEndian(created + 20'000'000, 8) +
                                        LittleEndian(created + 40'000'000, 8)});
    LzhEntry local = MakeEntry(L"local", "x", "-lh0-", 1);
    EXPECT_EQ(
        Unpack(LzhWriter().Add(exact).Add(local).Add(MakeEntry(L"unix", "x", "-lh0-", 2)).Finish()),
        LzhFailure::None);
    const Times times = TimesOf(target + L"\\exact");
    EXPECT_EQ(times.modified, created + 20'000'000);
    // Wine has no place for the time of creation.
    EXPECT_TRUE(RunsUnderWine() || times.created == created);
    EXPECT_EQ(TimesOf(target + L"\\unix").modified, FromUnixTime(1015302330));

    const std::uint64_t modified = TimesOf(target + L"\\local").modified;
    FILETIME utc{static_cast<DWORD>(modified), static_cast<DWORD>(modified >> 32)};
    SYSTEMTIME utcParts{}, parts{};
    FileTimeToSystemTime(&utc, &utcParts);
    SystemTimeToTzSpecificLocalTime(nullptr, &utcParts, &parts);
    EXPECT_EQ(parts.wYear, 2002);
    EXPECT_EQ(parts.wMonth, 3);
    EXPECT_EQ(parts.wDay, 5);
    EXPECT_EQ(parts.wHour, 13);
    EXPECT_EQ(parts.wMinute, 25);
    EXPECT_EQ(parts.wSecond, 30);
}

TEST_F(WindowsFolder, NewFileTakesThePlaceOfAReadOnlyHiddenOne) {
    Save(target + L"\\a", "old");
    SetFileAttributesW((target + L"\\a").c_str(), FILE_ATTRIBUTE_READONLY | FILE_ATTRIBUTE_HIDDEN);
    EXPECT_EQ(Unpack(LzhWriter().AddFile(L"A", "new").Finish()), LzhFailure::None);
    EXPECT_EQ(Load(target + L"\\a"), "new");
}

TEST_F(WindowsFolder, LinksInTheWayAreNotFollowed) {
    if (!MakeFolderLink(target + L"\\dir", folder + L"\\elsewhere"))
        GTEST_SKIP() << "this user may not make links";
    Save(folder + L"\\elsewhere\\a", "untouched");
    for (const wchar_t* path : {L"dir\\a", L"dir\\new", L"dir\\sub\\x", L"dir", L"DIR\\a"})
        EXPECT_EQ(Unpack(LzhWriter().AddFile(path, "evil").Finish()), LzhFailure::LinkInTheWay);
    EXPECT_EQ(Unpack(LzhWriter().AddFolder(L"dir\\sub").Finish()), LzhFailure::LinkInTheWay);
    EXPECT_EQ(Load(folder + L"\\elsewhere\\a"), "untouched");
    EXPECT_EQ(std::distance(fs::directory_iterator(folder + L"\\elsewhere"), {}), 1);
}

TEST_F(WindowsFolder, FailedFileIsTakenAway) {
    LzhEntry entry = MakeEntry(L"a", std::string(200'000, 'x'), "-lh5-", 2);
    entry.claimedCrc = 1;
    EXPECT_EQ(Unpack(LzhWriter().Add(entry).Finish()), LzhFailure::WrongChecksum);
    EXPECT_FALSE(fs::exists(target + L"\\a"));
}

TEST_F(WindowsFolder, FoldersAndFilesInEachOthersWayAreAFailure) {
    fs::create_directory(target + L"\\x");
    EXPECT_EQ(Unpack(LzhWriter().AddFile(L"x", "file").Finish()), LzhFailure::CannotWrite);
    Save(target + L"\\y", "file");
    EXPECT_EQ(Unpack(LzhWriter().AddFile(L"y\\z", "file").Finish()), LzhFailure::CannotWrite);
}

// What is read ahead holds many small entries, ends within some and is passed over by a large one.
TEST_F(WindowsFolder, ArchivesAreReadAheadWithoutLosingTheirPlace) {
    LzhWriter writer;
    const std::string large = RandomBytes(150'000, 1);
    for (unsigned i = 0; i < 120; ++i) {
        writer.AddFile(L"small" + std::to_wstring(i), RandomBytes(1500, i), "-lh0-");
        if (i == 60)
            writer.AddFile(L"large", large, "-lh0-");
    }
    Save(folder + L"\\many.lzh", writer.Finish());
    Win32Unlha unlha;
    EXPECT_EQ(unlha.Run(nullptr, L"x \"" + folder + L"\\many.lzh\"", L"", 0), 0);
    EXPECT_TRUE(Load(target + L"\\large") == large);
    for (unsigned i = 0; i < 120; ++i)
        EXPECT_TRUE(Load(target + L"\\small" + std::to_wstring(i)) == RandomBytes(1500, i)) << i;
}

TEST_F(WindowsFolder, UnlhaUnpacksIntoTheCurrentFolderAndNumbersFailures) {
    Save(folder + L"\\good.lzh", LzhWriter().AddFile(L"dir\\a", "text").Finish());
    Save(folder + L"\\bad.lzh", LzhWriter().AddFile(L"dir\\b", "text").Finish().substr(0, 50));
    Win32Unlha unlha;
    const auto run = [&](const std::wstring& name) {
        return unlha.Run(nullptr, L"x \"" + folder + L"\\" + name + L"\"", L"\"C:\\TAMTMP\"", 0);
    };
    EXPECT_EQ(run(L"good.lzh"), 0);
    EXPECT_EQ(Load(target + L"\\dir\\a"), "text");
    EXPECT_EQ(run(L"bad.lzh"), static_cast<std::int16_t>(LzhFailure::Truncated));
    EXPECT_EQ(run(L"missing.lzh"), static_cast<std::int16_t>(LzhFailure::CannotOpenArchive));
    EXPECT_EQ(unlha.Run(nullptr, L"l \"x\"", L"", 0),
              static_cast<std::int16_t>(LzhFailure::BadCommand));
}

} // namespace
} // namespace tamblin::lzh

#endif
