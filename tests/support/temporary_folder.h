// A folder of a test's own on the real disk. It goes with all it holds when the test ends, and the
// current folder is then what it was before.
#pragma once

#include <filesystem>
#include <string>

namespace tamblin {

class TemporaryFolder {
  public:
    TemporaryFolder();
    ~TemporaryFolder();
    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;

    // Without a separator at the end; on Windows with a drive letter in upper case.
    std::wstring Path() const { return path.wstring(); }

  private:
    std::filesystem::path previousFolder;
    std::filesystem::path path;
};

} // namespace tamblin
