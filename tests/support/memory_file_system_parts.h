// What MemoryFileSystem is made of, for its own source files.
#pragma once

#include <limits>
#include <stdexcept>

#include "base/text.h"
#include "support/memory_file_system.h"

namespace tamblin {

struct MemoryFileSystem::Node {
    std::wstring name;
    FileAttributes attributes;
    std::string bytes;
    std::wstring linkTarget;
    bool mountsVolume = false; // a link to a drive's root
    std::optional<LockKind> lock;
    std::optional<size_t> heldFor; // tries until another program lets go
    bool deletionShared = false;   // by that program
    bool vanishing = false;        // deleted, and waiting for that program
    bool denied = false;
    bool heldElsewhere = false;
    std::wstring permissions;
    bool unflushed = false;
    std::map<std::wstring, NodePointer> children; // by upper-cased name
    Node* parent = nullptr;                       // none for a drive's root
    DriveState* drive = nullptr;                  // for a drive's root
};

struct MemoryFileSystem::DriveState {
    DriveType type = DriveType::Fixed;
    bool present = true;
    bool hasLetter = true;
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

using FileError = RunTimeError;

// What a test asks for makes no sense; the program can never be the cause.
[[noreturn]] inline void Nonsense(const std::string& what, const std::wstring& path) {
    std::string printable;
    for (const wchar_t letter : path)
        printable += letter < 0x7F ? static_cast<char>(letter) : '?';
    throw std::logic_error(what + ": " + printable);
}

} // namespace tamblin
