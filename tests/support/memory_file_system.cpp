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
    return FolderEntry{node->name, node->attributes};
}

std::vector<FolderEntry> MemoryFileSystem::List(const std::wstring& folder) {
    Begin(L"List", folder);
    const Location location =
        Locate(folder, {ErrorNumber::DeviceUnavailable, ErrorNumber::DeviceUnavailable});
    const Node& node = ExistingFolder(location, ErrorNumber::PathNotFound);
    std::vector<FolderEntry> entries;
    entries.reserve(node.children.size());
    for (const auto& [key, child] : node.children)
        entries.push_back({child->name, child->attributes});
    return entries;
}

std::string MemoryFileSystem::Read(const std::wstring& file) {
    Begin(L"Read", file);
    const Node& node = Existing(LocateFile(file));
    if (node.attributes.folder)
        throw FileError(ErrorNumber::PathFileAccess);
    if (node.lock == LockKind::Exclusive)
        throw FileError(ErrorNumber::PermissionDenied);
    return node.bytes;
}

namespace {

// Throws when a program may not replace the file's contents.
void CheckReplaceable(const auto& file) {
    if (file.attributes.folder || file.attributes.readOnly)
        throw FileError(ErrorNumber::PathFileAccess);
    if (file.lock)
        throw FileError(ErrorNumber::PermissionDenied);
}

auto& FileIn(auto& folder, const std::wstring& name) {
    auto& file = folder.children[UpperCase(name)];
    if (!file) {
        file.reset(new typename std::decay_t<decltype(file)>::element_type());
        file->name = name;
        file->parent = &folder;
    }
    return *file;
}

} // namespace

void MemoryFileSystem::Write(const std::wstring& file, std::string_view bytes) {
    Begin(L"Write", file);
    const Location location = LocateFile(file);
    Node& folder = FolderHolding(location);
    if (const Node* present = Walk(location))
        CheckReplaceable(*present);
    else
        CheckRoomFor(bytes.size(), DriveUnder(folder));
    Node& node = FileIn(folder, location.names.back());
    node.attributes.archive = true;
    Fill(node, bytes);
}

void MemoryFileSystem::Copy(const std::wstring& from, const std::wstring& to) {
    Begin(L"Copy", from, to);
    const Location source = LocateFile(from);
    const Location target = LocateFile(to);
    const Node& original = Existing(source);
    if (original.attributes.folder)
        throw FileError(ErrorNumber::PathFileAccess);
    if (original.lock == LockKind::Exclusive)
        throw FileError(ErrorNumber::PermissionDenied);
    Node& folder = FolderHolding(target);
    if (const Node* present = Walk(target)) {
        if (present == &original)
            throw FileError(ErrorNumber::PermissionDenied);
        CheckReplaceable(*present);
    }
    CheckRoomFor(original.bytes.size(), DriveUnder(folder));
    Node& copy = FileIn(folder, target.names.back());
    Fill(copy, original.bytes);
    copy.attributes = original.attributes;
    copy.attributes.archive = true;
}

void MemoryFileSystem::Rename(const std::wstring& from, const std::wstring& to) {
    Begin(L"Rename", from, to);
    const Location source = Locate(from);
    const Location target = Locate(to);
    Node& node = Existing(source);
    if (node.lock && !node.attributes.folder)
        throw FileError(ErrorNumber::PermissionDenied);
    if (!node.parent || target.names.empty() || IsInUse(node))
        throw FileError(ErrorNumber::PathFileAccess);
    if (source.drive != target.drive)
        throw FileError(ErrorNumber::PathFileAccess);
    Node& folder = FolderHolding(target);
    const Node* present = Walk(target);
    if (present && present != &node)
        throw FileError(ErrorNumber::FileAlreadyExists);
    for (const Node* above = &folder; above; above = above->parent)
        if (above == &node || &DriveUnder(folder) != &DriveUnder(node))
            throw FileError(ErrorNumber::PathFileAccess);
    const auto place = node.parent->children.find(UpperCase(node.name));
    NodePointer moving = std::move(place->second);
    node.parent->children.erase(place);
    node.name = target.names.back();
    node.parent = &folder;
    folder.children[UpperCase(node.name)] = std::move(moving);
}

void MemoryFileSystem::Delete(const std::wstring& file) {
    Begin(L"Delete", file);
    Node& node = Existing(LocateFile(file));
    CheckReplaceable(node);
    Erase(node);
}

void MemoryFileSystem::MakeFolder(const std::wstring& folder) {
    Begin(L"MakeFolder", folder);
    Location location = Locate(folder);
    location.wantsFolder = false;
    Node& parent = FolderHolding(location);
    if (location.names.empty() || Walk(location))
        throw FileError(ErrorNumber::PathFileAccess);
    const DriveState& drive = DriveUnder(parent);
    if (drive.used >= drive.capacity)
        throw FileError(ErrorNumber::DiskFull);
    FileIn(parent, location.names.back()).attributes.folder = true;
}

void MemoryFileSystem::RemoveFolder(const std::wstring& folder) {
    Begin(L"RemoveFolder", folder);
    const Location location = Locate(folder);
    Node* node = Walk(location);
    if (!node || !node->attributes.folder)
        throw FileError(ErrorNumber::PathNotFound);
    if (!node->parent || !node->children.empty() || node->attributes.readOnly || IsInUse(*node))
        throw FileError(ErrorNumber::PathFileAccess);
    Erase(*node);
}

void MemoryFileSystem::SetAttributes(const std::wstring& path, FileAttributes attributes) {
    Begin(L"SetAttributes", path);
    Node& node = Existing(Locate(path));
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
        if (drive->present)
            present.push_back({{static_cast<wchar_t>(letter + L'a' - L'A'), L':'}, drive->type});
    return present;
}

} // namespace tamblin
