// Unpacks into a folder on a Windows drive. Files get the times and the read-only, hidden and
// system attributes that the archive says; folders are plain ones. A junction or a link that stands
// in the folder already is never followed.
#pragma once

#include <string>

#include "platform/lzh/extraction_target.h"

namespace tamblin {

class LzhFolderTarget : public lzh::ExtractionTarget {
  public:
    // Throws RunTimeError 52 when the path is malformed.
    explicit LzhFolderTarget(const std::wstring& folder);

    void MakeFolders(const lzh::EntryPath& folder) override;
    std::unique_ptr<lzh::TargetFile> NewFile(const lzh::EntryPath& file) override;

  private:
    std::wstring EnterFolders(lzh::EntryPath::const_iterator first,
                              lzh::EntryPath::const_iterator last);

    std::wstring root;    // with a trailing "\"
    std::wstring entered; // the folder in which the last entry was put, with a trailing "\"
};

} // namespace tamblin
