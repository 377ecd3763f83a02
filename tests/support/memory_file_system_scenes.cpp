// What tests do to a MemoryFileSystem and read from it, and what a shell does with whole trees.
#include <algorithm>

#include "support/memory_file_system_parts.h"

namespace tamblin {

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

MemoryFileSystem::Node& MemoryFileSystem::MakeWayForTest(const Location& location) {
    Node* node = &DriveOf(location)->root;
    for (const std::wstring& name : location.names) {
        Node* folder = Follow(node);
        if (!folder || !folder->attributes.folder)
            Nonsense("not a folder on the way", location.Path());
        node = Step(folder, name, 0);
        if (!node) {
            node = &NodeIn(*folder, name);
            node->attributes.folder = true;
        }
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

void MemoryFileSystem::MountVolume(const std::wstring& path, const std::wstring& drive) {
    AddLink(path, drive.substr(0, 2) + L"\\");
    ExistingForTest(path).mountsVolume = true;
}

void MemoryFileSystem::HideLetter(const std::wstring& drive) {
    drives.at(UpperCase(drive.front()))->hasLetter = false;
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

void MemoryFileSystem::HoldFor(const std::wstring& path, size_t tries, HolderShares shares) {
    Node& node = ExistingForTest(path);
    node.heldFor = tries;
    node.deletionShared = shares == HolderShares::Deletion;
}

void MemoryFileSystem::DenyAccess(const std::wstring& folder) {
    ExistingForTest(folder).denied = true;
}

void MemoryFileSystem::AllowAccess(const std::wstring& folder) {
    ExistingForTest(folder).denied = false;
}

void MemoryFileSystem::HoldElsewhere(const std::wstring& folder) {
    ExistingForTest(folder).heldElsewhere = true;
}

void MemoryFileSystem::SetPermissions(const std::wstring& path, const std::wstring& permissions) {
    ExistingForTest(path).permissions = permissions;
}

std::wstring MemoryFileSystem::PermissionsOf(const std::wstring& path) const {
    return ExistingForTest(path).permissions;
}

void MemoryFileSystem::LeaveUnflushed(const std::wstring& file) {
    ExistingForTest(file).unflushed = true;
}

namespace {

void LoseUnflushed(auto& node) {
    if (node.unflushed)
        node.bytes.clear();
    node.unflushed = false;
    for (const auto& [key, child] : node.children)
        LoseUnflushed(*child);
}

} // namespace

void MemoryFileSystem::ReturnPower() {
    powerCut.reset();
    for (const auto& [letter, drive] : drives) {
        LoseUnflushed(drive->root);
        drive->currentFolder.clear();
    }
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
        log.begin(), log.end(), [&](const std::wstring& line) { return line.starts_with(start); }));
}

void MemoryFileSystem::ForgetOperations() {
    log.clear();
    if (failing)
        failing->operation -= operationCount;
    if (powerCut)
        *powerCut -= operationCount;
    operationCount = 0;
}

void MemoryFileSystem::CheckPower() const {
    if (powerCut && operationCount > *powerCut)
        throw PowerCut();
}

void MemoryFileSystem::LosePowerIfNow() const {
    if (PowerGoesNow())
        throw PowerCut();
}

bool MemoryFileSystem::BeginForeign(const std::wstring& line) {
    ++operationCount;
    AddToLog(line);
    CheckPower();
    LosePowerIfNow();
    return !failing || failing->operation != operationCount;
}

void MemoryFileSystem::AddToLog(const std::wstring& line) {
    if (keepsLog)
        log.push_back(line);
}

void MemoryFileSystem::FailOperation(size_t n, ErrorNumber error) {
    failing = Failure{operationCount + n, error};
}

// --- What a shell does ----------------------------------------------------------------------

// Nothing for what a shell does not touch: no path, a malformed one, a root, one that ends in "\".
MemoryFileSystem::Node* MemoryFileSystem::FindForShell(const std::wstring& path) const {
    const auto location = path.empty() ? std::nullopt : Parse(path);
    const DriveState* drive = location ? DriveOf(*location) : nullptr;
    if (!drive || !drive->ready || location->names.empty() || location->wantsFolder)
        return nullptr;
    try {
        CheckAccess(*location);
    } catch (const RunTimeError&) {
        return nullptr;
    }
    return Walk(*location);
}

void MemoryFileSystem::DeleteTree(const std::wstring& path) {
    if (Node* node = FindForShell(path))
        DeleteUnused(*node);
}

bool MemoryFileSystem::DeleteUnused(Node& node) {
    if (node.denied)
        return false;
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

bool MemoryFileSystem::RecycleTree(const std::wstring& path) {
    Node* node = FindForShell(path);
    if (!node || IsInUse(*node) || HoldsDenied(*node))
        return false;
    Erase(*node);
    return true;
}

} // namespace tamblin
