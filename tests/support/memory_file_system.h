// Drives in memory that behave as Windows drives do: the FileSystem of the tests.
//
// Beyond FileSystem it offers what a test needs to set a scene (drives, files, links, locks, full
// and vanished disks), to make any one operation fail, and to look at what is left. These helpers
// are neither counted nor logged, and they throw std::logic_error when the test asks nonsense.
#pragma once

#include <cstdint>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "base/run_time_error.h"
#include "platform/file_system.h"
#include "platform/patience.h"

namespace tamblin {

class MemoryFileSystem : public FileSystem {
  public:
    struct Node;
    struct NodeDeleter {
        void operator()(Node* node) const;
    };
    using NodePointer = std::unique_ptr<Node, NodeDeleter>; // a node and all below it
    using Tree = std::map<std::wstring, std::string>;

    MemoryFileSystem();
    ~MemoryFileSystem() override;

    // The first drive becomes the current one. A capacity counts the bytes in files; folders and
    // empty files take no room, but a full disk takes no new folder either.
    void AddDrive(const std::wstring& drive, DriveType type = DriveType::Fixed);
    void SetCapacity(const std::wstring& drive, std::uint64_t bytes);
    void SetReady(const std::wstring& drive, bool ready);
    void RemoveDrive(const std::wstring& drive);

    // Folders on the way are made. AddFile replaces what is there, read-only or not.
    void AddFile(const std::wstring& path, std::string_view bytes = {},
                 FileAttributes attributes = {.archive = true});
    void AddFolder(const std::wstring& path, FileAttributes attributes = {});
    void AddLink(const std::wstring& path, const std::wstring& targetFolder);
    // A link by which a drive's volume is mounted in a folder. A hidden letter leaves the volume
    // reachable by such links alone.
    void MountVolume(const std::wstring& path, const std::wstring& drive);
    void HideLetter(const std::wstring& drive);

    // What another program does with a file (or, exclusively, with a folder).
    enum class LockKind { Exclusive, DenyWriting };
    void Lock(const std::wstring& path, LockKind kind = LockKind::Exclusive);
    void Unlock(const std::wstring& path);

    // As Lock, but the program lets go after so many tries to use the file; it may let others
    // delete the file meanwhile, which then stays listed until it lets go. Operations wait as on a
    // real drive, by the patience of its FileSystem; Waited() tells how long in all.
    enum class HolderShares { Nothing, Deletion };
    void HoldFor(const std::wstring& path, size_t tries,
                 HolderShares shares = HolderShares::Nothing);
    Patience::Milliseconds Waited() const { return waited; }

    // The user may neither look into the folder nor touch what it holds, nor may the shell for him.
    void DenyAccess(const std::wstring& folder);
    void AllowAccess(const std::wstring& folder);

    // Another session of the program holds the folder.
    void HoldElsewhere(const std::wstring& folder);
    const std::wstring& HeldFolder() const { return heldFolder; } // empty when none is held

    // Who may use it, by any name; new files and folders get what the folder that holds them has.
    void SetPermissions(const std::wstring& path, const std::wstring& permissions);
    std::wstring PermissionsOf(const std::wstring& path) const;

    bool Exists(const std::wstring& path) const;
    std::string Contents(const std::wstring& file) const;
    FileAttributes AttributesOf(const std::wstring& path) const;
    // Full paths and bytes of all below a folder, or of all drives. Folders end in "\"; links are
    // listed and not followed.
    Tree Snapshot(const std::wstring& folder = {}) const;

    // Every call of a FileSystem method is one operation, whether it succeeds or not.
    size_t OperationCount() const { return operationCount; }
    // "Delete C:\a", "Rename C:\a -> C:\b"; paths in full.
    const std::vector<std::wstring>& Log() const { return log; }
    size_t CountLogged(std::wstring_view start) const;
    // Starts the log and the count anew.
    void ForgetOperations();
    void KeepLog(bool keep) { keepsLog = keep; }
    // Adds a line of another fake, so that one log shows the order of all.
    void AddToLog(const std::wstring& line);
    // The n-th operation from now (the next one is 1) throws instead of doing anything.
    void FailOperation(size_t n, ErrorNumber error);
    void FailNothing() { failing.reset(); }
    // Counts what another fake does to the disk as an operation. False when it is to fail.
    bool BeginForeign(const std::wstring& line);

    // The power goes during the n-th operation from now: it throws PowerCut, half done where a real
    // drive would leave it so, and so does all that is tried after it.
    struct PowerCut {};
    void CutPower(size_t n) { powerCut = operationCount + n; }
    // The computer is on again: contents that had not been flushed are gone.
    void ReturnPower();
    // The file's contents have been written but not flushed, as by unpacking.
    void LeaveUnflushed(const std::wstring& file);

    // What a shell does with a tree: all goes that is not in use, read-only or not; to the recycle
    // bin all or nothing, false when something is in use or nothing there.
    void DeleteTree(const std::wstring& path);
    bool RecycleTree(const std::wstring& path);

    std::optional<FolderEntry> Find(const std::wstring& path) override;
    std::vector<FolderEntry> List(const std::wstring& folder) override;
    std::string Read(const std::wstring& file) override;
    void Write(const std::wstring& file, std::string_view bytes) override;
    void Copy(const std::wstring& from, const std::wstring& to) override;
    void Replace(const std::wstring& from, const std::wstring& to) override;
    void CheckReplaceable(const std::wstring& file) override;
    void Rename(const std::wstring& from, const std::wstring& to) override;
    void Delete(const std::wstring& file) override;
    void MakeFolder(const std::wstring& folder) override;
    void MakeFolderLike(const std::wstring& folder, const std::wstring& model) override;
    void RemoveFolder(const std::wstring& folder) override;
    bool HoldFolder(const std::wstring& folder) override;
    void ReleaseFolder() override;
    void SetAttributes(const std::wstring& path, FileAttributes attributes) override;
    std::wstring CurrentFolder() override;
    void SetCurrentFolder(const std::wstring& folder) override;
    bool OnOneDrive(const std::wstring& folder, const std::wstring& other) override;
    std::wstring RealPath(const std::wstring& folder) override;
    std::uint64_t FreeBytes(const std::wstring& folder) override;
    std::vector<tamblin::Drive> Drives() override;
    std::optional<std::wstring> FixedVolumeAt(const std::wstring& folder) override;

  private:
    struct DriveState;
    struct Location;
    struct DriveErrors;
    struct Failure {
        size_t operation;
        ErrorNumber error;
    };

    void Begin(std::wstring_view operation, const std::wstring& path = {},
               const std::wstring& target = {});
    std::optional<Location> Parse(const std::wstring& path) const;
    std::wstring InFull(const std::wstring& path) const;
    DriveState* DriveOf(const Location& location) const;
    Location Locate(const std::wstring& path) const;
    Location Locate(const std::wstring& path, const DriveErrors& errors) const;
    Location LocateFile(const std::wstring& path) const;
    Location LocateForTest(const std::wstring& path) const;

    void CheckAccess(const Location& location) const;
    Node* Walk(const Location& location) const;
    Node* Follow(Node* node, int depth = 0) const;
    Node* Step(Node* folder, const std::wstring& name, int depth) const;
    Node& FolderHolding(const Location& location) const;
    Node& Existing(const Location& location) const;
    Node& ExistingFolder(const Location& location, ErrorNumber error) const;
    Node& ExistingForTest(const std::wstring& path) const;
    Node* FindForShell(const std::wstring& path) const;
    Node& MakeWayForTest(const Location& location);

    bool HoldsCurrentFolder(const Node& folder) const;
    bool IsInUse(const Node& tree) const;
    static bool HoldsDenied(const Node& tree);
    Node* Present(const Location& location);
    void CheckReplaceable(Node& file);
    void WaitForHolder(Node& node);
    static bool LetsGo(Node& node);
    bool HoldsWhatStays(Node& folder);
    void CheckPower() const;
    bool PowerGoesNow() const { return powerCut == operationCount; }
    void LosePowerIfNow() const;
    Node& Store(const Location& file, std::string_view bytes);
    void CopyContents(const Location& source, const Location& target);
    Node& NewFolder(Location location);
    static Node& NodeIn(Node& folder, const std::wstring& name);
    static void Move(Node& node, Node& folder, const std::wstring& name);
    void Fill(Node& file, std::string_view bytes);
    static void CheckRoomFor(size_t bytes, const DriveState& drive);
    void Erase(Node& node);
    bool DeleteUnused(Node& node);
    static DriveState& DriveUnder(const Node& node);

    std::map<wchar_t, std::unique_ptr<DriveState>> drives; // by upper-case letter
    wchar_t currentDrive = 0;
    std::vector<Node*> locked;
    size_t operationCount = 0;
    std::optional<Failure> failing;
    std::vector<std::wstring> log;
    bool keepsLog = true;
    Patience::Milliseconds waited{0};
    Patience patience{Patience::usual, [this](Patience::Milliseconds time) {
                          waited += time;
                      }};
    std::optional<size_t> powerCut;
    std::wstring heldFolder;
};

} // namespace tamblin
