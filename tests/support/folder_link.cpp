#ifdef _WIN32

#include "support/folder_link.h"

#include <windows.h>

namespace tamblin {
namespace {

std::string UnixPath(const std::wstring& path) {
    using Function = char*(CDECL*)(const wchar_t*);
    const auto convert = reinterpret_cast<Function>(reinterpret_cast<void*>(
        GetProcAddress(GetModuleHandleW(L"kernel32.dll"), "wine_get_unix_file_name")));
    char* const converted = convert ? convert(path.c_str()) : nullptr;
    const std::string result = converted ? converted : "";
    if (converted)
        HeapFree(GetProcessHeap(), 0, converted);
    return result;
}

std::wstring Widen(const std::string& utf8) {
    const int size = static_cast<int>(utf8.size());
    const int length = MultiByteToWideChar(CP_UTF8, 0, utf8.data(), size, nullptr, 0);
    std::wstring text(static_cast<size_t>(length), L'\0');
    MultiByteToWideChar(CP_UTF8, 0, utf8.data(), size, text.data(), length);
    return text;
}

bool IsThere(const std::wstring& path) {
    return GetFileAttributesW(path.c_str()) != INVALID_FILE_ATTRIBUTES;
}

// The system's own path of a link that need not be there yet.
std::wstring UnixPathOfLink(const std::wstring& path) {
    const size_t nameStart = path.rfind(L'\\');
    return Widen(UnixPath(path.substr(0, nameStart))) + L'/' + path.substr(nameStart + 1);
}

// Runs a program of the system under Wine and waits until the path is (or is not) there.
void RunUntil(bool there, const std::wstring& path, const std::wstring& program,
              std::wstring arguments) {
    STARTUPINFOW startup{};
    startup.cb = sizeof startup;
    PROCESS_INFORMATION process{};
    if (!CreateProcessW((L"\\\\?\\unix" + program).c_str(), arguments.data(), nullptr, nullptr,
                        FALSE, 0, nullptr, nullptr, &startup, &process))
        return;
    CloseHandle(process.hProcess);
    CloseHandle(process.hThread);
    for (int turn = 0; turn < 500 && IsThere(path) != there; ++turn)
        Sleep(10);
}

} // namespace

bool RunsUnderWine() {
    return GetProcAddress(GetModuleHandleW(L"ntdll.dll"), "wine_get_version") != nullptr;
}

bool MakeFolderLink(const std::wstring& path, const std::wstring& target) {
    // Wine makes no links itself, but runs the programs that do.
    if (RunsUnderWine()) {
        RunUntil(true, path, L"\\bin\\ln",
                 L"ln -s \"" + Widen(UnixPath(target)) + L"\" \"" + UnixPathOfLink(path) + L'"');
        return IsThere(path);
    }
    constexpr DWORD flags =
        SYMBOLIC_LINK_FLAG_DIRECTORY | SYMBOLIC_LINK_FLAG_ALLOW_UNPRIVILEGED_CREATE;
    return CreateSymbolicLinkW(path.c_str(), target.c_str(), flags) != 0 && IsThere(path);
}

void RemoveFolderLink(const std::wstring& path) {
    if (RunsUnderWine())
        RunUntil(false, path, L"\\bin\\rm", L"rm \"" + UnixPathOfLink(path) + L'"');
    else
        RemoveDirectoryW(path.c_str());
}

} // namespace tamblin

#endif
