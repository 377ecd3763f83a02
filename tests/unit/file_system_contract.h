// The ground of the contract tests: one set of tests that every FileSystem passes, the one in
// memory and the one of this computer, so that neither drifts from the other.
#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <optional>
#include <ostream>
#include <string>

#include "base/run_time_error.h"
#include "platform/file_system.h"

namespace tamblin {

// A FileSystem under test, and what a test does behind its back.
class DiskUnderTest {
  public:
    virtual ~DiskUnderTest() = default;

    virtual FileSystem& Files() = 0;
    // An empty folder on a fixed drive, not the current one; no trailing "\".
    virtual std::wstring Folder() = 0;
    // The drive letters are given as "Q:".
    virtual std::wstring MissingDrive() = 0;
    virtual std::optional<std::wstring> OtherDrive() = 0;

    // Another program opens the file and lets nobody else have it.
    virtual void Lock(const std::wstring& file) = 0;
    virtual void Unlock(const std::wstring& file) = 0;
    // Another session of the program holds the folder.
    virtual void HoldElsewhere(const std::wstring& heldFolder) = 0;
    // False where links cannot be made.
    virtual bool MakeLink(const std::wstring& path, const std::wstring& target) = 0;

    // Whether errors say which file or folder they are about.
    virtual bool NamesPaths() const { return true; }

    // Wine differs from Windows in places; the tests say where.
    virtual bool IsWine() const { return false; }
};

struct DiskMaker {
    std::string name;
    std::function<std::unique_ptr<DiskUnderTest>()> make;
};

class FileSystemContract : public testing::TestWithParam<DiskMaker> {
  protected:
    FileSystemContract() : disk(GetParam().make()), files(disk->Files()), folder(disk->Folder()) {}

    // A path in the test's folder.
    std::wstring In(const std::wstring& relative) const { return folder + L'\\' + relative; }
    std::wstring Root() const { return folder.substr(0, 3); }
    bool IsThere(const std::wstring& relative) { return files.Find(In(relative)).has_value(); }

    // The number of the error that an operation throws, 0 when it throws none.
    int ThrownNumber(const std::function<void()>& operation) const {
        try {
            operation();
        } catch (const RunTimeError& error) {
            EXPECT_NE(error.Path().empty(), disk->NamesPaths());
            return static_cast<int>(error.Number());
        }
        return 0;
    }

    std::unique_ptr<DiskUnderTest> disk;
    FileSystem& files;
    std::wstring folder;
};

// How a failed test shows attributes.
inline void PrintTo(const FileAttributes& attributes, std::ostream* stream) {
    *stream << (attributes.readOnly ? "r" : "-") << (attributes.hidden ? "h" : "-")
            << (attributes.system ? "s" : "-") << (attributes.folder ? "f" : "-")
            << (attributes.archive ? "a" : "-") << (attributes.link ? "l" : "-");
}

inline void PrintTo(const DiskMaker& maker, std::ostream* stream) {
    *stream << maker.name;
}

using testing::ElementsAre;
using testing::IsEmpty;

inline std::vector<std::wstring> NamesOf(const std::vector<FolderEntry>& entries) {
    std::vector<std::wstring> names;
    for (const FolderEntry& entry : entries)
        names.push_back(entry.name);
    return names;
}

// What a file can be, with archive set. Under Wine a user cannot hide a read-only file.
inline std::vector<FileAttributes> AttributesToTry(const DiskUnderTest& disk) {
    std::vector<FileAttributes> all = {
        {.archive = true},
        {.readOnly = true, .archive = true},
        {.hidden = true, .archive = true},
        {.system = true, .archive = true},
        {.hidden = true, .system = true, .archive = true},
    };
    if (!disk.IsWine())
        all.push_back({.readOnly = true, .hidden = true, .system = true, .archive = true});
    return all;
}

} // namespace tamblin
