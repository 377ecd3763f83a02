// The surroundings that the growth benchmark works on: natively a drive in memory, on Windows the
// real file system. Message boxes are answered.
#pragma once

#include <memory>

#include "support/platform_fake.h"
#ifdef _WIN32
#include "platform/win32/win32_desktop_shell.h"
#include "platform/win32/win32_file_system.h"
#include "platform/win32/win32_unlha.h"
#else
#include "support/lzh_memory_unlha.h"
#endif

namespace tamblin {

inline constexpr wchar_t BenchFolder[] = L"C:\\tamblin-bench";

struct GrowthWorld {
#ifdef _WIN32
    Win32FileSystem files;
    Win32DesktopShell shell;
    Win32Unlha unlha;
#else
    GrowthWorld() {
        files.AddDrive(L"C:");
        files.KeepLog(false);
    }
    MemoryFileSystem files;
    DesktopShellFake shell{files};
    MemoryUnlha unlha{files};
#endif
    ProgramStarterFake starter;
    MessageBoxesFake messages;
    EventLoopFake events;
    NativeAnsiCodePage ansi;
    WorkProgressFake progress;
    Platform platform{files, shell, starter, messages, events, unlha, ansi, progress, L"C:\\"};
};

} // namespace tamblin
