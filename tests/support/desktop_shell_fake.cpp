#include "support/desktop_shell_fake.h"

#include <algorithm>

#include "base/text.h"

namespace tamblin {

std::vector<std::wstring> DesktopShellFake::Recycled() const {
    std::vector<std::wstring> paths;
    for (const RecycledTree& recycled : recycleBin)
        paths.push_back(recycled.path);
    return paths;
}

bool DesktopShellFake::Restore(const std::wstring& path) {
    const auto item = std::find_if(
        recycleBin.begin(), recycleBin.end(),
        [&](const RecycledTree& recycled) { return EqualIgnoringCase(recycled.path, path); });
    if (item == recycleBin.end() || !files.PutTree(path, item->tree))
        return false;
    recycleBin.erase(item);
    return true;
}

void DesktopShellFake::DeleteTree(const std::wstring& path) {
    const bool succeeds = files.BeginForeign(L"DeleteTree " + path);
    deleted.push_back(path);
    if (succeeds && path != refused)
        files.DeleteTree(path);
}

void DesktopShellFake::MoveToRecycleBin(const std::wstring& path) {
    if (!files.BeginForeign(L"MoveToRecycleBin " + path))
        return;
    if (auto tree = files.TakeTree(path))
        recycleBin.push_back({path, std::move(tree)});
}

void DesktopShellFake::Open(const std::wstring& document, const std::wstring& workingFolder) {
    opened.push_back({document, workingFolder});
}

} // namespace tamblin
