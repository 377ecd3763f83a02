// What a program can tell of its own start, for those that the tests let Tamblin start.
#pragma once

#include <windows.h>

#include <string>

namespace tamblin {

inline std::wstring ProgramPath() {
    std::wstring path(32768, L'\0');
    path.resize(GetModuleFileNameW(nullptr, path.data(), static_cast<DWORD>(path.size())));
    return path;
}

// With its backslash.
inline std::wstring ProgramFolder() {
    const std::wstring program = ProgramPath();
    return program.substr(0, program.find_last_of(L'\\') + 1);
}

inline std::wstring CurrentFolder() {
    std::wstring path(32768, L'\0');
    path.resize(GetCurrentDirectoryW(static_cast<DWORD>(path.size()), path.data()));
    return path;
}

inline unsigned ShowCommand() {
    STARTUPINFOW info{};
    GetStartupInfoW(&info);
    return (info.dwFlags & STARTF_USESHOWWINDOW) != 0 ? info.wShowWindow : SW_SHOWDEFAULT;
}

inline std::string Utf8(const std::wstring& text) {
    const int size = static_cast<int>(text.size());
    std::string bytes(text.size() * 3, '\0');
    bytes.resize(static_cast<std::size_t>(WideCharToMultiByte(
        CP_UTF8, 0, text.data(), size, bytes.data(), size * 3, nullptr, nullptr)));
    return bytes;
}

} // namespace tamblin
