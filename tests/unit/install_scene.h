// Packages to install, and what an install has asked and left.
#pragma once

#include "install/install.h"
#include "unit/rules_fixture.h"

namespace tamblin {

constexpr wchar_t Failed[] = L"パッケージの解凍に失敗しました。";
constexpr wchar_t Cancelled[] = L"インストールを中止しました。";
constexpr wchar_t Done[] = L"インストールが完了しました。";
constexpr wchar_t None[] = L"（なし）";

inline std::vector<PackedFile> Ombrel(const std::wstring& name) {
    return {{name + L".obl", "definition of " + std::string(1, static_cast<char>(name[0]))},
            {name + L"\\face.bmp", "picture"},
            {name + L"\\dat\\voice.wav", "sound"}};
}

inline std::vector<PackedFile> Both(std::vector<PackedFile> one,
                                    const std::vector<PackedFile>& other) {
    one.insert(one.end(), other.begin(), other.end());
    return one;
}

class InstallTest : public testing::Test {
  protected:
    explicit InstallTest(const std::wstring& host = L"C:\\Host") : scene(host) {}

    void Install(const std::vector<std::wstring>& names) {
        scene.Open();
        hostBefore = files.Snapshot(scene.hostFolder);
        scene.InstallFiles(names);
    }
    // An install of the package mio.lzh alone, with the character mio.
    void InstallMio() {
        scene.AddPackage(L"mio.lzh", Ombrel(L"mio"));
        Install({L"mio.lzh"});
    }
    // Nothing is unpacked or deleted, and one message begins so.
    void ExpectRefused(const std::wstring& message) {
        EXPECT_THAT(fake.unlha.calls, IsEmpty());
        ASSERT_EQ(fake.messages.shown.size(), 1U);
        EXPECT_TRUE(fake.messages.shown[0].text.starts_with(message));
        EXPECT_TRUE(scene.screen.enabled);
        fake.messages.shown.clear();
    }
    const InstallConfirmation& Asked() const { return scene.screen.confirmations.at(0); }
    void ExpectLists(const std::vector<std::wstring>& toInstall,
                     const std::vector<std::wstring>& cannotInstall,
                     const std::vector<std::wstring>& alreadyInstalled) const {
        EXPECT_THAT(Asked().toInstall.Entries(), ElementsAreArray(toInstall));
        EXPECT_THAT(Asked().cannotInstall.Entries(), ElementsAreArray(cannotInstall));
        EXPECT_THAT(Asked().alreadyInstalled.Entries(), ElementsAreArray(alreadyInstalled));
    }
    void ExpectHostUntouched() const { EXPECT_EQ(files.Snapshot(scene.hostFolder), hostBefore); }
    bool InHost(const std::wstring& path) const {
        return files.Exists(WithBackslash(scene.hostFolder) + path);
    }
    // What is staged while the confirmation window is open.
    MemoryFileSystem::Tree StagedWhenAsked(const std::vector<std::wstring>& names) {
        MemoryFileSystem::Tree staged;
        scene.screen.onConfirmation = [&] {
            staged = files.Snapshot(L"C:\\TAMTMP");
        };
        Install(names);
        return staged;
    }

    MainWindowScene scene;
    MemoryFileSystem& files = scene.files;
    PlatformFake& fake = scene.fake;
    MainModel& model = scene.model;
    MemoryFileSystem::Tree hostBefore;
};

} // namespace tamblin
