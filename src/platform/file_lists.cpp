#include "platform/file_lists.h"

namespace tamblin {

FolderListing ListFolder(FileSystem& files, const std::wstring& folder) {
    FolderListing listing;
    for (FolderEntry& entry : files.List(folder)) {
        if (entry.attributes.folder)
            listing.folders.push_back(std::move(entry.name));
        else if (!entry.attributes.hidden && !entry.attributes.system)
            listing.files.push_back(std::move(entry.name));
    }
    return listing;
}

bool FileExists(FileSystem& files, const std::wstring& path) {
    const auto entry = files.Find(path);
    return entry && !entry->attributes.folder;
}

} // namespace tamblin
