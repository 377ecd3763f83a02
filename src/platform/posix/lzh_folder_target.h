// Unpacks into a folder of the native file system. Every step goes from an open folder to one of
// its own entries and never through a link, so nothing outside the folder can be reached.
#pragma once

#include <string>

#include "platform/lzh/extraction_target.h"

namespace tamblin {

class LzhFolderTarget : public lzh::ExtractionTarget {
  public:
    // Throws LzhError (CannotWrite) when there is no such folder.
    explicit LzhFolderTarget(const std::string& folder);
    ~LzhFolderTarget() override;
    LzhFolderTarget(const LzhFolderTarget&) = delete;
    LzhFolderTarget& operator=(const LzhFolderTarget&) = delete;

    void MakeFolders(const lzh::EntryPath& folder) override;
    std::unique_ptr<lzh::TargetFile> NewFile(const lzh::EntryPath& file) override;

  private:
    int root;
};

std::string ToUtf8(const std::wstring& text);

} // namespace tamblin
