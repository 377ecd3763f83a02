// All fakes in one handful: a drive C: with the program in C:\Tamblin, which is also the current
// folder. Hand `platform` to what is tested, and look at the fakes afterwards.
#pragma once

#include "platform/platform.h"
#include "support/desktop_shell_fake.h"
#include "support/event_loop_fake.h"
#include "support/memory_file_system.h"
#include "support/message_boxes_fake.h"
#include "support/native_ansi_code_page.h"
#include "support/program_starter_fake.h"
#include "support/unlha_fake.h"
#include "support/work_progress_fake.h"

namespace tamblin {

struct PlatformFake {
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
    ProgramStarterFake starter;
    MessageBoxesFake messages;
    EventLoopFake events;
    UnlhaFake unlha;
    NativeAnsiCodePage ansi;
    WorkProgressFake progress;
    Platform platform = PlatformOver(files);

    // The same fakes over other files.
    Platform PlatformOver(FileSystem& other) {
        return {other, shell, starter, messages, events, unlha, ansi, progress, L"C:\\Tamblin"};
    }
};

} // namespace tamblin
