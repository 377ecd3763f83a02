// The walk through the staging folder that both deleting it and moving it into the host folder
// make: deepest folders first, in listing order; each folder's files, then the folder itself.
//
// Only a folder with no attribute but "folder" is entered. Hidden and system files and folders with
// more attributes are passed over, which makes the removal of the folder that holds them fail.
// Every folder is listed once; the walk's current folder moves along with it. How many files there
// are is not known before, so how far it has come is told by the shares of the folders' entries.
#pragma once

#include <string>

#include "platform/platform.h"

namespace tamblin {

class StagingVisitor {
  public:
    virtual ~StagingVisitor() = default;

    // Before a folder below the staging folder is entered. `folder` counts from the staging folder
    // and ends in "\".
    virtual void EnterFolder(const std::wstring& folder) = 0;
    // A file; the visitor takes it away. `folder` is empty for the staging folder itself.
    virtual void TakeFile(const std::wstring& folder, const std::wstring& name) = 0;
};

// `stagingFolder` ends in "\". It is gone afterwards; the folder above it is current.
void WalkStagingFolder(const std::wstring& stagingFolder, StagingVisitor& visitor,
                       FileSystem& files, WorkUnderWay& work);

} // namespace tamblin
