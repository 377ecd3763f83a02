#include "platform/file_lists.h"

#include "base/run_time_error.h"

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

bool ProbeFile(FileSystem& files, const std::wstring& path) {
    try {
        return FileExists(files, path);
    } catch (const RunTimeError& error) {
        if (error.Number() != ErrorNumber::BadFileName)
            throw;
        return false;
    }
}

std::optional<FolderEntry> FindNeededFile(FileSystem& files, const std::wstring& path) {
    try {
        auto entry = files.Find(path);
        if (entry && entry->attributes.folder)
            entry.reset();
        return entry;
    } catch (const RunTimeError& error) {
        if (error.Number() != ErrorNumber::BadFileName &&
            error.Number() != ErrorNumber::DiskNotReady)
            throw;
        return std::nullopt;
    }
}

} // namespace tamblin
