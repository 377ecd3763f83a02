// The drive search with its window open, against a bare walk of the same tree by the system's own
// listing calls, both in one run. Usage: bench_search DRIVE... (for example "i:").
#include <algorithm>
#include <chrono>
#include <cstdio>

#include "platform/win32/win32_desktop_shell.h"
#include "platform/win32/win32_event_loop.h"
#include "platform/win32/win32_file_system.h"
#include "setup/search_window.h"
#include "support/platform_fake.h"

namespace tamblin {
namespace {

// This computer with one drive only, a fixed one.
class OneDrive : public Win32FileSystem {
  public:
    explicit OneDrive(std::wstring driveName) : name(std::move(driveName)) {}
    std::vector<Drive> Drives() override { return {{name, DriveType::Fixed}}; }

  private:
    std::wstring name;
};

struct Walked {
    std::uint64_t folders = 0;
    std::uint64_t files = 0;
};

void WalkBare(const std::wstring& folder, Walked& walked) {
    WIN32_FIND_DATAW data;
    const HANDLE find = FindFirstFileExW((folder + L"\\*").c_str(), FindExInfoBasic, &data,
                                         FindExSearchNameMatch, nullptr, FIND_FIRST_EX_LARGE_FETCH);
    if (find == INVALID_HANDLE_VALUE)
        return;
    ++walked.folders;
    do {
        const std::wstring name = data.cFileName;
        if ((data.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) == 0)
            ++walked.files;
        else if (name != L"." && name != L"..")
            WalkBare(folder + L"\\" + name, walked);
    } while (FindNextFileW(find, &data));
    FindClose(find);
}

double Seconds(const std::function<void()>& work) {
    const auto start = std::chrono::steady_clock::now();
    work();
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

void Measure(const std::wstring& drive) {
    PlatformFake fakes;
    OneDrive files(drive);
    Application application(fakes.messages, [] { ExitProcess(1); });
    Win32EventLoop events([&](MSG& message) { return application.TakesMessage(message); });
    Platform platform{files,       fakes.shell, fakes.starter,  fakes.messages, events,
                      fakes.unlha, fakes.ansi,  fakes.progress, drive + L"\\"};
    Walked walked;
    WalkBare(drive, walked); // the first walk warms the system's caches

    double bare = 1e9;
    double search = 1e9;
    const int runs = walked.folders > 10000 ? 2 : 5;
    for (int run = 0; run < runs; ++run) {
        Walked again;
        bare = std::min(bare, Seconds([&] { WalkBare(drive, again); }));
        SettingsState state;
        auto& window = application.Open<Form4>(application, platform, state);
        window.Show();
        search = std::min(search, Seconds([&] { window.Search(); }));
        window.Close();
    }
    const auto folders = static_cast<double>(walked.folders);
    std::printf("%10llu %10llu %16.2f %16.2f %8.2f\n", walked.folders, walked.files,
                bare * 1e6 / folders, search * 1e6 / folders, search / bare);
    std::fflush(stdout);
}

} // namespace
} // namespace tamblin

int wmain(int count, wchar_t** arguments) {
    std::printf("%10s %10s %16s %16s %8s\n", "folders", "files", "bare us/folder",
                "search us/folder", "ratio");
    for (int index = 1; index < count; ++index)
        tamblin::Measure(arguments[index]);
    return 0;
}
