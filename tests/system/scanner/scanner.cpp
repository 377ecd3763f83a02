// Stands in for a virus scanner: opens every file in some folders that was not there when it began,
// or is another one by now, as soon as the file's writer lets it, and holds it for a while.
//
//     scanner MILLISECONDS delete|keep FOLDER...
//
// Other programs may read a file that it holds and, with "delete", delete and rename it. Prints
// "ready" once it watches, then the path of each file that it holds, in UTF-8. A line of input ends
// the watch, since whoever looks into a folder holds it, too, for a moment; "watched" is the
// answer. Lets go of all and ends with its input.
#include <windows.h>

#include <atomic>
#include <cstdio>
#include <iostream>
#include <set>
#include <string>
#include <thread>
#include <tuple>
#include <vector>

#include "../started_program.h"

namespace {

// A file that has been written again is another one.
using Version = std::tuple<std::wstring, DWORD, DWORD, DWORD>;

Version VersionOf(const std::wstring& path, const WIN32_FIND_DATAW& found) {
    return {path, found.ftLastWriteTime.dwHighDateTime, found.ftLastWriteTime.dwLowDateTime,
            found.nFileSizeLow};
}

// Calls visit(path, found) for every file in the folder and below.
template <typename Visitor>
void VisitFiles(const std::wstring& folder, const Visitor& visit) {
    WIN32_FIND_DATAW found;
    const HANDLE search = FindFirstFileW((folder + L"\\*").c_str(), &found);
    if (search == INVALID_HANDLE_VALUE)
        return;
    do {
        const std::wstring name = found.cFileName;
        if (name == L"." || name == L"..")
            continue;
        if ((found.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0)
            VisitFiles(folder + L'\\' + name, visit);
        else
            visit(folder + L'\\' + name, found);
    } while (FindNextFileW(search, &found));
    FindClose(search);
}

void Print(const std::wstring& text) {
    std::cout << tamblin::Utf8(text) << std::endl;
}

class Scanner {
  public:
    Scanner(std::vector<std::wstring> watched, ULONGLONG milliseconds, bool letsDelete)
        : folders(std::move(watched)),
          time(milliseconds),
          share(FILE_SHARE_READ | (letsDelete ? FILE_SHARE_DELETE : 0)) {
        for (const std::wstring& folder : folders) {
            VisitFiles(folder, [&](const std::wstring& path, const WIN32_FIND_DATAW& found) {
                known.insert(VersionOf(path, found));
            });
        }
    }
    ~Scanner() {
        for (const Held& file : held)
            CloseHandle(file.handle);
    }
    Scanner(const Scanner&) = delete;
    Scanner& operator=(const Scanner&) = delete;

    void LookForNewFiles() {
        for (const std::wstring& folder : folders) {
            VisitFiles(folder, [&](const std::wstring& path, const WIN32_FIND_DATAW& found) {
                if (!known.contains(VersionOf(path, found)))
                    Hold(path, VersionOf(path, found));
            });
        }
    }

    void LetGo() {
        std::erase_if(held, [&](const Held& file) {
            const bool isOver = GetTickCount64() - file.since >= time;
            if (isOver)
                CloseHandle(file.handle);
            return isOver;
        });
    }

  private:
    struct Held {
        HANDLE handle;
        ULONGLONG since;
    };

    void Hold(const std::wstring& path, const Version& version) {
        const HANDLE handle =
            CreateFileW(path.c_str(), GENERIC_READ, share, nullptr, OPEN_EXISTING, 0, nullptr);
        if (handle == INVALID_HANDLE_VALUE) {
            return; // its writer has not finished
        }
        known.insert(version);
        held.push_back({handle, GetTickCount64()});
        Print(path);
    }

    std::vector<std::wstring> folders;
    ULONGLONG time;
    DWORD share;
    std::set<Version> known;
    std::vector<Held> held;
};

} // namespace

int wmain(int count, wchar_t** arguments) {
    if (count < 4)
        return 1;
    Scanner scanner({arguments + 3, arguments + count}, std::stoull(arguments[1]),
                    std::wstring(arguments[2]) == L"delete");
    std::atomic<bool> hasSeenEnough = false;
    std::atomic<bool> ended = false;
    std::thread input([&] {
        while (std::getchar() != EOF)
            hasSeenEnough = true;
        ended = true;
    });
    Print(L"ready");
    bool isWatching = true;
    while (!ended) {
        if (isWatching && hasSeenEnough) {
            isWatching = false;
            Print(L"watched");
        }
        if (isWatching)
            scanner.LookForNewFiles();
        scanner.LetGo();
        Sleep(2);
    }
    input.join();
    return 0;
}
