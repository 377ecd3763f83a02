// Operates the windows of other programs for a script. Each line on standard input is a command and
// its arguments, parted by tabs, in UTF-8; each is answered by one line of JSON on standard output:
// {"answer":...} or {"error":"..."}. Ends with its input.
// Newer than what the program itself may use.
#undef _WIN32_WINNT
#define _WIN32_WINNT 0x0A00
#undef WINVER
#define WINVER 0x0A00
#include <windows.h>

#include <functional>
#include <iostream>
#include <map>
#include <sstream>
#include <stdexcept>

#include "file_operations.h"
#include "json.h"
#include "message_operations.h"
#include "process_operations.h"
#include "window_operations.h"

namespace {

using Arguments = std::vector<std::string>;
using Operation = std::function<std::string(const Arguments&)>;

// Splits at every separator; empty pieces count.
Arguments Split(const std::string& text, char separator) {
    Arguments pieces(1);
    for (const char character : text) {
        if (character == separator) {
            pieces.emplace_back();
        } else {
            pieces.back() += character;
        }
    }
    return pieces;
}

const std::string& At(const Arguments& arguments, std::size_t index) {
    if (index >= arguments.size()) {
        throw std::runtime_error("an argument is missing");
    }
    return arguments[index];
}

HWND Window(const Arguments& arguments) {
    return reinterpret_cast<HWND>(static_cast<std::intptr_t>(std::stoll(At(arguments, 1))));
}

int Number(const Arguments& arguments, std::size_t index) {
    return std::stoi(At(arguments, index));
}

unsigned Unsigned(const Arguments& arguments, std::size_t index) {
    return static_cast<unsigned>(std::stoul(At(arguments, index)));
}

std::vector<int> Rows(const Arguments& arguments) {
    std::vector<int> rows;
    for (std::size_t index = 2; index < arguments.size(); ++index) {
        rows.push_back(Number(arguments, index));
    }
    return rows;
}

std::wstring Wide(const std::string& bytes) {
    const int size = static_cast<int>(bytes.size());
    std::wstring text(bytes.size(), L'\0');
    text.resize(static_cast<std::size_t>(
        MultiByteToWideChar(CP_UTF8, 0, bytes.data(), size, text.data(), size)));
    return text;
}

const std::map<std::string, Operation>& Operations() {
    using namespace tamblin;
    static const std::map<std::string, Operation> operations{
        {"windows",
         [](const Arguments&) {
             return TopLevelWindows();
         }},
        {"controls",
         [](const Arguments& a) {
             return Controls(Window(a));
         }},
        {"window",
         [](const Arguments& a) {
             return OneWindow(Window(a));
         }},
        {"entries",
         [](const Arguments& a) {
             return Entries(Window(a));
         }},
        {"select",
         [](const Arguments& a) {
             return Select(Window(a), Rows(a));
         }},
        {"row-area",
         [](const Arguments& a) {
             return RowArea(Window(a), Number(a, 2));
         }},
        {"double-click",
         [](const Arguments& a) {
             return DoubleClick(Window(a), Number(a, 2));
         }},
        {"press",
         [](const Arguments& a) {
             return Press(Window(a));
         }},
        {"command",
         [](const Arguments& a) {
             return Command(Window(a), Number(a, 2));
         }},
        {"close",
         [](const Arguments& a) {
             return Close(Window(a), false);
         }},
        {"close-box",
         [](const Arguments& a) {
             return Close(Window(a), true);
         }},
        {"has-icon",
         [](const Arguments& a) {
             return HasIcon(Window(a));
         }},
        {"set-text",
         [](const Arguments& a) {
             return SetText(Window(a), Wide(At(a, 2)));
         }},
        {"activate",
         [](const Arguments& a) {
             return Activate(Window(a));
         }},
        {"move",
         [](const Arguments& a) {
             return Move(Window(a), Number(a, 2), Number(a, 3), Number(a, 4), Number(a, 5));
         }},
        {"end-session",
         [](const Arguments& a) {
             return EndSession(Window(a));
         }},
        {"send",
         [](const Arguments& a) {
             return Send(Window(a), Unsigned(a, 2), Unsigned(a, 3), Number(a, 4));
         }},
        {"post",
         [](const Arguments& a) {
             return Post(Window(a), Unsigned(a, 2), Unsigned(a, 3), Number(a, 4));
         }},
        {"wait-until-handled",
         [](const Arguments& a) {
             return WaitUntilHandled(Window(a));
         }},
        {"press-until-message-box",
         [](const Arguments& a) {
             return PressUntilMessageBox(Window(a));
         }},
        {"hold-file",
         [](const Arguments& a) {
             return HoldFile(Wide(At(a, 1)));
         }},
        {"release-file",
         [](const Arguments& a) {
             return ReleaseFile(std::stoll(At(a, 1)));
         }},
        {"focus",
         [](const Arguments&) {
             return Focus();
         }},
        {"processes",
         [](const Arguments&) {
             return Processes();
         }},
        {"end-programs",
         [](const Arguments&) {
             return EndPrograms();
         }},
    };
    return operations;
}

std::string Answer(const std::string& line) {
    using namespace tamblin;
    try {
        const Arguments arguments = Split(line, '\t');
        const auto operation = Operations().find(arguments.front());
        if (operation == Operations().end()) {
            throw std::runtime_error("there is no such command");
        }
        return JsonObject({{"answer", operation->second(arguments)}});
    } catch (const std::exception& error) {
        const std::string text = error.what();
        return JsonObject({{"error", JsonText({text.begin(), text.end()})}});
    }
}

} // namespace

int wmain() {
    // Sizes and places are the screen's own, whatever the program under test makes of them.
    SetProcessDpiAwarenessContext(DPI_AWARENESS_CONTEXT_PER_MONITOR_AWARE_V2);
    std::string line;
    while (std::getline(std::cin, line)) {
        if (!line.empty() && line.back() == '\r') {
            line.pop_back();
        }
        std::cout << Answer(line) << std::endl;
    }
    return 0;
}
