#include "support/memory_file_system.h"

#include <algorithm>
#include <utility>

#include "support/memory_file_system_parts.h"

namespace tamblin {
namespace {

// What Windows' own limit of 260 leaves for a folder that is to be current: it keeps it with a "\"
// and a NUL at the end.
constexpr size_t longestCurrentFolder = 258;

} // namespace

MemoryFileSystem::MemoryFileSystem() = default;
MemoryFileSystem::~MemoryFileSystem() = default;

void MemoryFileSystem::NodeDeleter::operator()(Node* node) const {
    delete node;
}

std::optional<FolderEntry> MemoryFileSystem::Find(const std::wstring& path) {
    Begin(L"Find", path);
    const Node* node = Walk(Locate(path, {ErrorNumber::BadFileName, ErrorNumber::DiskNotReady}));
    if (!node)
        return std::nullopt;
    return FolderEntry{node->name, node->attributes, node->bytes.size()};
}

std::vector<FolderEntry> MemoryFileSystem::List(const std::wstring& folder) {
    Begin(L"List", folder);
    const Location location =
        Locate(folder, {ErrorNumber::DeviceUnavailable, ErrorNumber::DeviceUnavailable});
    const Node& node = ExistingFolder(location, ErrorNumber::PathNotFound);
    std::vector<FolderEntry> entries;
    entries.reserve(node.children.size());
    for (const auto& [key, child] : node.children)
        entries.push_back({child->name, child->attributes, child->bytes.size()});
    return entries;
}

std::string MemoryFileSystem::Read(const std::wstring& file) {
    Begin(L"Read", file);
    const Location location = LocateFile(file);
    WaitForHolder(Existing(location));
    const Node& node = Existing(location);
    if (node.attributes.folder)
        throw FileError(ErrorNumber::PathFileAccess);
    if (node.lock == LockKind::Exclusive)
        throw FileError(ErrorNumber::PermissionDenied);
    return node.bytes;
}

// A program lets go of a file after so many tries. One that was deleted meanwhile then vanishes.
bool MemoryFileSystem::LetsGo(Node& node) {
    if (!node.heldFor)
        return true;
    if (*node.heldFor > 0) {
        --*node.heldFor;
        return false;
    }
    node.heldFor.reset();
    return true;
}

// The node may be gone afterwards.
void MemoryFileSystem::WaitForHolder(Node& node) {
    if (patience.Outwait([&] { return !LetsGo(node); }))
        throw FileError(ErrorNumber::PermissionDenied);
    if (node.vanishing)
        Erase(node);
}

// What stands at a path where something is to be made, once all that is vanishing has vanished.
MemoryFileSystem::Node* MemoryFileSystem::Present(const Location& location) {
    Node* node = Walk(location);
    if (node && node->vanishing) {
        WaitForHolder(*node);
        node = nullptr;
    }
    return node;
}

void MemoryFileSystem::CheckReplaceable(Node& file) {
    if (file.attributes.folder || file.attributes.readOnly)
        throw FileError(ErrorNumber::PathFileAccess);
    if (file.lock)
        throw FileError(ErrorNumber::PermissionDenied);
    WaitForHolder(file);
}

namespace {

auto& FileIn(auto& folder, const std::wstring& name) {
    auto& file = folder.children[UpperCase(name)];
    if (!file) {
        file.reset(new typename std::decay_t<decltype(file)>::element_type());
        file->name = name;
        file->parent = &folder;
        file->permissions = folder.permissions;
    }
    return *file;
}

} // namespace

// A new file is made in its place, so that a power cut leaves a part of it; one that is replaced
// stands until the new contents are on the disk.
void MemoryFileSystem::Write(const std::wstring& file, std::string_view bytes) {
    Begin(L"Write", file);
    const Location location = LocateFile(file);
    Node& folder = FolderHolding(location);
    Node* const present = Present(location);
    if (present)
        CheckReplaceable(*present);
    CheckRoomFor(bytes.size(), DriveUnder(folder));
    if (PowerGoesNow()) {
        if (!present)
            Fill(FileIn(folder, location.names.back()), bytes.substr(0, bytes.size() / 2));
        throw PowerCut();
    }
    Node& node = FileIn(folder, location.names.back());
    node.attributes.archive = true;
    Fill(node, bytes);
}

void MemoryFileSystem::Copy(const std::wstring& from, const std::wstring& to) {
    Begin(L"Copy", from, to);
    CopyContents(LocateFile(from), LocateFile(to));
}

void MemoryFileSystem::CopyContents(const Location& source, const Location& target) {
    WaitForHolder(Existing(source));
    const Node& original = Existing(source);
    if (original.attributes.folder)
        throw FileError(ErrorNumber::PathFileAccess);
    if (original.lock == LockKind::Exclusive)
        throw FileError(ErrorNumber::PermissionDenied);
    Node& folder = FolderHolding(target);
    Node* const present = Present(target);
    if (present == &original)
        throw FileError(ErrorNumber::PermissionDenied);
    if (present)
        CheckReplaceable(*present);
    CheckRoomFor(original.bytes.size(), DriveUnder(folder));
    const std::string_view bytes = original.bytes;
    if (PowerGoesNow()) {
        if (!present)
            Fill(FileIn(folder, target.names.back()), bytes.substr(0, bytes.size() / 2));
        throw PowerCut();
    }
    Node& copy = FileIn(folder, target.names.back());
    Fill(copy, bytes);
    if (!present)
        copy.attributes = original.attributes;
    copy.attributes.archive = true;
}

void MemoryFileSystem::Replace(const std::wstring& from, const std::wstring& to) {
    Begin(L"Replace", from, to);
    const Location source = LocateFile(from);
    const Location target = LocateFile(to);
    WaitForHolder(Existing(source));
    Node& node = Existing(source);
    if (node.attributes.folder)
        throw FileError(ErrorNumber::PathFileAccess);
    if (node.lock)
        throw FileError(ErrorNumber::PermissionDenied);
    Node& folder = FolderHolding(target);
    Node* const present = Present(target);
    const bool staysOnDrive = &DriveUnder(folder) == &DriveUnder(node);
    if (!present && staysOnDrive) {
        if (PowerGoesNow())
            throw PowerCut();
        Move(node, folder, target.names.back());
        return;
    }
    if (present && staysOnDrive && present != &node) {
        CheckReplaceable(*present);
        if (PowerGoesNow())
            throw PowerCut();
        Fill(*present, std::string(node.bytes));
        present->attributes.archive = true;
    } else {
        CopyContents(source, target);
    }
    Erase(node);
}

void MemoryFileSystem::CheckReplaceable(const std::wstring& file) {
    Begin(L"CheckReplaceable", file);
    CheckReplaceable(Existing(LocateFile(file)));
}

void MemoryFileSystem::Rename(const std::wstring& from, const std::wstring& to) {
    Begin(L"Rename", from, to);
    const Location source = Locate(from);
    const Location target = Locate(to);
    WaitForHolder(Existing(source));
    Node& node = Existing(source);
    if (node.lock && !node.attributes.folder)
        throw FileError(ErrorNumber::PermissionDenied);
    if (!node.parent || target.names.empty() || IsInUse(node))
        throw FileError(ErrorNumber::PathFileAccess);
    if (source.drive != target.drive)
        throw FileError(ErrorNumber::PathFileAccess);
    Node& folder = FolderHolding(target);
    const Node* present = Present(target);
    if (present && present != &node)
        throw FileError(ErrorNumber::FileAlreadyExists);
    for (const Node* above = &folder; above; above = above->parent)
        if (above == &node || &DriveUnder(folder) != &DriveUnder(node))
            throw FileError(ErrorNumber::PathFileAccess);
    if (PowerGoesNow())
        throw PowerCut();
    Move(node, folder, target.names.back());
}

void MemoryFileSystem::Move(Node& node, Node& folder, const std::wstring& name) {
    const auto place = node.parent->children.find(UpperCase(node.name));
    NodePointer moving = std::move(place->second);
    node.parent->children.erase(place);
    node.name = name;
    node.parent = &folder;
    folder.children[UpperCase(node.name)] = std::move(moving);
}

void MemoryFileSystem::Delete(const std::wstring& file) {
    Begin(L"Delete", file);
    Node& node = Existing(LocateFile(file));
    if (PowerGoesNow())
        throw PowerCut();
    if (node.heldFor && node.deletionShared && !node.vanishing) {
        node.vanishing = true;
        return;
    }
    const bool wasVanishing = node.vanishing;
    CheckReplaceable(node);
    if (wasVanishing)
        throw FileError(ErrorNumber::FileNotFound);
    Erase(node);
}

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
    if (PowerGoesNow())
        throw PowerCut();
    Node& made = FileIn(parent, location.names.back());
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
    if (PowerGoesNow())
        throw PowerCut();
    if (EqualIgnoringCase(heldFolder, location.Path()))
        heldFolder.clear();
    Erase(*node);
}

void MemoryFileSystem::SetAttributes(const std::wstring& path, FileAttributes attributes) {
    Begin(L"SetAttributes", path);
    Node& node = Existing(Locate(path));
    if (PowerGoesNow())
        throw PowerCut();
    attributes.folder = node.attributes.folder;
    attributes.link = node.attributes.link;
    node.attributes = attributes;
}

std::wstring MemoryFileSystem::CurrentFolder() {
    Begin(L"CurrentFolder");
    return InFull({});
}

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
