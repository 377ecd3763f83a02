// Stands in for the programs that show documents: appends to recorder.log beside itself what it was
// started with (UTF-8, one "name: value" line each and an empty line at the end).
//
//     recorder /register           makes itself the program for .txt, .htm, .html and https:
//     recorder VERB DOCUMENT       what the registered commands run
//
// Recorders started one after the other run side by side; "started" tells their order.
#include <windows.h>

#include <string>

#include "../started_program.h"

namespace {

using namespace tamblin;

// When this process was made, in the system's smallest unit of time.
std::wstring Started() {
    FILETIME created{};
    FILETIME unused{};
    GetProcessTimes(GetCurrentProcess(), &created, &unused, &unused, &unused);
    ULARGE_INTEGER time{};
    time.LowPart = created.dwLowDateTime;
    time.HighPart = created.dwHighDateTime;
    return std::to_wstring(time.QuadPart);
}

// In one piece, because several recorders may write at once.
bool Append(const std::string& bytes) {
    const std::wstring log = ProgramFolder() + L"recorder.log";
    const HANDLE file =
        CreateFileW(log.c_str(), FILE_APPEND_DATA, FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr,
                    OPEN_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr);
    if (file == INVALID_HANDLE_VALUE)
        return false;
    DWORD written = 0;
    const bool good =
        WriteFile(file, bytes.data(), static_cast<DWORD>(bytes.size()), &written, nullptr) != 0;
    CloseHandle(file);
    return good;
}

bool Record() {
    return Append(Utf8(L"started: " + Started() + L"\ncommand line: " + GetCommandLineW() +
                       L"\nworking folder: " + CurrentFolder() + L"\nshow command: " +
                       std::to_wstring(ShowCommand()) + L"\n\n"));
}

bool SetValue(const std::wstring& key, const wchar_t* name, const std::wstring& value) {
    return RegSetKeyValueW(HKEY_LOCAL_MACHINE, (L"Software\\Classes\\" + key).c_str(), name, REG_SZ,
                           value.c_str(),
                           static_cast<DWORD>((value.size() + 1) * sizeof(wchar_t))) == 0;
}

bool RegisterCommands(const std::wstring& documentClass) {
    bool good = true;
    for (const wchar_t* verb : {L"open", L"print", L"edit"}) {
        const std::wstring command = L"\"" + ProgramPath() + L"\" " + verb + L" \"%1\"";
        good =
            SetValue(documentClass + L"\\shell\\" + verb + L"\\command", nullptr, command) && good;
    }
    return good;
}

bool Register() {
    bool good = RegisterCommands(L"Recorder.Document") && RegisterCommands(L"https");
    good = SetValue(L"https", L"URL Protocol", L"") && good;
    for (const wchar_t* extension : {L".txt", L".htm", L".html"})
        good = SetValue(extension, nullptr, L"Recorder.Document") && good;
    return good;
}

} // namespace

int WINAPI wWinMain(HINSTANCE, HINSTANCE, LPWSTR arguments, int) {
    const bool good = std::wstring(arguments) == L"/register" ? Register() : Record();
    return good ? 0 : 1;
}
