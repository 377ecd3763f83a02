// Every promise of platform/file_system.h, one by one. Where Wine behaves unlike Windows, the test
// says so and holds it only to what it can do.
#include "file_system_contract.h"

#include <gmock/gmock.h>

#include <algorithm>

#include "base/text.h"

namespace tamblin {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

std::vector<std::wstring> NamesOf(const std::vector<FolderEntry>& entries) {
    std::vector<std::wstring> names;
    for (const FolderEntry& entry : entries)
        names.push_back(entry.name);
    return names;
}

// What a file can be, with archive set. Under Wine a user cannot hide a read-only file.
std::vector<FileAttributes> AttributesToTry(const DiskUnderTest& disk) {
    std::vector<FileAttributes> all = {
        {.archive = true},
        {.readOnly = true, .archive = true},
        {.hidden = true, .archive = true},
        {.system = true, .archive = true},
        {.hidden = true, .system = true, .archive = true},
    };
    if (!disk.IsWine())
        all.push_back({.readOnly = true, .hidden = true, .system = true, .archive = true});
    return all;
}

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
    for (const std::wstring& path : {folder.substr(0, 3), folder.substr(0, 3) + L"."}) {
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

TEST_P(FileSystemContract, FindNamesABadDrive) {
    EXPECT_EQ(ThrownNumber([&] { files.Find(disk->MissingDrive() + L"\\a"); }), 52);
    EXPECT_EQ(ThrownNumber([&] { files.Find(disk->MissingDrive() + L"\\a\\b"); }), 52);
    EXPECT_EQ(ThrownNumber([&] { files.Find(disk->MissingDrive() + L"\\"); }), 52);
    EXPECT_EQ(ThrownNumber([&] { files.Find(disk->MissingDrive()); }), 52);
}

// --- Paths ----------------------------------------------------------------------------------

TEST_P(FileSystemContract, MalformedNamesAreRefusedEverywhere) {
    files.Write(In(L"a"), "1");
    for (const wchar_t* name : {L"*", L"a?", L"<", L">", L"|", L"\"", L"a:b", L"a\tb", L"a\nb",
                                L"CON", L"nul.txt", L"Com1", L"x\\*\\y"}) {
        const std::wstring bad = In(name);
        EXPECT_EQ(ThrownNumber([&] { files.Find(bad); }), 52) << name;
        EXPECT_EQ(ThrownNumber([&] { files.List(bad); }), 52) << name;
        EXPECT_EQ(ThrownNumber([&] { files.Read(bad); }), 52) << name;
        EXPECT_EQ(ThrownNumber([&] { files.Write(bad, ""); }), 52) << name;
        EXPECT_EQ(ThrownNumber([&] { files.Copy(bad, In(L"b")); }), 52) << name;
        EXPECT_EQ(ThrownNumber([&] { files.Copy(In(L"a"), bad); }), 52) << name;
        EXPECT_EQ(ThrownNumber([&] { files.Rename(bad, In(L"b")); }), 52) << name;
        EXPECT_EQ(ThrownNumber([&] { files.Rename(In(L"a"), bad); }), 52) << name;
        EXPECT_EQ(ThrownNumber([&] { files.Delete(bad); }), 52) << name;
        EXPECT_EQ(ThrownNumber([&] { files.MakeFolder(bad); }), 52) << name;
        EXPECT_EQ(ThrownNumber([&] { files.RemoveFolder(bad); }), 52) << name;
        EXPECT_EQ(ThrownNumber([&] { files.SetAttributes(bad, {}); }), 52) << name;
        EXPECT_EQ(ThrownNumber([&] { files.SetCurrentFolder(bad); }), 52) << name;
    }
    EXPECT_THAT(NamesOf(files.List(folder)), ElementsAre(L"a"));
}

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
    const std::wstring fromAbove = folder.substr(0, 3) + L"..\\..\\" + folder.substr(3) + L"\\a";
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

TEST_P(FileSystemContract, ListTellsAMissingFolderFromAMissingDrive) {
    files.Write(In(L"file"), "");
    EXPECT_EQ(ThrownNumber([&] { files.List(In(L"nosuch")); }), 76);
    EXPECT_EQ(ThrownNumber([&] { files.List(In(L"nosuch\\below")); }), 76);
    EXPECT_EQ(ThrownNumber([&] { files.List(In(L"file")); }), 76);
    EXPECT_EQ(ThrownNumber([&] { files.List(disk->MissingDrive() + L"\\"); }), 68);
    EXPECT_EQ(ThrownNumber([&] { files.List(disk->MissingDrive() + L"\\a"); }), 68);
}

// --- Read and Write -------------------------------------------------------------------------

TEST_P(FileSystemContract, ReadReturnsWhatWasWrittenToTheByte) {
    std::string bytes;
    for (int code = 0; code < 256; ++code)
        bytes += static_cast<char>(code);
    files.Write(In(L"a"), bytes);
    EXPECT_EQ(files.Read(In(L"a")), bytes);
    files.Write(In(L"a"), "");
    EXPECT_EQ(files.Read(In(L"a")), "");
}

TEST_P(FileSystemContract, WriteReplacesContentsAndKeepsTheName) {
    files.Write(In(L"Name"), "the old contents");
    files.Write(In(L"NAME"), "new");
    EXPECT_EQ(files.Read(In(L"name")), "new");
    EXPECT_THAT(NamesOf(files.List(folder)), ElementsAre(L"Name"));
}

TEST_P(FileSystemContract, LargeFileSurvivesWritingAndReading) {
    std::string bytes(std::size_t{17} << 20, 'x');
    bytes[bytes.size() - 1] = 'y';
    files.Write(In(L"large"), bytes);
    EXPECT_TRUE(files.Read(In(L"large")) == bytes);
}

TEST_P(FileSystemContract, WriteMarksTheFileForBackupAndKeepsItHidden) {
    files.Write(In(L"a"), "1");
    files.SetAttributes(In(L"a"), {.hidden = true, .system = true});
    files.Write(In(L"a"), "2");
    EXPECT_EQ(files.Read(In(L"a")), "2");
    EXPECT_EQ(files.Find(In(L"a"))->attributes,
              (FileAttributes{.hidden = true, .system = true, .archive = true}));
}

TEST_P(FileSystemContract, ReadFailures) {
    files.MakeFolder(In(L"sub"));
    EXPECT_EQ(ThrownNumber([&] { files.Read(In(L"nosuch")); }), 53);
    EXPECT_EQ(ThrownNumber([&] { files.Read(In(L"nosuch\\a")); }), 76);
    EXPECT_EQ(ThrownNumber([&] { files.Read(In(L"sub")); }), 75);
    EXPECT_EQ(ThrownNumber([&] { files.Read(In(L"sub\\")); }), 75);
    EXPECT_EQ(ThrownNumber([&] { files.Read(folder.substr(0, 3)); }), 75);
    EXPECT_EQ(ThrownNumber([&] { files.Read(disk->MissingDrive() + L"\\a"); }), 76);
}

TEST_P(FileSystemContract, WriteFailures) {
    files.MakeFolder(In(L"sub"));
    files.Write(In(L"ro"), "old");
    files.SetAttributes(In(L"ro"), {.readOnly = true});
    EXPECT_EQ(ThrownNumber([&] { files.Write(In(L"ro"), "new"); }), 75);
    EXPECT_EQ(ThrownNumber([&] { files.Write(In(L"sub"), "new"); }), 75);
    EXPECT_EQ(ThrownNumber([&] { files.Write(In(L"new\\"), "new"); }), 75);
    EXPECT_EQ(ThrownNumber([&] { files.Write(In(L"nosuch\\a"), "new"); }), 76);
    EXPECT_EQ(ThrownNumber([&] { files.Write(In(L"ro\\a"), "new"); }), 76);
    EXPECT_EQ(ThrownNumber([&] { files.Write(disk->MissingDrive() + L"\\a", "new"); }), 76);
    EXPECT_EQ(files.Read(In(L"ro")), "old");
    files.SetAttributes(In(L"ro"), {});
}

// --- Copy -----------------------------------------------------------------------------------

TEST_P(FileSystemContract, CopyTakesContentsAndAttributesAlong) {
    for (const FileAttributes& attributes : AttributesToTry(*disk)) {
        files.Write(In(L"from"), "bytes");
        files.SetAttributes(In(L"from"), attributes);
        files.Copy(In(L"from"), In(L"To"));
        EXPECT_EQ(files.Read(In(L"to")), "bytes");
        const auto copy = files.Find(In(L"to"));
        ASSERT_TRUE(copy);
        EXPECT_EQ(copy->name, L"To");
        EXPECT_EQ(copy->attributes, attributes);
        for (const wchar_t* name : {L"from", L"to"}) {
            files.SetAttributes(In(name), {});
            files.Delete(In(name));
        }
    }
}

TEST_P(FileSystemContract, CopyMarksTheTargetForBackup) {
    files.Write(In(L"from"), "bytes");
    files.SetAttributes(In(L"from"), {});
    files.Copy(In(L"from"), In(L"to"));
    EXPECT_EQ(files.Find(In(L"to"))->attributes, FileAttributes{.archive = true});
}

TEST_P(FileSystemContract, CopyReplacesAndKeepsTheTargetsName) {
    files.Write(In(L"from"), "new");
    files.Write(In(L"Target"), "the old contents");
    files.Copy(In(L"FROM"), In(L"TARGET"));
    EXPECT_EQ(files.Read(In(L"target")), "new");
    EXPECT_THAT(NamesOf(files.List(folder)), ElementsAre(L"from", L"Target"));
}

TEST_P(FileSystemContract, CopyLeavesAReplacedFileItsAttributes) {
    files.Write(In(L"from"), "new");
    files.Write(In(L"to"), "old");
    files.SetAttributes(In(L"to"), {.hidden = true, .system = true});
    files.Copy(In(L"from"), In(L"to"));
    EXPECT_EQ(files.Read(In(L"to")), "new");
    EXPECT_EQ(files.Find(In(L"to"))->attributes,
              (FileAttributes{.hidden = true, .system = true, .archive = true}));
    files.SetAttributes(In(L"to"), {});
    files.SetAttributes(In(L"from"), {.readOnly = true});
    files.Copy(In(L"from"), In(L"to"));
    EXPECT_EQ(files.Find(In(L"to"))->attributes, FileAttributes{.archive = true});
    EXPECT_TRUE(files.Find(In(L"from"))->attributes.readOnly);
    files.SetAttributes(In(L"from"), {});
}

// --- Replace --------------------------------------------------------------------------------

TEST_P(FileSystemContract, ReplaceMovesAFileWhereNoneIs) {
    files.MakeFolder(In(L"sub"));
    files.Write(In(L"a"), "1");
    files.SetAttributes(In(L"a"), {.readOnly = true, .archive = true});
    files.Replace(In(L"a"), In(L"sub\\B"));
    EXPECT_FALSE(IsThere(L"a"));
    EXPECT_EQ(files.Read(In(L"sub\\b")), "1");
    EXPECT_THAT(NamesOf(files.List(In(L"sub"))), ElementsAre(L"B"));
    EXPECT_TRUE(files.Find(In(L"sub\\b"))->attributes.readOnly);
    files.SetAttributes(In(L"sub\\b"), {});
}

TEST_P(FileSystemContract, ReplacePutsAFileInTheOthersPlace) {
    files.Write(In(L"Target"), "the old contents");
    files.SetAttributes(In(L"Target"), {.hidden = true, .archive = true});
    for (const FileAttributes& attributes : AttributesToTry(*disk)) {
        files.Write(In(L"from"), "new");
        files.SetAttributes(In(L"from"), attributes);
        files.Replace(In(L"from"), In(L"TARGET"));
        EXPECT_EQ(files.Read(In(L"target")), "new");
        EXPECT_EQ(files.Find(In(L"target"))->attributes,
                  (FileAttributes{.hidden = true, .archive = true}));
        EXPECT_THAT(NamesOf(files.List(folder)), ElementsAre(L"Target"));
    }
}

TEST_P(FileSystemContract, ReplaceMovesToAnotherDrive) {
    const auto other = disk->OtherDrive();
    if (!other)
        GTEST_SKIP() << "this computer has one drive only";
    const std::wstring target = *other + L"\\tamblin-contract";
    for (const char* bytes : {"new", "newer"}) {
        files.Write(In(L"from"), bytes);
        files.SetAttributes(In(L"from"), {.readOnly = true});
        files.Replace(In(L"from"), target);
        EXPECT_FALSE(IsThere(L"from"));
        EXPECT_EQ(files.Read(target), bytes);
        files.SetAttributes(target, {});
    }
    files.Delete(target);
}

TEST_P(FileSystemContract, ReplaceFailures) {
    files.Write(In(L"a"), "a");
    files.Write(In(L"ro"), "old");
    files.SetAttributes(In(L"ro"), {.readOnly = true});
    files.MakeFolder(In(L"sub"));
    EXPECT_EQ(ThrownNumber([&] { files.Replace(In(L"nosuch"), In(L"b")); }), 53);
    EXPECT_EQ(ThrownNumber([&] { files.Replace(In(L"nosuch\\a"), In(L"b")); }), 76);
    EXPECT_EQ(ThrownNumber([&] { files.Replace(In(L"a"), In(L"nosuch\\b")); }), 76);
    EXPECT_EQ(ThrownNumber([&] { files.Replace(In(L"a"), In(L"ro")); }), 75);
    EXPECT_EQ(ThrownNumber([&] { files.Replace(In(L"a"), In(L"sub")); }), 75);
    EXPECT_EQ(ThrownNumber([&] { files.Replace(In(L"sub"), In(L"b")); }), 75);
    EXPECT_EQ(ThrownNumber([&] { files.Replace(In(L"a"), In(L"A")); }), 70);
    EXPECT_EQ(ThrownNumber([&] { files.Replace(In(L"a"), In(L"x?")); }), 52);
    EXPECT_EQ(files.Read(In(L"ro")), "old");
    EXPECT_EQ(files.Read(In(L"a")), "a");
    EXPECT_THAT(NamesOf(files.List(folder)), ElementsAre(L"a", L"ro", L"sub"));
    files.SetAttributes(In(L"ro"), {});
}

TEST_P(FileSystemContract, TellsWhatCannotBeReplaced) {
    files.Write(In(L"a"), "1");
    files.Write(In(L"ro"), "2");
    files.SetAttributes(In(L"ro"), {.readOnly = true});
    files.MakeFolder(In(L"sub"));
    files.CheckReplaceable(In(L"a"));
    EXPECT_EQ(ThrownNumber([&] { files.CheckReplaceable(In(L"nosuch")); }), 53);
    EXPECT_EQ(ThrownNumber([&] { files.CheckReplaceable(In(L"nosuch\\a")); }), 76);
    EXPECT_EQ(ThrownNumber([&] { files.CheckReplaceable(In(L"ro")); }), 75);
    EXPECT_EQ(ThrownNumber([&] { files.CheckReplaceable(In(L"sub")); }), 75);
    disk->Lock(In(L"a"));
    EXPECT_EQ(ThrownNumber([&] { files.CheckReplaceable(In(L"a")); }), 70);
    disk->Unlock(In(L"a"));
    EXPECT_EQ(files.Read(In(L"a")), "1");
    files.SetAttributes(In(L"ro"), {});
}

TEST_P(FileSystemContract, CopyFailures) {
    files.Write(In(L"a"), "a");
    files.Write(In(L"ro"), "old");
    files.SetAttributes(In(L"ro"), {.readOnly = true});
    files.MakeFolder(In(L"sub"));
    EXPECT_EQ(ThrownNumber([&] { files.Copy(In(L"nosuch"), In(L"b")); }), 53);
    EXPECT_EQ(ThrownNumber([&] { files.Copy(In(L"nosuch\\a"), In(L"b")); }), 76);
    EXPECT_EQ(ThrownNumber([&] { files.Copy(In(L"a"), In(L"nosuch\\b")); }), 76);
    EXPECT_EQ(ThrownNumber([&] { files.Copy(In(L"a"), In(L"ro")); }), 75);
    EXPECT_EQ(ThrownNumber([&] { files.Copy(In(L"a"), In(L"sub")); }), 75);
    EXPECT_EQ(ThrownNumber([&] { files.Copy(In(L"a"), In(L"sub\\")); }), 75);
    EXPECT_EQ(ThrownNumber([&] { files.Copy(In(L"sub"), In(L"b")); }), 75);
    EXPECT_EQ(ThrownNumber([&] { files.Copy(In(L"a"), In(L"A")); }), 70);
    EXPECT_EQ(ThrownNumber([&] { files.Copy(In(L"a"), disk->MissingDrive() + L"\\b"); }), 76);
    EXPECT_EQ(files.Read(In(L"ro")), "old");
    EXPECT_EQ(files.Read(In(L"a")), "a");
    EXPECT_THAT(NamesOf(files.List(folder)), ElementsAre(L"a", L"ro", L"sub"));
    files.SetAttributes(In(L"ro"), {});
}

// --- Rename ---------------------------------------------------------------------------------

TEST_P(FileSystemContract, RenameMovesFilesAndFoldersWithinTheDrive) {
    files.MakeFolder(In(L"one"));
    files.MakeFolder(In(L"two"));
    files.Write(In(L"one\\a"), "1");
    files.Rename(In(L"one\\a"), In(L"two\\b"));
    EXPECT_EQ(files.Read(In(L"two\\b")), "1");
    files.Rename(In(L"two"), In(L"one\\three"));
    EXPECT_EQ(files.Read(In(L"one\\three\\b")), "1");
    EXPECT_THAT(NamesOf(files.List(folder)), ElementsAre(L"one"));
}

TEST_P(FileSystemContract, RenameMayChangeOnlyTheLetterCase) {
    files.Write(In(L"name"), "1");
    files.Rename(In(L"name"), In(L"NAME"));
    files.MakeFolder(In(L"sub"));
    files.Rename(In(L"sub"), In(L"SUB\\"));
    EXPECT_EQ(files.Read(In(L"name")), "1");
    if (disk->IsWine()) // takes both for one name and changes nothing
        return;
    EXPECT_THAT(NamesOf(files.List(folder)), ElementsAre(L"NAME", L"SUB"));
}

TEST_P(FileSystemContract, RenameToTheSameNameChangesNothing) {
    files.Write(In(L"a"), "1");
    files.Rename(In(L"a"), In(L"a"));
    EXPECT_EQ(files.Read(In(L"a")), "1");
}

TEST_P(FileSystemContract, RenameKeepsAttributesAndMovesReadOnlyFiles) {
    for (const FileAttributes& attributes : AttributesToTry(*disk)) {
        files.Write(In(L"a"), "1");
        files.SetAttributes(In(L"a"), attributes);
        files.Rename(In(L"a"), In(L"b"));
        EXPECT_EQ(files.Find(In(L"b"))->attributes, attributes);
        EXPECT_FALSE(IsThere(L"a"));
        files.SetAttributes(In(L"b"), {});
        files.Delete(In(L"b"));
    }
}

TEST_P(FileSystemContract, RenameNeverReplaces) {
    files.Write(In(L"a"), "a");
    files.Write(In(L"b"), "b");
    files.MakeFolder(In(L"sub"));
    files.MakeFolder(In(L"empty"));
    EXPECT_EQ(ThrownNumber([&] { files.Rename(In(L"a"), In(L"b")); }), 58);
    EXPECT_EQ(ThrownNumber([&] { files.Rename(In(L"a"), In(L"sub")); }), 58);
    EXPECT_EQ(ThrownNumber([&] { files.Rename(In(L"sub"), In(L"a")); }), 58);
    EXPECT_EQ(ThrownNumber([&] { files.Rename(In(L"sub"), In(L"empty")); }), 58);
    EXPECT_EQ(files.Read(In(L"a")), "a");
    EXPECT_EQ(files.Read(In(L"b")), "b");
    EXPECT_EQ(files.List(folder).size(), 4U);
}

TEST_P(FileSystemContract, RenameFailures) {
    files.Write(In(L"a"), "a");
    files.MakeFolder(In(L"sub"));
    EXPECT_EQ(ThrownNumber([&] { files.Rename(In(L"nosuch"), In(L"b")); }), 53);
    EXPECT_EQ(ThrownNumber([&] { files.Rename(In(L"nosuch\\a"), In(L"b")); }), 76);
    EXPECT_EQ(ThrownNumber([&] { files.Rename(In(L"a"), In(L"nosuch\\b")); }), 76);
    EXPECT_EQ(ThrownNumber([&] { files.Rename(In(L"sub"), In(L"sub\\below")); }), 75);
    EXPECT_EQ(ThrownNumber([&] { files.Rename(folder.substr(0, 3), In(L"b")); }), 75);
    EXPECT_EQ(ThrownNumber([&] { files.Rename(In(L"a"), disk->MissingDrive() + L"\\b"); }), 76);
    EXPECT_THAT(NamesOf(files.List(folder)), ElementsAre(L"a", L"sub"));
}

TEST_P(FileSystemContract, RenameDoesNotLeaveTheDrive) {
    const auto other = disk->OtherDrive();
    if (!other)
        GTEST_SKIP() << "this computer has one drive only";
    files.Write(In(L"a"), "a");
    EXPECT_EQ(ThrownNumber([&] { files.Rename(In(L"a"), *other + L"\\tamblin-contract"); }), 75);
    EXPECT_EQ(files.Read(In(L"a")), "a");
}

// --- Delete ---------------------------------------------------------------------------------

TEST_P(FileSystemContract, DeletesFilesWhateverHidesThem) {
    files.Write(In(L"a"), "1");
    files.SetAttributes(In(L"a"), {.hidden = true, .system = true});
    files.Delete(In(L"A"));
    EXPECT_FALSE(IsThere(L"a"));
}

TEST_P(FileSystemContract, DeleteFailures) {
    files.MakeFolder(In(L"sub"));
    files.Write(In(L"ro"), "old");
    files.SetAttributes(In(L"ro"), {.readOnly = true});
    EXPECT_EQ(ThrownNumber([&] { files.Delete(In(L"nosuch")); }), 53);
    EXPECT_EQ(ThrownNumber([&] { files.Delete(In(L"nosuch\\a")); }), 76);
    EXPECT_EQ(ThrownNumber([&] { files.Delete(In(L"sub")); }), 75);
    EXPECT_EQ(ThrownNumber([&] { files.Delete(In(L"sub\\")); }), 75);
    EXPECT_EQ(ThrownNumber([&] { files.Delete(In(L"ro")); }), 75);
    EXPECT_EQ(ThrownNumber([&] { files.Delete(disk->MissingDrive() + L"\\a"); }), 76);
    EXPECT_EQ(files.Read(In(L"ro")), "old");
    files.SetAttributes(In(L"ro"), {});
}

// --- Folders --------------------------------------------------------------------------------

TEST_P(FileSystemContract, MakesAndRemovesFolders) {
    files.MakeFolder(In(L"One"));
    files.MakeFolder(In(L"One\\Two\\"));
    EXPECT_THAT(NamesOf(files.List(In(L"one"))), ElementsAre(L"Two"));
    EXPECT_EQ(files.Find(In(L"One"))->attributes, FileAttributes{.folder = true});
    files.RemoveFolder(In(L"one\\two\\"));
    files.RemoveFolder(In(L"ONE"));
    EXPECT_THAT(files.List(folder), IsEmpty());
}

TEST_P(FileSystemContract, MakeFolderFailures) {
    files.MakeFolder(In(L"sub"));
    files.Write(In(L"file"), "");
    EXPECT_EQ(ThrownNumber([&] { files.MakeFolder(In(L"SUB")); }), 75);
    EXPECT_EQ(ThrownNumber([&] { files.MakeFolder(In(L"file")); }), 75);
    EXPECT_EQ(ThrownNumber([&] { files.MakeFolder(In(L"nosuch\\a")); }), 76);
    EXPECT_EQ(ThrownNumber([&] { files.MakeFolder(In(L"file\\a")); }), 76);
    EXPECT_EQ(ThrownNumber([&] { files.MakeFolder(folder.substr(0, 3)); }), 75);
    EXPECT_EQ(ThrownNumber([&] { files.MakeFolder(disk->MissingDrive() + L"\\a"); }), 76);
}

TEST_P(FileSystemContract, MakesAFolderLikeAnother) {
    files.MakeFolder(In(L"model"));
    files.MakeFolderLike(In(L"like"), In(L"model"));
    files.Write(In(L"like\\a"), "1");
    files.MakeFolderLike(In(L"alone"), In(L"nosuch"));
    EXPECT_THAT(NamesOf(files.List(folder)), ElementsAre(L"alone", L"like", L"model"));
    EXPECT_THAT(NamesOf(files.List(In(L"like"))), ElementsAre(L"a"));
    EXPECT_EQ(ThrownNumber([&] { files.MakeFolderLike(In(L"like"), In(L"model")); }), 75);
    EXPECT_EQ(ThrownNumber([&] { files.MakeFolderLike(In(L"no\\a"), In(L"model")); }), 76);
}

TEST_P(FileSystemContract, FolderIsHeldByOneAtATime) {
    files.MakeFolder(In(L"theirs"));
    files.MakeFolder(In(L"ours"));
    disk->HoldElsewhere(In(L"theirs"));
    EXPECT_FALSE(files.HoldFolder(In(L"theirs")));
    EXPECT_TRUE(files.HoldFolder(In(L"ours")));
    EXPECT_TRUE(files.HoldFolder(In(L"OURS\\")));
    EXPECT_EQ(ThrownNumber([&] { files.HoldFolder(In(L"nosuch")); }), 76);
}

TEST_P(FileSystemContract, HeldFolderCanBeUsedAndRemoved) {
    files.MakeFolder(In(L"ours"));
    EXPECT_TRUE(files.HoldFolder(In(L"ours")));
    files.SetCurrentFolder(In(L"ours"));
    files.Write(L"a", "1");
    EXPECT_EQ(files.List(In(L"ours")).size(), 1U);
    files.Replace(L"a", In(L"b"));
    files.SetCurrentFolder(folder);
    files.RemoveFolder(In(L"ours"));
    EXPECT_FALSE(IsThere(L"ours"));
    files.ReleaseFolder();
}

TEST_P(FileSystemContract, TellsDrivesApartAndTheirRoom) {
    files.MakeFolder(In(L"sub"));
    EXPECT_TRUE(files.OnOneDrive(In(L"sub"), folder.substr(0, 3)));
    EXPECT_GT(files.FreeBytes(In(L"sub")), 1000U);
    EXPECT_EQ(ThrownNumber([&] { files.OnOneDrive(In(L"sub"), In(L"nosuch")); }), 76);
    EXPECT_EQ(ThrownNumber([&] { files.FreeBytes(In(L"nosuch")); }), 76);
}

TEST_P(FileSystemContract, TellsTheSizesOfFiles) {
    files.Write(In(L"a"), "12345");
    EXPECT_EQ(files.Find(In(L"a"))->size, 5U);
    EXPECT_EQ(files.List(folder)[0].size, 5U);
}

TEST_P(FileSystemContract, RemoveFolderFailures) {
    files.MakeFolder(In(L"full"));
    files.Write(In(L"full\\a"), "1");
    files.SetAttributes(In(L"full\\a"), {.hidden = true});
    EXPECT_EQ(ThrownNumber([&] { files.RemoveFolder(In(L"full")); }), 75);
    EXPECT_EQ(ThrownNumber([&] { files.RemoveFolder(In(L"nosuch")); }), 76);
    EXPECT_EQ(ThrownNumber([&] { files.RemoveFolder(In(L"nosuch\\below")); }), 76);
    EXPECT_EQ(ThrownNumber([&] { files.RemoveFolder(In(L"full\\a")); }), 76);
    EXPECT_EQ(ThrownNumber([&] { files.RemoveFolder(folder.substr(0, 3)); }), 75);
    EXPECT_EQ(ThrownNumber([&] { files.RemoveFolder(disk->MissingDrive() + L"\\a"); }), 76);
    EXPECT_TRUE(IsThere(L"full\\a"));
}

TEST_P(FileSystemContract, ReadOnlyFolderIsNotRemoved) {
    if (disk->IsWine())
        GTEST_SKIP() << "Wine has no read-only folders";
    files.MakeFolder(In(L"sub"));
    files.SetAttributes(In(L"sub"), {.readOnly = true});
    EXPECT_EQ(ThrownNumber([&] { files.RemoveFolder(In(L"sub")); }), 75);
    files.SetAttributes(In(L"sub"), {});
    files.RemoveFolder(In(L"sub"));
}

TEST_P(FileSystemContract, CurrentFolderIsNeitherRemovedNorRenamed) {
    files.MakeFolder(In(L"sub"));
    files.MakeFolder(In(L"sub\\below"));
    files.SetCurrentFolder(In(L"sub\\below"));
    EXPECT_EQ(ThrownNumber([&] { files.RemoveFolder(In(L"sub\\below")); }), 75);
    EXPECT_EQ(ThrownNumber([&] { files.Rename(In(L"sub\\below"), In(L"sub\\other")); }), 75);
    if (!disk->IsWine()) { // which looks at the folder itself only
        EXPECT_EQ(ThrownNumber([&] { files.Rename(In(L"sub"), In(L"other")); }), 75);
    }
    EXPECT_TRUE(IsThere(L"sub\\below"));
    files.SetCurrentFolder(folder);
    files.RemoveFolder(In(L"sub\\below"));
}

// --- Attributes -----------------------------------------------------------------------------

TEST_P(FileSystemContract, SetsAndClearsAttributes) {
    files.Write(In(L"a"), "1");
    for (const FileAttributes& attributes : AttributesToTry(*disk)) {
        files.SetAttributes(In(L"a"), attributes);
        EXPECT_EQ(files.Find(In(L"a"))->attributes, attributes);
        files.SetAttributes(In(L"a"), {.archive = true});
        EXPECT_EQ(files.Find(In(L"a"))->attributes, FileAttributes{.archive = true});
    }
}

// Wine cannot clear it on a file nor set it on a folder.
TEST_P(FileSystemContract, SetsAndClearsTheArchiveAttribute) {
    if (disk->IsWine())
        GTEST_SKIP() << "Wine derives this attribute from the kind of the entry";
    files.Write(In(L"a"), "1");
    files.SetAttributes(In(L"a"), {});
    EXPECT_EQ(files.Find(In(L"a"))->attributes, FileAttributes{});
    files.MakeFolder(In(L"sub"));
    files.SetAttributes(In(L"sub"), {.archive = true});
    EXPECT_EQ(files.Find(In(L"sub"))->attributes,
              (FileAttributes{.folder = true, .archive = true}));
}

TEST_P(FileSystemContract, SettingAttributesKeepsWhatIsAFolderAFolder) {
    files.MakeFolder(In(L"sub"));
    files.SetAttributes(In(L"sub\\"), {.hidden = true});
    EXPECT_EQ(files.Find(In(L"sub"))->attributes, (FileAttributes{.hidden = true, .folder = true}));
    files.Write(In(L"a"), "1");
    files.SetAttributes(In(L"a"), {.folder = true, .archive = true, .link = true});
    EXPECT_EQ(files.Find(In(L"a"))->attributes, FileAttributes{.archive = true});
}

TEST_P(FileSystemContract, SetAttributesFailures) {
    EXPECT_EQ(ThrownNumber([&] { files.SetAttributes(In(L"nosuch"), {}); }), 53);
    EXPECT_EQ(ThrownNumber([&] { files.SetAttributes(In(L"nosuch\\a"), {}); }), 76);
    EXPECT_EQ(ThrownNumber([&] { files.SetAttributes(disk->MissingDrive() + L"\\a", {}); }), 76);
}

// --- Current folder and drives --------------------------------------------------------------

TEST_P(FileSystemContract, CurrentFolderIsWhereItWasSet) {
    files.MakeFolder(In(L"Sub"));
    files.SetCurrentFolder(In(L"Sub\\"));
    EXPECT_EQ(files.CurrentFolder(), In(L"Sub"));
    files.SetCurrentFolder(L"..");
    EXPECT_EQ(files.CurrentFolder(), folder);
    files.SetCurrentFolder(L"Sub");
    EXPECT_EQ(files.CurrentFolder(), In(L"Sub"));
    files.SetCurrentFolder(L"");
    files.SetCurrentFolder(folder.substr(0, 2));
    EXPECT_EQ(files.CurrentFolder(), In(L"Sub"));
    files.SetCurrentFolder(folder.substr(0, 3));
    EXPECT_EQ(files.CurrentFolder(), folder.substr(0, 3));
    files.SetCurrentFolder(L"..");
    EXPECT_EQ(files.CurrentFolder(), folder.substr(0, 3));
}

TEST_P(FileSystemContract, SetCurrentFolderFailures) {
    files.Write(In(L"file"), "");
    files.SetCurrentFolder(folder);
    EXPECT_EQ(ThrownNumber([&] { files.SetCurrentFolder(In(L"nosuch")); }), 76);
    EXPECT_EQ(ThrownNumber([&] { files.SetCurrentFolder(In(L"nosuch\\below")); }), 76);
    EXPECT_EQ(ThrownNumber([&] { files.SetCurrentFolder(In(L"file")); }), 76);
    EXPECT_EQ(ThrownNumber([&] { files.SetCurrentFolder(disk->MissingDrive() + L"\\"); }), 68);
    EXPECT_EQ(ThrownNumber([&] { files.SetCurrentFolder(disk->MissingDrive()); }), 68);
    EXPECT_EQ(files.CurrentFolder(), folder);
}

TEST_P(FileSystemContract, EveryDriveKeepsAFolderOfItsOwn) {
    const auto other = disk->OtherDrive();
    if (!other)
        GTEST_SKIP() << "this computer has one drive only";
    files.Write(In(L"a"), "1");
    files.SetCurrentFolder(folder);
    files.SetCurrentFolder(*other + L'\\');
    EXPECT_EQ(files.CurrentFolder(), *other + L'\\');
    EXPECT_EQ(files.Read(folder.substr(0, 2) + L"a"), "1");
    files.SetCurrentFolder(folder.substr(0, 2));
    EXPECT_EQ(files.CurrentFolder(), folder);
    EXPECT_EQ(files.Find(*other)->name, L"");
}

TEST_P(FileSystemContract, ListsDrivesByLetter) {
    const auto drives = files.Drives();
    ASSERT_FALSE(drives.empty());
    const auto isBefore = [](const Drive& a, const Drive& b) {
        return a.name < b.name;
    };
    EXPECT_TRUE(std::is_sorted(drives.begin(), drives.end(), isBefore));
    bool isThere = false;
    for (const Drive& drive : drives) {
        ASSERT_EQ(drive.name.size(), 2U);
        EXPECT_TRUE(drive.name[0] >= L'a' && drive.name[0] <= L'z') << drive.name;
        EXPECT_EQ(drive.name[1], L':');
        if (drive.name[0] + L'A' - L'a' == folder[0]) {
            isThere = true;
            EXPECT_EQ(drive.type, DriveType::Fixed);
        }
    }
    EXPECT_TRUE(isThere);
}

// --- What others do -------------------------------------------------------------------------

TEST_P(FileSystemContract, FileInUseElsewhere) {
    files.Write(In(L"a"), "old");
    files.Write(In(L"free"), "free");
    disk->Lock(In(L"a"));
    EXPECT_EQ(ThrownNumber([&] { files.Read(In(L"a")); }), 70);
    EXPECT_EQ(ThrownNumber([&] { files.Write(In(L"a"), "new"); }), 70);
    EXPECT_EQ(ThrownNumber([&] { files.Copy(In(L"a"), In(L"b")); }), 70);
    EXPECT_EQ(ThrownNumber([&] { files.Copy(In(L"free"), In(L"a")); }), 70);
    EXPECT_EQ(ThrownNumber([&] { files.Replace(In(L"a"), In(L"b")); }), 70);
    EXPECT_EQ(ThrownNumber([&] { files.Replace(In(L"free"), In(L"a")); }), 70);
    EXPECT_EQ(ThrownNumber([&] { files.Rename(In(L"a"), In(L"b")); }), 70);
    EXPECT_EQ(ThrownNumber([&] { files.Delete(In(L"a")); }), 70);
    EXPECT_TRUE(IsThere(L"a"));
    EXPECT_EQ(files.List(folder).size(), 2U);
    disk->Unlock(In(L"a"));
    EXPECT_EQ(files.Read(In(L"a")), "old");
}

// Wine renames it.
TEST_P(FileSystemContract, FolderThatHoldsAFileInUseIsNotRenamed) {
    if (disk->IsWine())
        GTEST_SKIP() << "Wine looks at the folder only";
    files.MakeFolder(In(L"sub"));
    files.Write(In(L"sub\\a"), "1");
    disk->Lock(In(L"sub\\a"));
    EXPECT_EQ(ThrownNumber([&] { files.Rename(In(L"sub"), In(L"other")); }), 75);
    disk->Unlock(In(L"sub\\a"));
}

TEST_P(FileSystemContract, LinkLeadsToAFolderElsewhere) {
    files.MakeFolder(In(L"real"));
    files.Write(In(L"real\\a"), "1");
    if (!disk->MakeLink(In(L"link"), In(L"real")))
        GTEST_SKIP() << "links cannot be made here";
    ASSERT_TRUE(IsThere(L"link"));
    EXPECT_EQ(files.Find(In(L"link"))->attributes, (FileAttributes{.folder = true, .link = true}));
    EXPECT_TRUE(files.List(folder)[0].attributes.link);
    EXPECT_THAT(NamesOf(files.List(In(L"link"))), ElementsAre(L"a"));
    EXPECT_EQ(files.Read(In(L"link\\a")), "1");
    EXPECT_EQ(ThrownNumber([&] { files.Delete(In(L"link")); }), 75);
    files.SetCurrentFolder(In(L"link"));
    EXPECT_EQ(files.CurrentFolder(), In(L"link"));
    files.SetCurrentFolder(folder);
}

// Wine follows the link in every call, so that there it can only be left alone.
TEST_P(FileSystemContract, VolumesAreTheRootsOfDrives) {
    const std::wstring root = folder.substr(0, 3);
    const auto volume = files.FixedVolumeAt(root);
    ASSERT_TRUE(volume);
    EXPECT_EQ(files.FixedVolumeAt(root), volume);
    EXPECT_FALSE(files.FixedVolumeAt(folder));
    EXPECT_FALSE(files.FixedVolumeAt(In(L"nosuch")));
    EXPECT_FALSE(files.FixedVolumeAt(disk->MissingDrive() + L"\\"));
}

TEST_P(FileSystemContract, LinkToAFolderIsNoVolume) {
    files.MakeFolder(In(L"real"));
    if (!disk->MakeLink(In(L"link"), In(L"real")))
        GTEST_SKIP() << "no links here";
    EXPECT_FALSE(files.FixedVolumeAt(In(L"link")));
}

TEST_P(FileSystemContract, RealPathIsTheSameByWhateverWayOneComes) {
    files.MakeFolder(In(L"real"));
    files.MakeFolder(In(L"real\\below"));
    const std::wstring real = files.RealPath(In(L"real"));
    EXPECT_TRUE(EqualIgnoringCase(files.RealPath(In(L"REAL\\")), real));
    EXPECT_TRUE(EqualIgnoringCase(files.RealPath(In(L"real\\Below")), real + L"\\below"));
    EXPECT_FALSE(EqualIgnoringCase(files.RealPath(folder), real));
    EXPECT_TRUE(EqualIgnoringCase(files.RealPath(In(L"nosuch")), In(L"nosuch")));
    EXPECT_EQ(files.RealPath(disk->MissingDrive() + L"\\a"), disk->MissingDrive() + L"\\a");
    if (!disk->IsWine() && disk->MakeLink(In(L"link"), In(L"real"))) { // which knows drives only
        EXPECT_TRUE(EqualIgnoringCase(files.RealPath(In(L"link\\below")), real + L"\\below"));
    }
}

TEST_P(FileSystemContract, RemovingALinkLeavesWhatItPointsTo) {
    files.MakeFolder(In(L"real"));
    files.Write(In(L"real\\a"), "1");
    if (!disk->MakeLink(In(L"link"), In(L"real")))
        GTEST_SKIP() << "links cannot be made here";
    if (disk->IsWine()) {
        EXPECT_EQ(ThrownNumber([&] { files.RemoveFolder(In(L"link")); }), 75);
        EXPECT_TRUE(IsThere(L"link"));
    } else {
        files.RemoveFolder(In(L"link"));
        EXPECT_FALSE(IsThere(L"link"));
    }
    EXPECT_EQ(files.Read(In(L"real\\a")), "1");
}

// The same under Wine.
TEST_P(FileSystemContract, RenamingALinkLeavesWhatItPointsTo) {
    files.MakeFolder(In(L"real"));
    files.Write(In(L"real\\a"), "1");
    if (!disk->MakeLink(In(L"link"), In(L"real")))
        GTEST_SKIP() << "links cannot be made here";
    if (disk->IsWine()) {
        EXPECT_EQ(ThrownNumber([&] { files.Rename(In(L"link"), In(L"moved")); }), 75);
        EXPECT_TRUE(IsThere(L"link"));
    } else {
        files.Rename(In(L"link"), In(L"moved"));
        EXPECT_EQ(files.Read(In(L"moved\\a")), "1");
    }
    EXPECT_EQ(files.Read(In(L"real\\a")), "1");
}

} // namespace
} // namespace tamblin
