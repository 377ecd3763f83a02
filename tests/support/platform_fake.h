// All fakes in one handful: a drive C: with the program in C:\Tamblin, which is also the current
// folder. Hand `platform` to what is tested, and look at the fakes afterwards.
#pragma once

#include "support/desktop_shell_fake.h"
#include "support/memory_file_system.h"
#include "support/seam_fakes.h"

namespace tamblin {

struct PlatformFake : SeamFakes {
    explicit PlatformFake(const std::wstring& drive = L"C:", DriveType type = DriveType::Fixed) {
        files.AddDrive(drive, type);
        platform.programFolder = drive + L"\\Tamblin";
        files.AddFolder(platform.programFolder);
        files.SetCurrentFolder(platform.programFolder);
        files.ForgetOperations();
    }
    PlatformFake(const PlatformFake&) = delete;
    PlatformFake& operator=(const PlatformFake&) = delete;

    MemoryFileSystem files;
    DesktopShellFake shell{files};
    Platform platform = PlatformOver(files);

    // The same fakes over other files.
    Platform PlatformOver(FileSystem& other) { return Over(other, shell, L"C:\\Tamblin"); }
};

} // namespace tamblin
