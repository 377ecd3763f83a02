// All that the program asks of its surroundings, in one handful that its parts are given.
#pragma once

#include <string>

#include "platform/ansi_code_page.h"
#include "platform/desktop_shell.h"
#include "platform/event_loop.h"
#include "platform/file_system.h"
#include "platform/message_boxes.h"
#include "platform/program_starter.h"
#include "platform/unlha.h"
#include "platform/work_progress.h"

namespace tamblin {

struct Platform {
    FileSystem& files;
    DesktopShell& shell;
    ProgramStarter& starter;
    MessageBoxes& messages;
    EventLoop& events;
    Unlha& unlha;
    AnsiCodePage& ansi;
    WorkProgress& progress;
    std::wstring programFolder; // holds the program file; no trailing "\" unless it is a root
};

} // namespace tamblin
