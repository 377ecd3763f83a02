// The entry point: puts the program together and shows the splash window.
#include <objbase.h>

#include "app/program_windows.h"
#include "base/at_exit.h"
#include "platform/win32/own_process.h"
#include "platform/win32/program_instance.h"
#include "platform/win32/win32_ansi_code_page.h"
#include "platform/win32/win32_desktop_shell.h"
#include "platform/win32/win32_event_loop.h"
#include "platform/win32/win32_file_system.h"
#include "platform/win32/win32_message_boxes.h"
#include "platform/win32/win32_program_starter.h"
#include "platform/win32/win32_unlha.h"
#include "platform/win32/win32_work_progress.h"
#include "ui/application.h"

namespace tamblin {
namespace {

void RunProgram() {
    const HRESULT apartment = CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED);
    const AtExit leaveApartment([&] {
        if (SUCCEEDED(apartment))
            CoUninitialize();
    });
    const ProgramInstance instance;
    Application* windows = nullptr;
    Win32MessageBoxes messages([&] { return windows ? windows->BoxOwner() : nullptr; });
    Application application(messages, [] { ExitProcess(1); });
    windows = &application;

    Win32WorkProgress progress([&] { return application.BoxOwner(); });
    const auto meanwhile = [&] {
        progress.ShowIfLong();
    };
    const Patience patience = PatienceOfWindows(Patience::usual, meanwhile);
    Win32FileSystem files(patience, meanwhile);
    Win32DesktopShell shell(SHFileOperationW, patience);
    Win32ProgramStarter starter;
    Win32EventLoop events([&](MSG& message) { return application.TakesMessage(message); });
    Win32Unlha unlha;
    Win32AnsiCodePage ansi;
    Platform platform{files, shell, starter,  messages,       events,
                      unlha, ansi,  progress, ProgramFolder()};

    ProgramWindows program(application, platform, instance);
    program.ShowSplash();
    application.Run();
}

} // namespace
} // namespace tamblin

int WINAPI wWinMain(HINSTANCE, HINSTANCE, PWSTR, int) {
    tamblin::LoadDllsFromSystemOnly();
    tamblin::RunProgram();
    return 0;
}
