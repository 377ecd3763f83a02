#ifdef _WIN32

#include "support/folder_link.h"

#include <windows.h>
// After <windows.h>, which it needs.
#include <winioctl.h>

#include <vector>

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

// The reparse data of a junction: tag, length of what follows, unused; where the path for the
// system and the one for the user begin and how long they are, in bytes; both, ended by zeros.
std::vector<WORD> MountPoint(const std::wstring& target) {
    const std::wstring forSystem = L"\\??\\" + target;
    const auto size = [](const std::wstring& text) {
        return static_cast<WORD>(text.size() * sizeof(WORD));
    };
    const auto both = static_cast<WORD>(size(forSystem) + size(target) + 2 * sizeof(WORD));
    std::vector<WORD> data = {LOWORD(IO_REPARSE_TAG_MOUNT_POINT),
                              HIWORD(IO_REPARSE_TAG_MOUNT_POINT),
                              static_cast<WORD>(8 + both),
                              0,
                              0,
                              size(forSystem),
                              static_cast<WORD>(size(forSystem) + sizeof(WORD)),
                              size(target)};
    for (const std::wstring& text : {forSystem, target}) {
        data.insert(data.end(), text.begin(), text.end());
        data.push_back(0);
    }
    return data;
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

bool MakeJunction(const std::wstring& path, const std::wstring& target) {
    if (!CreateDirectoryW(path.c_str(), nullptr))
        return false;
    const HANDLE folder =
        CreateFileW(path.c_str(), GENERIC_WRITE, 0, nullptr, OPEN_EXISTING,
                    FILE_FLAG_BACKUP_SEMANTICS | FILE_FLAG_OPEN_REPARSE_POINT, nullptr);
    const std::vector<WORD> point = MountPoint(target);
    DWORD ignored = 0;
    const bool done = DeviceIoControl(
        folder, FSCTL_SET_REPARSE_POINT, const_cast<WORD*>(point.data()),
        static_cast<DWORD>(point.size() * sizeof(WORD)), nullptr, 0, &ignored, nullptr);
    CloseHandle(folder);
    if (!done)
        RemoveDirectoryW(path.c_str());
    return done;
}

void RemoveFolderLink(const std::wstring& path) {
    if (RunsUnderWine())
        RunUntil(false, path, L"\\bin\\rm", L"rm \"" + UnixPathOfLink(path) + L'"');
    else
        RemoveDirectoryW(path.c_str());
}

} // namespace tamblin

#endif
