#include "install/staged_file.h"

namespace tamblin {

void DeleteStagedFile(const std::wstring& file, FileSystem& files) {
    const auto entry = files.Find(file);
    if (entry && entry->attributes.readOnly) {
        FileAttributes attributes = entry->attributes;
        attributes.readOnly = false;
        files.SetAttributes(file, attributes);
    }
    files.Delete(file);
}

} // namespace tamblin
