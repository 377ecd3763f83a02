#include "support/lzh_memory_unlha.h"

#include "base/run_time_error.h"
#include "base/text.h"
#include "platform/lzh/unlha_command.h"
#include "support/lzh_code_pages_here.h"
#include "support/lzh_memory_source.h"

namespace tamblin {
namespace {

using lzh::EntryPath;
using lzh::LzhError;
using lzh::LzhFailure;

// A file is written as a whole when it is finished, so an unfinished one leaves nothing.
class FileSystemFile : public lzh::TargetFile {
  public:
    FileSystemFile(FileSystem& fileSystem, std::wstring filePath)
        : files(fileSystem), path(std::move(filePath)) {}

    void Write(const std::uint8_t* data, std::size_t size) override {
        bytes.append(reinterpret_cast<const char*>(data), size);
    }

    void Finish(const lzh::EntryTimes&, lzh::EntryAttributes attributes) override {
        files.Write(path, bytes);
        if (attributes == lzh::EntryAttributes{})
            return;
        FileAttributes all;
        all.archive = true;
        all.readOnly = attributes.readOnly;
        all.hidden = attributes.hidden;
        all.system = attributes.system;
        files.SetAttributes(path, all);
    }

  private:
    FileSystem& files;
    std::wstring path;
    std::string bytes;
};

class FileSystemTarget : public lzh::ExtractionTarget {
  public:
    explicit FileSystemTarget(FileSystem& fileSystem)
        : files(fileSystem), root(WithBackslash(fileSystem.CurrentFolder())) {}

    void MakeFolders(const EntryPath& folder) override { Enter(folder); }

    std::unique_ptr<lzh::TargetFile> NewFile(const EntryPath& file) override {
        const std::wstring path = Enter(EntryPath(file.begin(), file.end() - 1)) + file.back();
        if (const auto there = files.Find(path); there && !there->attributes.folder) {
            files.SetAttributes(path, {});
            files.Delete(path);
        }
        return std::make_unique<FileSystemFile>(files, path);
    }

  private:
    std::wstring Enter(const EntryPath& folder) {
        std::wstring path = root;
        for (const std::wstring& name : folder) {
            path += name;
            const auto there = files.Find(path);
            if (there && there->attributes.link)
                throw LzhError(LzhFailure::LinkInTheWay);
            if (!there)
                files.MakeFolder(path);
            path += L'\\';
        }
        return path;
    }

    FileSystem& files;
    std::wstring root;
};

} // namespace

std::int16_t MemoryUnlha::Run(void*, const std::wstring& command, const std::wstring&, unsigned) {
    lastResult = Extract(command);
    return static_cast<std::int16_t>(lastResult.failure);
}

lzh::ExtractionResult MemoryUnlha::Extract(const std::wstring& command) {
    const auto archive = lzh::ArchiveOfCommand(command);
    if (!archive)
        return {LzhFailure::BadCommand, {}, {}};
    try {
        lzh::MemorySource source(files.Read(*archive));
        FileSystemTarget target(files);
        lzh::CodePagesHere codePages;
        // As the program's own.
        return lzh::Extractor(source, target, codePages, lzh::HiddenFiles::Visible).Run();
    } catch (const RunTimeError& error) {
        return {LzhFailure::CannotOpenArchive, {}, error.Text()};
    }
}

} // namespace tamblin
