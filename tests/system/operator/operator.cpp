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
#include <type_traits>
#include <utility>

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
        if (character == separator)
            pieces.emplace_back();
        else
            pieces.back() += character;
    }
    return pieces;
}

const std::string& At(const Arguments& arguments, std::size_t index) {
    if (index >= arguments.size())
        throw std::runtime_error("an argument is missing");
    return arguments[index];
}

std::wstring Wide(const std::string& bytes) {
    const int size = static_cast<int>(bytes.size());
    std::wstring text(bytes.size(), L'\0');
    text.resize(static_cast<std::size_t>(
        MultiByteToWideChar(CP_UTF8, 0, bytes.data(), size, text.data(), size)));
    return text;
}

// What an operation takes from the argument at `index`: a window or another number, a text, or all
// the numbers from there on.
template <typename Value>
Value Taken(const Arguments& arguments, std::size_t index) {
    if constexpr (std::is_same_v<Value, std::vector<int>>) {
        std::vector<int> numbers;
        for (; index < arguments.size(); ++index)
            numbers.push_back(std::stoi(arguments[index]));
        return numbers;
    } else if constexpr (std::is_same_v<Value, std::wstring>) {
        return Wide(At(arguments, index));
    } else if constexpr (std::is_same_v<Value, HWND>) {
        return reinterpret_cast<HWND>(Taken<std::intptr_t>(arguments, index));
    } else {
        return static_cast<Value>(std::stoll(At(arguments, index)));
    }
}

template <typename... Parameters, std::size_t... Indices>
std::string Call(std::string (*function)(Parameters...),
                 [[maybe_unused]] const Arguments& arguments, std::index_sequence<Indices...>) {
    return function(Taken<std::decay_t<Parameters>>(arguments, Indices + 1)...);
}

template <typename... Parameters>
Operation Calls(std::string (*function)(Parameters...)) {
    return [function](const Arguments& arguments) {
        return Call(function, arguments, std::index_sequence_for<Parameters...>());
    };
}

const std::map<std::string, Operation>& Operations() {
    using namespace tamblin;
    static const std::map<std::string, Operation> operations{
        {"windows", Calls(TopLevelWindows)},
        {"controls", Calls(Controls)},
        {"entries", Calls(Entries)},
        {"select", Calls(Select)},
        {"row-area", Calls(RowArea)},
        {"double-click", Calls(DoubleClick)},
        {"press", Calls(Press)},
        {"command", Calls(Command)},
        {"close-box", Calls(CloseBox)},
        {"has-icon", Calls(HasIcon)},
        {"set-text", Calls(SetText)},
        {"activate", Calls(Activate)},
        {"move", Calls(Move)},
        {"end-session", Calls(EndSession)},
        {"send", Calls(Send)},
        {"post", Calls(Post)},
        {"wait-until-handled", Calls(WaitUntilHandled)},
        {"press-until-message-box", Calls(PressUntilMessageBox)},
        {"focus", Calls(Focus)},
        {"processes", Calls(Processes)},
        {"end-programs", Calls(EndPrograms)},
    };
    return operations;
}

std::string Answer(const std::string& line) {
    using namespace tamblin;
    try {
        const Arguments arguments = Split(line, '\t');
        const auto operation = Operations().find(arguments.front());
        if (operation == Operations().end())
            throw std::runtime_error("there is no such command");
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
        if (!line.empty() && line.back() == '\r')
            line.pop_back();
        std::cout << Answer(line) << std::endl;
    }
    return 0;
}
