// unlha x "PATH": unpacks an archive into the current folder. Exits with 0 or the number of the
// failure (platform/lzh/lzh_error.h), after one line on standard error about it.
#include <windows.h>

#include <string>

#include "platform/win32/lzh_extraction.h"

using namespace tamblin;
using namespace tamblin::lzh;

namespace {

// On a console as it stands there, into a file or pipe in UTF-8.
void WriteLine(const std::wstring& text) {
    const HANDLE error = GetStdHandle(STD_ERROR_HANDLE);
    const std::wstring line = L"unlha: " + text + L"\r\n";
    DWORD mode = 0;
    DWORD written = 0;
    if (GetConsoleMode(error, &mode)) {
        WriteConsoleW(error, line.data(), static_cast<DWORD>(line.size()), &written, nullptr);
        return;
    }
    std::string bytes(line.size() * 3, '\0');
    const int size =
        WideCharToMultiByte(CP_UTF8, 0, line.data(), static_cast<int>(line.size()), bytes.data(),
                            static_cast<int>(bytes.size()), nullptr, nullptr);
    WriteFile(error, bytes.data(), static_cast<DWORD>(size), &written, nullptr);
}

} // namespace

int wmain(int argumentCount, wchar_t** arguments) {
    ExtractionResult result{LzhFailure::BadCommand, {}, L"usage: unlha x \"PATH\""};
    if (argumentCount == 3 && std::wstring(arguments[1]) == L"x")
        result = ExtractIntoCurrentFolder(arguments[2], HiddenFiles::AsStored);
    if (!result.Succeeded())
        WriteLine(result.Message());
    return static_cast<int>(result.failure);
}
