// Every promise of platform/file_system.h, one by one, here and in the other files of this name.
// Where Wine behaves unlike Windows, the test says so and holds it only to what it can do.
#include "file_system_contract.h"

#include <array>

#include "base/text.h"

namespace tamblin {
namespace {

// --- Find -----------------------------------------------------------------------------------

TEST_P(FileSystemContract, FindsAFileAsItIsSpelledOnTheDisk) {
    files.Write(In(L"ReadMe.TXT"), "1");
    const auto entry = files.Find(In(L"readme.txt"));
    ASSERT_TRUE(entry);
    EXPECT_EQ(entry->name, L"ReadMe.TXT");
    EXPECT_FALSE(entry->attributes.folder);
    EXPECT_FALSE(entry->attributes.link);
}

TEST_P(FileSystemContract, FindsEveryLetterByItsUpperCaseForm) {
    for (unsigned code = L'a'; code < 0x10000; ++code) {
        const auto letter = static_cast<wchar_t>(code);
        if (UpperCase(letter) == letter)
            continue;
        files.MakeFolder(In(L"x") + letter);
        ASSERT_TRUE(files.Find(In(L"X") + UpperCase(letter))) << std::hex << code;
        files.RemoveFolder(In(L"x") + letter);
    }
}

TEST_P(FileSystemContract, TellsLettersApartThatOnlyLanguagesTakeForOne) {
    for (const std::wstring letters :
         {L"ıI", L"ßẞ", L"ςΣ", L"ſS", L"µΜ", L"\u212Ak", L"\u2126ω", L"がガ"}) {
        files.Write(In(letters.substr(0, 1)), "");
        EXPECT_FALSE(files.Find(In(letters.substr(1)))) << letters;
    }
}

TEST_P(FileSystemContract, FindsAFolderWithAndWithoutABackslash) {
    files.MakeFolder(In(L"Sub"));
    for (const wchar_t* path : {L"sub", L"sub\\", L"sub\\.", L"sub\\..\\sub", L".\\sub"}) {
        const auto entry = files.Find(In(path));
        ASSERT_TRUE(entry) << path;
        EXPECT_EQ(entry->name, L"Sub");
        EXPECT_TRUE(entry->attributes.folder);
    }
}

TEST_P(FileSystemContract, FindsARootWithoutAName) {
    for (const std::wstring& path : {Root(), Root() + L"."}) {
        const auto entry = files.Find(path);
        ASSERT_TRUE(entry);
        EXPECT_EQ(entry->name, L"");
        EXPECT_EQ(entry->attributes, FileAttributes{.folder = true});
    }
}

TEST_P(FileSystemContract, FindsNothingWhereNothingIs) {
    files.Write(In(L"file"), "1");
    EXPECT_EQ(files.Find(In(L"nosuch")), std::nullopt);
    EXPECT_EQ(files.Find(In(L"nosuch\\below")), std::nullopt);
    EXPECT_EQ(files.Find(In(L"file\\below")), std::nullopt);
    EXPECT_EQ(files.Find(In(L"file\\")), std::nullopt);
}

// --- Paths ----------------------------------------------------------------------------------

TEST_P(FileSystemContract, NameLongerThanAnyDriveTakesIsMalformed) {
    EXPECT_EQ(ThrownNumber([&] { files.Write(In(std::wstring(256, L'n')), ""); }), 52);
    files.Write(In(std::wstring(200, L'n')), "1");
    EXPECT_EQ(files.List(folder).size(), 1U);
}

TEST_P(FileSystemContract, LongPathsWorkInEveryOperation) {
    std::wstring deep = folder;
    for (int level = 0; level < 6; ++level) {
        deep += L'\\' + std::wstring(80, static_cast<wchar_t>(L'a' + level));
        files.MakeFolder(deep);
    }
    files.Write(deep + L"\\one", "1");
    files.Copy(deep + L"\\one", deep + L"\\two");
    files.Rename(deep + L"\\two", deep + L"\\three");
    files.SetAttributes(deep + L"\\three", {.readOnly = true});
    EXPECT_TRUE(files.Find(deep + L"\\three")->attributes.readOnly);
    EXPECT_EQ(files.Read(deep + L"\\three"), "1");
    EXPECT_THAT(NamesOf(files.List(deep)), ElementsAre(L"one", L"three"));
    files.SetAttributes(deep + L"\\three", {});
    files.Delete(deep + L"\\one");
    files.Delete(deep + L"\\three");
    files.RemoveFolder(deep);
    EXPECT_EQ(files.Find(deep), std::nullopt);
}

TEST_P(FileSystemContract, DoubledBackslashesAndSlashesCountAsOne) {
    files.MakeFolder(In(L"sub"));
    files.Write(In(L"sub\\\\a"), "1");
    EXPECT_EQ(files.Read(In(L"\\sub\\a")), "1");
    EXPECT_EQ(files.Read(In(L"sub/a")), "1");
    EXPECT_TRUE(files.Find(In(L"sub\\\\")));
}

TEST_P(FileSystemContract, DotsAndBlanksAtTheEndDoNotCount) {
    files.Write(In(L"a. ."), "1");
    EXPECT_THAT(NamesOf(files.List(folder)), ElementsAre(L"a"));
    files.MakeFolder(In(L"sub."));
    files.Write(In(L"sub.\\b "), "2");
    EXPECT_EQ(files.Read(In(L"sub\\b")), "2");
}

TEST_P(FileSystemContract, DotDotEndsAtTheRoot) {
    files.Write(In(L"a"), "1");
    const std::wstring fromAbove = Root() + L"..\\..\\" + folder.substr(3) + L"\\a";
    EXPECT_EQ(files.Read(fromAbove), "1");
}

TEST_P(FileSystemContract, RelativePathsCountFromTheCurrentFolder) {
    files.MakeFolder(In(L"sub"));
    files.SetCurrentFolder(In(L"sub"));
    const std::wstring drive = folder.substr(0, 2);
    files.Write(L"a", "1");
    files.Write(drive + L"b", "2");
    files.Write(L"..\\c", "3");
    EXPECT_THAT(NamesOf(files.List(In(L"sub"))), ElementsAre(L"a", L"b"));
    EXPECT_EQ(files.Read(In(L"c")), "3");
    EXPECT_EQ(files.Find(drive)->name, L"sub");
    EXPECT_EQ(files.Find(L"")->name, L"sub");
    EXPECT_EQ(files.List(L"").size(), 2U);
    EXPECT_EQ(files.List(L".").size(), 2U);
    EXPECT_EQ(files.Read(folder.substr(2) + L"\\c"), "3");
}

// --- List -----------------------------------------------------------------------------------

TEST_P(FileSystemContract, ListsAllEntriesSortedByUpperCasedName) {
    for (const wchar_t* name : {L"b", L"A", L"_c", L"ｂ", L"Ａ", L"ソ", L"表", L"ｶ", L"Z", L"z1"})
        files.Write(In(name), "");
    files.MakeFolder(In(L"a1"));
    EXPECT_THAT(NamesOf(files.List(folder)), ElementsAre(L"A", L"a1", L"b", L"Z", L"z1", L"_c",
                                                         L"ソ", L"表", L"Ａ", L"ｂ", L"ｶ"));
}

TEST_P(FileSystemContract, ListShowsHiddenAndSystemEntriesWithTheirAttributes) {
    files.Write(In(L"h"), "");
    files.SetAttributes(In(L"h"), {.hidden = true, .archive = true});
    files.MakeFolder(In(L"s"));
    files.SetAttributes(In(L"s"), {.hidden = true, .system = true});
    const auto entries = files.List(folder);
    ASSERT_EQ(entries.size(), 2U);
    EXPECT_EQ(entries[0].attributes, (FileAttributes{.hidden = true, .archive = true}));
    EXPECT_EQ(entries[1].attributes,
              (FileAttributes{.hidden = true, .system = true, .folder = true}));
}

TEST_P(FileSystemContract, ListOfAnEmptyFolderIsEmpty) {
    EXPECT_THAT(files.List(folder), IsEmpty());
    EXPECT_THAT(files.List(folder + L'\\'), IsEmpty());
}

// --- Failures -------------------------------------------------------------------------------

using OnPath = std::function<void(const std::wstring& path)>;
constexpr int Untried = -1; // nothing is promised

// What each operation throws for a path that is missing, below a missing one, a folder, a read-only
// file, below a file, a root, on a missing drive. `other` can be copied.
void ForEachOperation(
    FileSystem& files, const std::wstring& other, const std::wstring& free,
    const std::function<void(const char*, const std::array<int, 7>&, const OnPath&)>& visit) {
    const int n = Untried;
    visit("Find", {0, 0, 0, 0, 0, 0, 52}, [&](auto& path) { files.Find(path); });
    visit("List", {76, 76, 0, 76, n, 0, 68}, [&](auto& path) { files.List(path); });
    visit("Read", {53, 76, 75, 0, n, 75, 76}, [&](auto& path) { files.Read(path); });
    visit("Write", {n, 76, 75, 75, 76, n, 76}, [&](auto& path) { files.Write(path, ""); });
    visit("Copy from", {53, 76, 75, n, n, n, n}, [&](auto& path) { files.Copy(path, free); });
    visit("Copy to", {n, 76, 75, 75, n, n, 76}, [&](auto& path) { files.Copy(other, path); });
    visit("Replace from", {53, 76, 75, n, n, n, n}, [&](auto& path) { files.Replace(path, free); });
    visit("Replace", {n, 76, 75, 75, n, n, n}, [&](auto& path) { files.Replace(other, path); });
    visit("CheckReplaceable", {53, 76, 75, 75, n, n, n},
          [&](auto& path) { files.CheckReplaceable(path); });
    visit("Rename from", {53, 76, n, n, n, 75, n}, [&](auto& path) { files.Rename(path, free); });
    visit("Rename to", {n, 76, 58, 58, n, n, 76}, [&](auto& path) { files.Rename(other, path); });
    visit("Delete", {53, 76, 75, 75, n, n, 76}, [&](auto& path) { files.Delete(path); });
    visit("MakeFolder", {n, 76, 75, 75, 76, 75, 76}, [&](auto& path) { files.MakeFolder(path); });
    visit("RemoveFolder", {76, 76, n, 76, n, 75, 76},
          [&](auto& path) { files.RemoveFolder(path); });
    visit("SetAttributes", {53, 76, n, n, n, n, 76},
          [&](auto& path) { files.SetAttributes(path, {}); });
    visit("SetCurrentFolder", {76, 76, n, 76, n, n, 68},
          [&](auto& path) { files.SetCurrentFolder(path); });
}

TEST_P(FileSystemContract, FailuresTellWhatThePathNames) {
    files.Write(In(L"a"), "a");
    files.Write(In(L"ro"), "old");
    files.SetAttributes(In(L"ro"), {.readOnly = true});
    files.MakeFolder(In(L"sub"));
    files.SetCurrentFolder(folder);
    const std::wstring paths[] = {In(L"nosuch"),
                                  In(L"nosuch\\a"),
                                  In(L"SUB"),
                                  In(L"ro"),
                                  In(L"ro\\a"),
                                  Root(),
                                  disk->MissingDrive() + L"\\a"};
    ForEachOperation(files, In(L"a"), In(L"b"),
                     [&](const char* name, const std::array<int, 7>& numbers, const OnPath& run) {
                         for (size_t kind = 0; kind < numbers.size(); ++kind)
                             if (numbers[kind] != Untried) {
                                 EXPECT_EQ(ThrownNumber([&] { run(paths[kind]); }), numbers[kind])
                                     << name << " " << paths[kind];
                             }
                     });
    for (const std::wstring& path : {disk->MissingDrive() + L"\\", disk->MissingDrive()}) {
        EXPECT_EQ(ThrownNumber([&] { files.Find(path); }), 52);
        EXPECT_EQ(ThrownNumber([&] { files.List(path); }), 68);
        EXPECT_EQ(ThrownNumber([&] { files.SetCurrentFolder(path); }), 68);
    }
    EXPECT_EQ(ThrownNumber([&] { files.Find(disk->MissingDrive() + L"\\a\\b"); }), 52);
    EXPECT_EQ(ThrownNumber([&] { files.Write(In(L"new\\"), "new"); }), 75);
    EXPECT_EQ(ThrownNumber([&] { files.Read(In(L"sub\\")); }), 75);
    EXPECT_EQ(ThrownNumber([&] { files.Copy(In(L"a"), In(L"sub\\")); }), 75);
    EXPECT_EQ(ThrownNumber([&] { files.Copy(In(L"a"), In(L"A")); }), 70);
    EXPECT_EQ(ThrownNumber([&] { files.Replace(In(L"a"), In(L"A")); }), 70);
    EXPECT_EQ(ThrownNumber([&] { files.Delete(In(L"sub\\")); }), 75);
    EXPECT_EQ(ThrownNumber([&] { files.Rename(In(L"sub"), In(L"sub\\below")); }), 75);
    EXPECT_EQ(files.CurrentFolder(), folder);
    EXPECT_EQ(files.Read(In(L"ro")), "old");
    EXPECT_EQ(files.Read(In(L"a")), "a");
    EXPECT_THAT(NamesOf(files.List(folder)), ElementsAre(L"a", L"ro", L"sub"));
    files.SetAttributes(In(L"ro"), {});
}

TEST_P(FileSystemContract, MalformedNamesAreRefusedEverywhere) {
    files.Write(In(L"a"), "1");
    for (const wchar_t* name : {L"*", L"a?", L"<", L">", L"|", L"\"", L"a:b", L"a\tb", L"a\nb",
                                L"CON", L"nul.txt", L"Com1", L"x\\*\\y"})
        ForEachOperation(
            files, In(L"a"), In(L"b"), [&](const char* operation, const auto&, const OnPath& run) {
                EXPECT_EQ(ThrownNumber([&] { run(In(name)); }), 52) << operation << " " << name;
            });
    EXPECT_THAT(NamesOf(files.List(folder)), ElementsAre(L"a"));
}

TEST_P(FileSystemContract, FolderThatHoldsAHiddenFileIsNotRemoved) {
    files.MakeFolder(In(L"full"));
    files.Write(In(L"full\\a"), "1");
    files.SetAttributes(In(L"full\\a"), {.hidden = true});
    EXPECT_EQ(ThrownNumber([&] { files.RemoveFolder(In(L"full")); }), 75);
    EXPECT_TRUE(IsThere(L"full\\a"));
}

} // namespace
} // namespace tamblin
