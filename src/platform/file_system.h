// Drives, folders and files. Paths are Windows paths (platform/path_form.h says which are well
// formed); a relative one counts from the current folder of its drive, an empty one is the current
// folder. "/" and a doubled "\" count as one "\"; dots and blanks at the end of a path do not
// count. Every failure is a RunTimeError that names the file or folder in full:
//
//   52 the name is malformed, or (Find) its drive does not exist
//   53 there is no such file                 55 the file is open in a way that forbids this
//   57 the device failed                     58 (Rename) the target already exists
//   61 the disk is full                      67 too many open files
//   68 (List, SetCurrentFolder) the drive does not exist or is not ready
//   70 another program uses the file, and has done so for as long as anything here waits for it
//      (platform/patience.h); Copy, Replace: the target is the source
//   71 (all others) the drive is not ready
//   75 read-only or not permitted; a folder, or a path that ends in "\", where a file is wanted;
//      MakeFolder: it exists; RemoveFolder: it is not empty; RemoveFolder, Rename: the folder is or
//      holds the current folder; Rename: to another drive, or into the folder itself
//   76 a folder on the way, or the folder that is wanted, does not exist or is a file; its drive
//      does not exist
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tamblin {

// The classic attributes, and Link for a folder that stands for one elsewhere (a junction, a
// symbolic link or a mounted volume). Other bits that a file system may report never reach the
// program.
struct FileAttributes {
    bool readOnly = false;
    bool hidden = false;
    bool system = false;
    bool folder = false;
    bool archive = false;
    bool link = false;

    bool operator==(const FileAttributes&) const = default;
};

struct FolderEntry {
    std::wstring name; // as spelled on the disk, without its folder; empty for a root
    FileAttributes attributes;
    std::uint64_t size = 0; // of a file, in bytes
};

enum class DriveType {
    Unknown = 0,
    NoRoot = 1,
    Removable = 2,
    Fixed = 3,
    Remote = 4,
    CdRom = 5,
    Ram = 6
};

struct Drive {
    std::wstring name; // "c:"
    DriveType type = DriveType::Unknown;
};

class FileSystem {
  public:
    virtual ~FileSystem() = default;

    // What stands at the path, or nothing (also when a folder on the way is missing). A trailing
    // "\" is allowed for a folder. A link is found itself, not what it points to.
    virtual std::optional<FolderEntry> Find(const std::wstring& path) = 0;

    // All entries of a folder but "." and "..", sorted by upper-cased name, code unit by code unit.
    virtual std::vector<FolderEntry> List(const std::wstring& folder) = 0;

    virtual std::string Read(const std::wstring& file) = 0;
    // Creates the file or replaces its contents; a present one keeps its name's letter case, its
    // permissions and its attributes but for archive, which is set.
    virtual void Write(const std::wstring& file, std::string_view bytes) = 0;

    // Copies contents and time of change. An existing target keeps its own name's letter case,
    // permissions and attributes; a new one takes the attributes along. Sets archive.
    virtual void Copy(const std::wstring& from, const std::wstring& to) = 0;
    // Moves a file, also a read-only one and to another drive. An existing target keeps what it
    // keeps when it is copied to.
    virtual void Replace(const std::wstring& from, const std::wstring& to) = 0;
    // Whatever fails, and if the power goes: where a file stood, Write, Copy and Replace leave the
    // former contents or the new ones, whole and on the disk. A new file that fails goes again.

    // Throws what replacing a file would fail for: 53, 70, 75, 76.
    virtual void CheckReplaceable(const std::wstring& file) = 0;

    // Files and folders. Also moves, within one drive, read-only files too. Never replaces;
    // changing only the letter case is allowed.
    virtual void Rename(const std::wstring& from, const std::wstring& to) = 0;
    virtual void Delete(const std::wstring& file) = 0;

    virtual void MakeFolder(const std::wstring& folder) = 0;
    // A folder in which new files get the permissions that they would get in `model`, so that they
    // have the right ones once they are moved there. Where the user could make no files then, no
    // permissions are kept or `model` is not there, it is a folder like any other.
    virtual void MakeFolderLike(const std::wstring& folder, const std::wstring& model) = 0;
    // The folder must be empty and not read-only. A link goes, what it points to stays (where the
    // system cannot do that, the link stays too: 75).
    virtual void RemoveFolder(const std::wstring& folder) = 0;

    // Keeps a folder for this program alone among those that ask the same, also on other computers,
    // until it is released or removed, or the program ends. False when another one has it.
    virtual bool HoldFolder(const std::wstring& folder) = 0;
    virtual void ReleaseFolder() = 0; // the one held, if any

    // Sets readOnly, hidden, system and archive; folder and link stay what they are.
    virtual void SetAttributes(const std::wstring& path, FileAttributes attributes) = 0;

    // The current folder of the current drive, as it was set, without a trailing "\" unless it is a
    // root.
    virtual std::wstring CurrentFolder() = 0;
    // Makes the folder's drive the current drive and the folder the current one.
    virtual void SetCurrentFolder(const std::wstring& folder) = 0;

    // True when moving a file from one folder to the other takes no room.
    virtual bool OnOneDrive(const std::wstring& folder, const std::wstring& other) = 0;
    // Where the folder is, whatever links and other names of drives the path goes by: two paths
    // lead to one folder if this is the same for both but for letter case, as `subst` and links
    // make them. For comparisons only. The path in full when that cannot be found out.
    virtual std::wstring RealPath(const std::wstring& folder) = 0;
    // How many bytes the user may still write there.
    virtual std::uint64_t FreeBytes(const std::wstring& folder) = 0;

    // By letter, as the system reports them.
    virtual std::vector<Drive> Drives() = 0;
    // The name of the volume whose root the folder is: a drive's root, or a link by which a volume
    // is mounted in a folder. Nothing for other folders and links, for volumes that are not on a
    // fixed disk, and when it cannot be found out.
    virtual std::optional<std::wstring> FixedVolumeAt(const std::wstring& folder) = 0;
};

} // namespace tamblin
