#include "platform/win32/program_folder.h"

#include <windows.h>

#include "base/text.h"
#include "platform/win32/win32_error.h"

namespace tamblin {
namespace {

std::wstring ProgramFile() {
    std::wstring file(MAX_PATH, L'\0');
    for (;;) {
        const auto room = static_cast<DWORD>(file.size());
        const DWORD length = GetModuleFileNameW(nullptr, file.data(), room);
        if (length == 0)
            ThrowLastError();
        if (length < room) {
            file.resize(length);
            return file;
        }
        file.resize(file.size() * 2);
    }
}

} // namespace

std::wstring ProgramFolder() {
    std::wstring file = ProgramFile();
    if (StartsWith(file, L"\\\\?\\") && file.size() > 5 && file[5] == L':')
        file.erase(0, 4);
    return WithoutBackslash(file.substr(0, file.rfind(L'\\') + 1));
}

} // namespace tamblin
