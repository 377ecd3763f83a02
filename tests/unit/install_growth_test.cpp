// The cost of an install, in listings and operations rather than in time: it grows with the number
// of files, and no folder is listed again for every file in it.

#include <algorithm>
#include <map>

#include "unit/rules_fixture.h"

namespace tamblin {
namespace {

struct Cost {
    size_t listings = 0;
    size_t operations = 0;
    size_t mostListingsOfOneFolder = 0;
};

Cost CostOf(MemoryFileSystem& files) {
    Cost cost;
    cost.listings = files.CountLogged(L"List ");
    cost.operations = files.OperationCount();
    std::map<std::wstring, size_t> perFolder;
    for (const std::wstring& line : files.Log())
        if (line.starts_with(L"List "))
            cost.mostListingsOfOneFolder =
                std::max(cost.mostListingsOfOneFolder, ++perFolder[UpperCase(line)]);
    return cost;
}

Cost CostOfInstalling(size_t fileCount, bool intoTheRoot, std::int16_t answer) {
    MainWindowScene scene;
    std::vector<PackedFile> contents = {{L"mio.obl"}, {L"mio\\face.bmp"}};
    for (size_t file = 0; file < fileCount; ++file)
        contents.push_back({(intoTheRoot ? L"file" : L"mio\\dat\\file") + std::to_wstring(file)});
    scene.AddPackage(L"p.lzh", contents);
    scene.screen.answer = answer;
    scene.Open();
    scene.InstallFiles({L"p.lzh"});
    return CostOf(scene.files);
}

TEST(InstallGrowth, ListsNoFolderMoreOftenForMoreFiles) {
    for (const bool intoTheRoot : {false, true}) {
        for (const std::int16_t answer : {AnswerInstall, AnswerCancel}) {
            const Cost few = CostOfInstalling(10, intoTheRoot, answer);
            const Cost many = CostOfInstalling(1'000, intoTheRoot, answer);
            EXPECT_EQ(many.listings, few.listings);
            EXPECT_LE(many.mostListingsOfOneFolder, 8U);
            EXPECT_LE(many.operations, 100 + 2 * 1'000U);
        }
    }
}

TEST(InstallGrowth, ThinsManyInstalledCharactersWithoutListingAgain) {
    MainWindowScene scene;
    std::vector<PackedFile> contents;
    for (int number = 0; number < 300; ++number) {
        const std::wstring name = L"c" + std::to_wstring(number);
        AddCharacter(scene.files, L"C:\\Host", name);
        contents.push_back({name + L".obl"});
        contents.push_back({name + L"\\x"});
    }
    scene.AddPackage(L"p.lzh", contents);
    scene.screen.answer = AnswerCancel;
    scene.Open();
    scene.InstallFiles({L"p.lzh"});
    EXPECT_EQ(scene.screen.confirmations.at(0).alreadyInstalled.Size(), 300U);
    EXPECT_LE(CostOf(scene.files).listings, 10U);
}

} // namespace
} // namespace tamblin
