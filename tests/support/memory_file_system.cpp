#include "support/memory_file_system.h"

#include <algorithm>
#include <limits>
#include <stdexcept>
#include <utility>

#include "base/text.h"
#include "platform/path_form.h"

namespace tamblin {

struct MemoryFileSystem::Node {
    std::wstring name;
    FileAttributes attributes;
    std::string bytes;
    std::wstring linkTarget;
    std::optional<LockKind> lock;
    std::map<std::wstring, NodePointer> children; // by upper-cased name
    Node* parent = nullptr;                       // none for a drive's root
    DriveState* drive = nullptr;                  // for a drive's root
};

struct MemoryFileSystem::DriveState {
    DriveType type = DriveType::Fixed;
    bool present = true;
    bool ready = true;
    std::uint64_t capacity = std::numeric_limits<std::uint64_t>::max();
    std::uint64_t used = 0;
    Node root;
    std::vector<std::wstring> currentFolder;
};

// A path taken apart: absolute, without "." and "..", as Windows reads it.
struct MemoryFileSystem::Location {
    wchar_t drive = 0; // 0 for a path on no drive (\\server\share)
    std::vector<std::wstring> names;
    bool wantsFolder = false; // a "\" at the end

    std::wstring Path() const {
        std::wstring path{drive, L':', L'\\'};
        for (const std::wstring& name : names)
            path += name + L'\\';
        return WithoutBackslash(path);
    }
};

struct MemoryFileSystem::DriveErrors {
    ErrorNumber missing;
    ErrorNumber notReady;
};

namespace {

using FileError = RunTimeError;

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

[[noreturn]] void Nonsense(const std::string& what, const std::wstring& path) {
    std::string printable;
    for (const wchar_t letter : path)
        printable += letter < 0x7F ? static_cast<char>(letter) : '?';
    throw std::logic_error(what + ": " + printable);
}

} // namespace

MemoryFileSystem::MemoryFileSystem() = default;
MemoryFileSystem::~MemoryFileSystem() = default;

void MemoryFileSystem::NodeDeleter::operator()(Node* node) const {
    delete node;
}

// --- Scenes ---------------------------------------------------------------------------------

void MemoryFileSystem::AddDrive(const std::wstring& drive, DriveType type) {
    const wchar_t letter = UpperCase(drive.at(0));
    auto& state = drives[letter];
    if (state)
        Nonsense("the drive is there already", drive);
    state = std::make_unique<DriveState>();
    state->type = type;
    state->root.attributes.folder = true;
    state->root.drive = state.get();
    if (currentDrive == 0)
        currentDrive = letter;
}

void MemoryFileSystem::SetCapacity(const std::wstring& drive, std::uint64_t bytes) {
    drives.at(UpperCase(drive.at(0)))->capacity = bytes;
}

void MemoryFileSystem::SetReady(const std::wstring& drive, bool ready) {
    drives.at(UpperCase(drive.at(0)))->ready = ready;
}

void MemoryFileSystem::RemoveDrive(const std::wstring& drive) {
    drives.at(UpperCase(drive.at(0)))->present = false;
}

void MemoryFileSystem::ReturnDrive(const std::wstring& drive) {
    drives.at(UpperCase(drive.at(0)))->present = true;
}

MemoryFileSystem::Node& MemoryFileSystem::MakeWayForTest(const Location& location) {
    Node* node = &DriveOf(location)->root;
    for (const std::wstring& name : location.names) {
        Node* folder = Follow(node);
        if (!folder || !folder->attributes.folder)
            Nonsense("not a folder on the way", location.Path());
        auto& child = folder->children[UpperCase(name)];
        if (!child) {
            child = NodePointer(new Node());
            child->name = name;
            child->attributes.folder = true;
            child->parent = folder;
        }
        node = child.get();
    }
    return *node;
}

void MemoryFileSystem::AddFile(const std::wstring& path, std::string_view bytes,
                               FileAttributes attributes) {
    Node& node = MakeWayForTest(LocateForTest(path));
    if (!node.children.empty() || !node.parent)
        Nonsense("a folder is there", path);
    node.attributes = attributes;
    node.attributes.folder = false;
    DriveUnder(node).used += bytes.size() - node.bytes.size();
    node.bytes = bytes;
}

void MemoryFileSystem::AddFolder(const std::wstring& path, FileAttributes attributes) {
    Node& node = MakeWayForTest(LocateForTest(path));
    if (!node.attributes.folder)
        Nonsense("a file is there", path);
    attributes.folder = true;
    node.attributes = attributes;
}

void MemoryFileSystem::AddLink(const std::wstring& path, const std::wstring& targetFolder) {
    AddFolder(path, {.link = true});
    ExistingForTest(path).linkTarget = InFull(targetFolder);
}

void MemoryFileSystem::Lock(const std::wstring& path, LockKind kind) {
    Node& node = ExistingForTest(path);
    if (!node.lock)
        locked.push_back(&node);
    node.lock = kind;
}

void MemoryFileSystem::Unlock(const std::wstring& path) {
    Node& node = ExistingForTest(path);
    node.lock.reset();
    std::erase(locked, &node);
}

// --- What is there --------------------------------------------------------------------------

bool MemoryFileSystem::Exists(const std::wstring& path) const {
    return Walk(LocateForTest(path)) != nullptr;
}

std::string MemoryFileSystem::Contents(const std::wstring& file) const {
    const Node& node = ExistingForTest(file);
    if (node.attributes.folder)
        Nonsense("a folder has no contents", file);
    return node.bytes;
}

FileAttributes MemoryFileSystem::AttributesOf(const std::wstring& path) const {
    return ExistingForTest(path).attributes;
}

namespace {

void AddToTree(MemoryFileSystem::Tree& tree, const auto& folder, const std::wstring& path) {
    for (const auto& [key, child] : folder.children) {
        const std::wstring childPath = path + child->name;
        if (!child->attributes.folder) {
            tree[childPath] = child->bytes;
            continue;
        }
        tree[childPath + L'\\'];
        AddToTree(tree, *child, childPath + L'\\');
    }
}

} // namespace

MemoryFileSystem::Tree MemoryFileSystem::Snapshot(const std::wstring& folder) const {
    Tree tree;
    if (!folder.empty()) {
        AddToTree(tree, ExistingForTest(folder), WithBackslash(InFull(folder)));
        return tree;
    }
    for (const auto& [letter, drive] : drives)
        AddToTree(tree, drive->root, std::wstring{letter, L':', L'\\'});
    return tree;
}

size_t MemoryFileSystem::CountLogged(std::wstring_view start) const {
    return static_cast<size_t>(std::count_if(
        log.begin(), log.end(), [&](const std::wstring& line) { return StartsWith(line, start); }));
}

void MemoryFileSystem::ForgetOperations() {
    log.clear();
    if (failing)
        failing->operation -= operationCount;
    operationCount = 0;
}

void MemoryFileSystem::AddToLog(const std::wstring& line) {
    if (keepsLog)
        log.push_back(line);
}

void MemoryFileSystem::FailOperation(size_t n, ErrorNumber error) {
    failing = Failure{operationCount + n, error};
}

// --- What a shell does ----------------------------------------------------------------------

// Nothing for what a shell does not touch: no path, a malformed one, a root.
MemoryFileSystem::Node* MemoryFileSystem::FindForShell(const std::wstring& path) const {
    const auto location = path.empty() ? std::nullopt : Parse(path);
    const DriveState* drive = location ? DriveOf(*location) : nullptr;
    if (!drive || !drive->ready || location->names.empty())
        return nullptr;
    return Walk(*location);
}

void MemoryFileSystem::DeleteTree(const std::wstring& path) {
    if (Node* node = FindForShell(path))
        DeleteUnused(*node);
}

bool MemoryFileSystem::DeleteUnused(Node& node) {
    bool allGone = !node.lock && !HoldsCurrentFolder(node);
    std::vector<Node*> children;
    for (const auto& [key, child] : node.children)
        children.push_back(child.get());
    for (Node* child : children)
        allGone = DeleteUnused(*child) && allGone;
    if (allGone)
        Erase(node);
    return allGone;
}

MemoryFileSystem::NodePointer MemoryFileSystem::TakeTree(const std::wstring& path) {
    Node* node = FindForShell(path);
    if (!node || IsInUse(*node))
        return nullptr;
    auto place = node->parent->children.find(UpperCase(node->name));
    NodePointer tree = std::move(place->second);
    node->parent->children.erase(place);
    return tree;
}

bool MemoryFileSystem::PutTree(const std::wstring& path, NodePointer& tree) {
    Location location = LocateForTest(path);
    if (!tree || Walk(location))
        return false;
    location.names.pop_back();
    Node& folder = MakeWayForTest(location);
    tree->parent = &folder;
    std::wstring key = UpperCase(tree->name);
    folder.children[std::move(key)] = std::move(tree);
    return true;
}

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

// On a full disk the file keeps what fitted, as a program's write does that broke off.
void MemoryFileSystem::Fill(Node& file, std::string_view bytes) {
    DriveState& drive = DriveUnder(file);
    drive.used -= file.bytes.size();
    const std::uint64_t room = drive.capacity - std::min(drive.used, drive.capacity);
    file.bytes = bytes.substr(0, std::min<std::uint64_t>(room, bytes.size()));
    drive.used += file.bytes.size();
    if (file.bytes.size() < bytes.size())
        throw FileError(ErrorNumber::DiskFull);
}

// A copy is made beside the file that it replaces, which stands until the copy is complete.
void MemoryFileSystem::CheckRoomFor(size_t bytes, const DriveState& drive) {
    if (drive.used + bytes > drive.capacity)
        throw FileError(ErrorNumber::DiskFull);
}

void MemoryFileSystem::Erase(Node& node) {
    DriveUnder(node).used -= node.bytes.size();
    node.parent->children.erase(UpperCase(node.name));
}

// --- FileSystem -----------------------------------------------------------------------------

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
