// Folders, the current one, and drives.
#include <algorithm>
#include <utility>

#include "support/memory_file_system_parts.h"

namespace tamblin {

void MemoryFileSystem::MakeFolder(const std::wstring& folder) {
    Begin(L"MakeFolder", folder);
    NewFolder(Locate(folder));
}

void MemoryFileSystem::MakeFolderLike(const std::wstring& folder, const std::wstring& model) {
    Begin(L"MakeFolderLike", folder, model);
    const Node* like = Follow(Walk(Locate(model)));
    Node& made = NewFolder(Locate(folder));
    if (like)
        made.permissions = like->permissions;
}

MemoryFileSystem::Node& MemoryFileSystem::NewFolder(Location location) {
    location.wantsFolder = false;
    Node& parent = FolderHolding(location);
    if (location.names.empty() || Present(location))
        throw FileError(ErrorNumber::PathFileAccess);
    const DriveState& drive = DriveUnder(parent);
    if (drive.used >= drive.capacity)
        throw FileError(ErrorNumber::DiskFull);
    LosePowerIfNow();
    Node& made = NodeIn(parent, location.names.back());
    made.attributes.folder = true;
    return made;
}

bool MemoryFileSystem::HoldFolder(const std::wstring& folder) {
    Begin(L"HoldFolder", folder);
    const Location location = Locate(folder);
    if (ExistingFolder(location, ErrorNumber::PathNotFound).heldElsewhere)
        return false;
    heldFolder = location.Path();
    return true;
}

void MemoryFileSystem::ReleaseFolder() {
    heldFolder.clear();
}

bool MemoryFileSystem::OnOneDrive(const std::wstring& folder, const std::wstring& other) {
    Begin(L"OnOneDrive", folder, other);
    return &DriveUnder(ExistingFolder(Locate(folder), ErrorNumber::PathNotFound)) ==
           &DriveUnder(ExistingFolder(Locate(other), ErrorNumber::PathNotFound));
}

std::wstring MemoryFileSystem::RealPath(const std::wstring& folder) {
    Begin(L"RealPath", folder);
    const auto location = Parse(folder);
    const DriveState* const drive = location ? DriveOf(*location) : nullptr;
    const Node* node = drive && drive->ready ? Follow(Walk(*location)) : nullptr;
    if (!node)
        return InFull(folder);
    std::wstring path;
    for (; node->parent; node = node->parent)
        path = L'\\' + node->name + path;
    for (const auto& [letter, owner] : drives)
        if (&owner->root == node)
            path = std::wstring{letter, L':'} + (path.empty() ? L"\\" : path);
    return path;
}

std::uint64_t MemoryFileSystem::FreeBytes(const std::wstring& folder) {
    Begin(L"FreeBytes", folder);
    const DriveState& drive = DriveUnder(ExistingFolder(Locate(folder), ErrorNumber::PathNotFound));
    return drive.capacity - std::min(drive.used, drive.capacity);
}

// Waits for what is vanishing.
bool MemoryFileSystem::HoldsWhatStays(Node& folder) {
    return patience.Outwait([&] {
        std::erase_if(folder.children, [&](const auto& entry) {
            return entry.second->vanishing && LetsGo(*entry.second);
        });
        return std::any_of(folder.children.begin(), folder.children.end(),
                           [](const auto& entry) { return entry.second->vanishing; });
    }) || !folder.children.empty();
}

void MemoryFileSystem::RemoveFolder(const std::wstring& folder) {
    Begin(L"RemoveFolder", folder);
    const Location location = Locate(folder);
    Node* node = Walk(location);
    if (!node || !node->attributes.folder)
        throw FileError(ErrorNumber::PathNotFound);
    if (!node->parent || node->attributes.readOnly || IsInUse(*node) || HoldsWhatStays(*node))
        throw FileError(ErrorNumber::PathFileAccess);
    LosePowerIfNow();
    if (EqualIgnoringCase(heldFolder, location.Path()))
        heldFolder.clear();
    Erase(*node);
}

std::wstring MemoryFileSystem::CurrentFolder() {
    Begin(L"CurrentFolder");
    return InFull({});
}

// What Windows' own limit of 260 leaves for a folder that is to be current: it keeps it with a "\"
// and a NUL at the end.
constexpr size_t longestCurrentFolder = 258;

void MemoryFileSystem::SetCurrentFolder(const std::wstring& folder) {
    Begin(L"SetCurrentFolder", folder);
    Location location =
        Locate(folder, {ErrorNumber::DeviceUnavailable, ErrorNumber::DeviceUnavailable});
    ExistingFolder(location, ErrorNumber::PathNotFound);
    if (InFull(folder).size() > longestCurrentFolder)
        throw RunTimeError(ErrorNumber::PathNotFound);
    currentDrive = location.drive;
    DriveOf(location)->currentFolder = std::move(location.names);
}

std::vector<Drive> MemoryFileSystem::Drives() {
    Begin(L"Drives");
    std::vector<tamblin::Drive> present;
    for (const auto& [letter, drive] : drives)
        if (drive->present && drive->hasLetter)
            present.push_back({{static_cast<wchar_t>(letter + L'a' - L'A'), L':'}, drive->type});
    return present;
}

std::optional<std::wstring> MemoryFileSystem::FixedVolumeAt(const std::wstring& folder) {
    Begin(L"FixedVolumeAt", folder);
    const auto location = Parse(folder);
    const DriveState* const drive = location ? DriveOf(*location) : nullptr;
    const Node* const node = drive && drive->ready ? Walk(*location) : nullptr;
    if (!node || (node->parent && !node->mountsVolume))
        return std::nullopt;
    const std::wstring root = node->parent ? node->linkTarget : location->Path();
    const auto mounted = drives.find(root.front());
    if (mounted == drives.end() || mounted->second->type != DriveType::Fixed)
        return std::nullopt;
    return L"volume of " + root;
}

} // namespace tamblin
