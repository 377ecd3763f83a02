// What is taken of the files that the user drops on the main window: package archives, all of one
// folder.
#pragma once

#include <string>
#include <vector>

#include "platform/file_system.h"

namespace tamblin {

class DroppedPackages {
  public:
    DroppedPackages(const std::vector<std::wstring>& paths, FileSystem& files);

    // What to tell the user instead; empty when there is something to take.
    const std::wstring& Fault() const { return fault; }
    const std::wstring& Folder() const { return folder; } // with a trailing "\"
    const std::vector<std::wstring>& Names() const { return names; }

    // Their folder cannot be listed, or lists none of them, as when they are hidden.
    static constexpr wchar_t CannotBeShownText[] =
        L"ドロップされたパッケージを、一覧に表示できませんでした。";

  private:
    std::wstring fault;
    std::wstring folder;
    std::vector<std::wstring> names;
};

} // namespace tamblin
