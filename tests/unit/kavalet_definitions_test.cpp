// Merging a package's launcher entries into kva.def.
#include "install/kavalet_definitions.h"

#include <array>
#include <utility>

#include "unit/rules_fixture.h"

namespace tamblin {
namespace {

// Lines as " / " separates them in the tables below.
std::string MergedLines(std::string_view row) {
    std::string text;
    while (!row.empty()) {
        const size_t end = std::min(row.find(" / "), row.size());
        text.append(row.substr(0, end)).append("\r\n");
        row.remove_prefix(std::min(end + 3, row.size()));
    }
    return text;
}

TEST(KavaletLines, EntriesAreMergedByTheirKeys) {
    const std::array<const char*, 4> cases[] = {
        {"ReplacedAndAppended", "#comment / a,b,1 / c,d,2", "a,b,9 / e,f,3",
         "#comment / a,b,9 / c,d,2 / e,f,3"},
        {"FirstUnusedIsDropped", "a,b,1", "e,f,3 / a,b,9", "a,b,9"},
        {"SecondOfAKeyIsAppended", "a,b,1", "x,y,1 / a,b,2 / a,b,3", "a,b,2 / a,b,3"},
        {"LoneNewEntryIsDropped", "a,b,1", "e,f,3", "a,b,1"},
        {"LoneFittingEntryReplaces", "a,b,1", "a,b,3", "a,b,3"},
        {"NewEntriesKeepTheirOrder", "a,b,1", "a,b,2 / z,z,1 / c,c,1 / m,m,1",
         "a,b,2 / z,z,1 / c,c,1 / m,m,1"},
        {"OldEntriesKeepTheirPlace", "c,c,1 / b,b,1 / a,a,1", "a,a,2 / c,c,2",
         "c,c,2 / b,b,1 / a,a,2"},
        {"HostCommentsStayPackageCommentsGo", "#1 / a,b,1 / #2", "#3 / a,b,2 / #4 / c,d,1",
         "#1 / a,b,2 / #2 / c,d,1"},
        {"HostCommentsAreNotReplaced", "#a,b,1", "x,y,1 / #a,b,2", "#a,b,1"},
        {"KeyIsAPrefix", "a,b,1", "a,bc,2", "a,bc,2"},
        {"KeyIsNoPrefixOfAShorterEntry", "a,bc,1", "x,x,1 / a,b,2", "a,bc,1 / a,b,2"},
        {"CaseMatters", "a,b,1", "x,x,1 / A,b,2", "a,b,1 / A,b,2"},
        {"OneCommaIsAllKey", "a,b", "x,x,1 / a,c / a,bd,1", "a,bd,1 / a,c"},
        {"NoCommaIsAllKey", "word", "words", "words"},
        {"EmptyFieldsAreAKey", ",,1", "x,x,1 / ,,2", ",,2"},
        {"UsedEntryIsNotUsedAgain", "a,b,1 / a,b,2", "a,b,8 / a,b,9", "a,b,8 / a,b,9"},
        {"SecondOldLineStaysWhenUsedUp", "a,b,1 / a,b,2", "a,b,9", "a,b,9 / a,b,2"},
        {"EmptyPackage", "#c / a,b,1", "", "#c / a,b,1"},
        {"OnlyCommentsInPackage", "a,b,1", "#x / #y", "a,b,1"},
        {"EmptyHostFile", "", "a,b,1 / c,d,2", "c,d,2"},
        {"BlankBeforeNumberSignIsAnEntry", " #a", "x,x,1 /  #ab", " #ab"}};
    for (const auto& [name, former, package, merged] : cases)
        EXPECT_EQ(MergedKavaletDefinitions(MergedLines(former), MergedLines(package)),
                  MergedLines(merged))
            << name;
}

TEST(KavaletLines, EmptyLinesOfTheHostStayThoseOfThePackageGo) {
    EXPECT_EQ(MergedKavaletDefinitions("\r\na,b,1\r\n\r\n", "\r\n\r\na,b,2\r\n\r\nc,d,3\r\n"),
              "\r\na,b,2\r\n\r\nc,d,3\r\n");
}

TEST(KavaletLines, LastLineNeedsNoEnd) {
    EXPECT_EQ(MergedKavaletDefinitions("a,b,1", "a,b,2\r\nc,d,3"), "a,b,2\r\nc,d,3\r\n");
}

TEST(KavaletLines, BytesThatAreNoCharactersSurvive) {
    const std::string host("\x81\xFF\0,\x95\x5C,1\r\n#\xFC\r\n", 14);
    EXPECT_EQ(MergedKavaletDefinitions(host, "x,x,1\r\n"), host);
}

TEST(KavaletLines, EntriesThatBeginAlikeAreTakenInThePackagesOrder) {
    EXPECT_EQ(
        MergedKavaletDefinitions("a,b,\r\na,bb\r\na,b\r\n", "a,bc\r\na,bbc\r\na,b\r\na,ba\r\n"),
        "a,bc\r\na,bbc\r\na,b\r\na,ba\r\n");
}

TEST(KavaletLines, EndlessPackageIsSoonDoneAndLosesNothing) {
    std::string host;
    std::string package = "first,one\r\n";
    for (int line = 0; line < 20'000; ++line) {
        host += "host," + std::to_string(line) + "\r\n";
        package += "package," + std::to_string(line) + "\r\n";
    }
    host += "package,1\r\n"; // is no longer looked for
    EXPECT_EQ(MergedKavaletDefinitions(host, package),
              host + package.substr(std::string_view("first,one\r\n").size()));
}

class KavaletFileTest : public testing::Test {
  protected:
    KavaletFileTest() {
        AddHost(files, L"C:\\Host");
        files.AddFile(L"C:\\Host\\abc\\KVA.DEF", "a,b,2\r\n");
    }
    void Merge() {
        MergeKavaletDefinitions(L"KVA.DEF", L"C:\\Host\\abc\\KVA.DEF", L"C:\\Host\\",
                                fake.platform);
    }

    PlatformFake fake;
    MemoryFileSystem& files = fake.files;
};

TEST_F(KavaletFileTest, NothingIsMadeWithoutAHostFile) {
    files.AddFile(L"C:\\Host\\kva.tmp", "old");
    const auto before = files.Snapshot();
    Merge();
    EXPECT_EQ(files.Snapshot(), before);
}

TEST_F(KavaletFileTest, FormerFileStaysAndTheNewOneIsSpelledAsThePackages) {
    files.AddFile(L"C:\\Host\\kva.def", "#1\r\na,b,1\r\n");
    files.AddFile(L"C:\\Host\\kva.tmp", "older");
    Merge();
    const auto host = files.Snapshot(L"C:\\Host");
    EXPECT_EQ(host.at(L"C:\\Host\\KVA.DEF"), "#1\r\na,b,2\r\n");
    EXPECT_EQ(host.at(L"C:\\Host\\kva.tmp"), "#1\r\na,b,1\r\n");
    EXPECT_EQ(host.at(L"C:\\Host\\abc\\KVA.DEF"), "a,b,2\r\n");
    EXPECT_EQ(host.count(L"C:\\Host\\kva.def"), 0U);
}

TEST_F(KavaletFileTest, ReadOnlyFileFailsAndCostsNothing) {
    files.AddFile(L"C:\\Host\\kva.def", "a,b,1\r\n", {.readOnly = true});
    files.AddFile(L"C:\\Host\\kva.tmp", "older");
    const auto before = files.Snapshot();
    EXPECT_EQ(ErrorOf([&] { Merge(); }), ErrorNumber::PathFileAccess);
    EXPECT_EQ(files.Snapshot(), before);
    files.Lock(L"C:\\Host\\kva.def"); // so does one in use
    files.AddFile(L"C:\\Host\\kva.def", "a,b,1\r\n");
    EXPECT_EQ(ErrorOf([&] { Merge(); }), ErrorNumber::PermissionDenied);
    EXPECT_EQ(files.Contents(L"C:\\Host\\kva.def"), "a,b,1\r\n");
}

TEST_F(KavaletFileTest, MergeThatAFullDiskEndsCostsNothingAndTheNextKeepsTheFormerFile) {
    const std::string definitions = std::string(1'000, 'x') + "\r\n";
    files.AddFile(L"C:\\Host\\kva.def", definitions);
    files.SetCapacity(L"C:", 1'500);
    EXPECT_EQ(ErrorOf([&] { Merge(); }), ErrorNumber::DiskFull);
    EXPECT_EQ(files.Contents(L"C:\\Host\\kva.def"), definitions);
    files.SetCapacity(L"C:", 1'000'000);
    Merge();
    EXPECT_EQ(files.Contents(L"C:\\Host\\kva.tmp"), definitions);
}

} // namespace
} // namespace tamblin
