// What maintenance commands act on while something fails, and what must not be lost by it.
#pragma once

#include "maintenance/character_menu.h"
#include "maintenance/folder_check.h"
#include "maintenance/launch.h"
#include "maintenance/start_up_file.h"
#include "maintenance/uninstall.h"
#include "maintenance/updates.h"
#include "unit/maintenance_scene.h"

namespace tamblin {

struct OneCharacter : MaintenanceScene {
    OneCharacter() {
        ShowSelected(L"abc");
        before = files.Snapshot();
    }
    MemoryFileSystem::Tree before;
};

// The former start-up file stands under one of its names, under its own unless set aside.
inline void ExpectFormerStartUpFile(const MaintenanceScene& scene) {
    const bool setAside = scene.files.Exists(scene.Backup());
    const std::wstring place = setAside ? scene.Backup() : L"C:\\VMR\\ombrel.rc";
    ASSERT_TRUE(scene.files.Exists(place));
    EXPECT_EQ(scene.files.Contents(place), scene.formerStartUp);
}

// All files but the start-up file's two are as they were.
inline void ExpectOtherFilesKept(const OneCharacter& scene) {
    auto before = scene.before;
    auto after = scene.files.Snapshot();
    for (auto* tree : {&before, &after}) {
        tree->erase(L"C:\\VMR\\ombrel.rc");
        tree->erase(L"C:\\VMR\\ombrel_rc.bak");
    }
    EXPECT_EQ(after, before);
}

struct ThreeCharacters : MaintenanceScene {
    ThreeCharacters() {
        for (const wchar_t* name : {L"a", L"b", L"c"})
            AddCharacter(name);
        Show();
        SelectCharacters({L"a", L"b"});
        for (const wchar_t* kept :
             {L"ombrel.exe", L"ombrel.rc", L"a.obl", L"c.obl", L"c\\face.bmp"})
            expected[base + kept] = files.Contents(base + kept);
        expected[L"C:\\VMR\\c\\"];
    }
    MemoryFileSystem::Tree expected; // once a and b are gone, but for a.obl
};

struct NewHostProgram : OneCharacter {
    NewHostProgram() {
        files.AddFile(L"C:\\Browsed\\ombrel.exe", "new");
        model.enabled[Command::UpdateHost] = true;
        before = files.Snapshot();
    }
};

} // namespace tamblin
