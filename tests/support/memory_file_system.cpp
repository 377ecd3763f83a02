#include "support/memory_file_system.h"

#include <utility>

#include "support/memory_file_system_parts.h"

namespace tamblin {

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

void MemoryFileSystem::Write(const std::wstring& file, std::string_view bytes) {
    Begin(L"Write", file);
    Store(LocateFile(file), bytes).attributes.archive = true;
}

// A new file is made in its place, so that a power cut leaves a part of it; one that is replaced
// stands until the new contents are on the disk.
MemoryFileSystem::Node& MemoryFileSystem::Store(const Location& file, std::string_view bytes) {
    Node& folder = FolderHolding(file);
    Node* const present = Present(file);
    if (present)
        CheckReplaceable(*present);
    CheckRoomFor(bytes.size(), DriveUnder(folder));
    if (PowerGoesNow() && !present)
        Fill(NodeIn(folder, file.names.back()), bytes.substr(0, bytes.size() / 2));
    LosePowerIfNow();
    Node& node = NodeIn(folder, file.names.back());
    Fill(node, bytes);
    return node;
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
    const Node* const replaced = Present(target);
    if (replaced == &original)
        throw FileError(ErrorNumber::PermissionDenied);
    Node& copy = Store(target, original.bytes);
    if (!replaced)
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
        LosePowerIfNow();
        Move(node, folder, target.names.back());
        return;
    }
    if (present && staysOnDrive && present != &node) {
        CheckReplaceable(*present);
        LosePowerIfNow();
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
    LosePowerIfNow();
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
    LosePowerIfNow();
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

void MemoryFileSystem::SetAttributes(const std::wstring& path, FileAttributes attributes) {
    Begin(L"SetAttributes", path);
    Node& node = Existing(Locate(path));
    LosePowerIfNow();
    attributes.folder = node.attributes.folder;
    attributes.link = node.attributes.link;
    node.attributes = attributes;
}

} // namespace tamblin
