// From a path to what stands there.
#include <algorithm>
#include <utility>

#include "platform/path_form.h"
#include "support/memory_file_system_parts.h"

namespace tamblin {

namespace {

bool IsSeparator(wchar_t letter) {
    return letter == L'\\' || letter == L'/';
}

std::vector<std::wstring> SplitNames(std::wstring_view path) {
    std::vector<std::wstring> names(1);
    for (const wchar_t letter : path) {
        if (!IsSeparator(letter))
            names.back() += letter;
        else if (!names.back().empty())
            names.emplace_back();
    }
    if (names.back().empty())
        names.pop_back();
    return names;
}

// Windows drops dots and blanks at the end of a path, and one dot at the end of a name within it.
void DropTrailingDots(std::vector<std::wstring>& names, bool wantsFolder) {
    for (size_t index = 0; index < names.size(); ++index) {
        std::wstring& name = names[index];
        if (name == L"." || name == L"..")
            continue;
        const bool isLast = index + 1 == names.size() && !wantsFolder;
        if (isLast)
            name.erase(name.find_last_not_of(L". ") + 1);
        else if (name.ends_with(L'.') && !name.ends_with(L".."))
            name.pop_back();
    }
}

void Append(std::vector<std::wstring>& names, const std::vector<std::wstring>& added) {
    for (const std::wstring& name : added) {
        if (name == L".." && !names.empty())
            names.pop_back();
        else if (!name.empty() && name != L"." && name != L"..")
            names.push_back(name);
    }
}

} // namespace

// --- Paths ----------------------------------------------------------------------------------

void MemoryFileSystem::Begin(std::wstring_view operation, const std::wstring& path,
                             const std::wstring& target) {
    ++operationCount;
    if (keepsLog) {
        std::wstring line(operation);
        if (!path.empty())
            line += L' ' + InFull(path);
        if (!target.empty())
            line += L" -> " + InFull(target);
        log.push_back(line);
    }
    CheckPower();
    if (failing && failing->operation == operationCount)
        throw FileError(failing->error);
}

// Nothing for a malformed path.
std::optional<MemoryFileSystem::Location> MemoryFileSystem::Parse(const std::wstring& path) const {
    if (!IsWellFormedPath(path))
        return std::nullopt;
    Location location;
    std::wstring_view rest = path;
    if (rest.size() >= 2 && IsSeparator(rest[0]) && IsSeparator(rest[1]))
        return location;
    location.drive = currentDrive;
    if (rest.size() >= 2 && rest[1] == L':') {
        location.drive = UpperCase(rest[0]);
        rest.remove_prefix(2);
    }
    const bool isAbsolute = !rest.empty() && IsSeparator(rest[0]);
    const DriveState* drive = DriveOf(location);
    if (!isAbsolute && drive)
        location.names = drive->currentFolder;
    location.wantsFolder = !rest.empty() && IsSeparator(rest.back());
    std::vector<std::wstring> names = SplitNames(rest);
    DropTrailingDots(names, location.wantsFolder);
    Append(location.names, names);
    return location;
}

std::wstring MemoryFileSystem::InFull(const std::wstring& path) const {
    const auto location = Parse(path);
    return location && location->drive != 0 ? location->Path() : path;
}

MemoryFileSystem::DriveState* MemoryFileSystem::DriveOf(const Location& location) const {
    const auto drive = drives.find(location.drive);
    return drive == drives.end() || !drive->second->present ? nullptr : drive->second.get();
}

MemoryFileSystem::Location MemoryFileSystem::Locate(const std::wstring& path,
                                                    const DriveErrors& errors) const {
    auto location = Parse(path);
    if (!location)
        throw FileError(ErrorNumber::BadFileName);
    const DriveState* drive = DriveOf(*location);
    if (!drive)
        throw FileError(errors.missing);
    if (!drive->ready)
        throw FileError(errors.notReady);
    CheckAccess(*location);
    return std::move(*location);
}

MemoryFileSystem::Location MemoryFileSystem::Locate(const std::wstring& path) const {
    return Locate(path, {ErrorNumber::PathNotFound, ErrorNumber::DiskNotReady});
}

MemoryFileSystem::Location MemoryFileSystem::LocateFile(const std::wstring& path) const {
    Location location = Locate(path);
    if (location.wantsFolder || location.names.empty())
        throw FileError(ErrorNumber::PathFileAccess);
    return location;
}

MemoryFileSystem::Location MemoryFileSystem::LocateForTest(const std::wstring& path) const {
    auto location = Parse(path);
    if (!location || !DriveOf(*location))
        Nonsense("not a path on a drive", path);
    return std::move(*location);
}

// --- Nodes ----------------------------------------------------------------------------------

MemoryFileSystem::Node* MemoryFileSystem::Follow(Node* node, int depth) const {
    constexpr int deepest = 16;
    if (!node || !node->attributes.link)
        return node;
    const auto target = Parse(node->linkTarget);
    DriveState* drive = target ? DriveOf(*target) : nullptr;
    if (!drive || !drive->ready || depth > deepest)
        return nullptr;
    Node* folder = &drive->root;
    for (const std::wstring& name : target->names)
        folder = Step(folder, name, depth + 1);
    return Follow(folder, depth + 1);
}

MemoryFileSystem::Node* MemoryFileSystem::Step(Node* folder, const std::wstring& name,
                                               int depth) const {
    folder = Follow(folder, depth);
    if (!folder)
        return nullptr;
    const auto child = folder->children.find(UpperCase(name));
    return child == folder->children.end() ? nullptr : child->second.get();
}

// The node at a path, itself a link or not; links on the way are followed.
MemoryFileSystem::Node* MemoryFileSystem::Walk(const Location& location) const {
    Node* node = &DriveOf(location)->root;
    for (const std::wstring& name : location.names)
        node = Step(node, name, 0);
    return node && location.wantsFolder && !node->attributes.folder ? nullptr : node;
}

// What lies in a folder that is denied is not even found.
void MemoryFileSystem::CheckAccess(const Location& location) const {
    Node* folder = Follow(&DriveOf(location)->root);
    for (const std::wstring& name : location.names) {
        if (!folder)
            return;
        if (folder->denied)
            throw FileError(ErrorNumber::PathFileAccess);
        folder = Follow(Step(folder, name, 0));
    }
}

MemoryFileSystem::Node& MemoryFileSystem::FolderHolding(const Location& location) const {
    Location parent = location;
    if (!parent.names.empty())
        parent.names.pop_back();
    return ExistingFolder(parent, ErrorNumber::PathNotFound);
}

MemoryFileSystem::Node& MemoryFileSystem::Existing(const Location& location) const {
    FolderHolding(location);
    Node* node = Walk(location);
    if (!node)
        throw FileError(ErrorNumber::FileNotFound);
    return *node;
}

MemoryFileSystem::Node& MemoryFileSystem::ExistingFolder(const Location& location,
                                                         ErrorNumber error) const {
    Node* node = Follow(Walk(location));
    if (!node || !node->attributes.folder)
        throw FileError(error);
    if (node->denied)
        throw FileError(ErrorNumber::PathFileAccess);
    return *node;
}

MemoryFileSystem::Node& MemoryFileSystem::ExistingForTest(const std::wstring& path) const {
    Node* node = Walk(LocateForTest(path));
    if (!node)
        Nonsense("nothing is there", path);
    return *node;
}

bool MemoryFileSystem::HoldsCurrentFolder(const Node& folder) const {
    const auto drive = drives.find(currentDrive);
    if (drive == drives.end())
        return false;
    Location location;
    location.drive = currentDrive;
    location.names = drive->second->currentFolder;
    if (!DriveOf(location))
        return false;
    const Node* node = Follow(Walk(location));
    while (node && node != &folder)
        node = node->parent;
    return node != nullptr;
}

bool MemoryFileSystem::HoldsDenied(const Node& tree) {
    return tree.denied || std::any_of(tree.children.begin(), tree.children.end(),
                                      [](const auto& child) { return HoldsDenied(*child.second); });
}

bool MemoryFileSystem::IsInUse(const Node& tree) const {
    const auto isUnder = [&](const Node* node) {
        while (node && node != &tree)
            node = node->parent;
        return node != nullptr;
    };
    return HoldsCurrentFolder(tree) || std::any_of(locked.begin(), locked.end(), isUnder);
}

MemoryFileSystem::DriveState& MemoryFileSystem::DriveUnder(const Node& node) {
    const Node* root = &node;
    while (root->parent)
        root = root->parent;
    return *root->drive;
}

// What stands in a folder under that name; a file is made when nothing does.
MemoryFileSystem::Node& MemoryFileSystem::NodeIn(Node& folder, const std::wstring& name) {
    NodePointer& node = folder.children[UpperCase(name)];
    if (!node) {
        node.reset(new Node);
        node->name = name;
        node->parent = &folder;
        node->permissions = folder.permissions;
    }
    return *node;
}

void MemoryFileSystem::Fill(Node& file, std::string_view bytes) {
    DriveState& drive = DriveUnder(file);
    drive.used -= file.bytes.size();
    file.bytes = bytes;
    file.unflushed = false;
    drive.used += file.bytes.size();
}

// A copy is made beside the file that it replaces, which stands until the copy is complete.
void MemoryFileSystem::CheckRoomFor(size_t bytes, const DriveState& drive) {
    if (drive.used + bytes > drive.capacity)
        throw FileError(ErrorNumber::DiskFull);
}

void MemoryFileSystem::Erase(Node& node) {
    DriveUnder(node).used -= node.bytes.size();
    std::erase(locked, &node);
    node.parent->children.erase(UpperCase(node.name));
}

} // namespace tamblin
