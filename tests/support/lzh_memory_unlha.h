// The real archive reader over a drive in memory, hiding nothing, as in the program.
#pragma once

#include "base/text.h"
#include "platform/lzh/unlha_command.h"
#include "platform/unlha.h"
#include "support/lzh_extraction.h"
#include "support/memory_file_system.h"

namespace tamblin {

class MemoryUnlha : public Unlha {
  public:
    explicit MemoryUnlha(MemoryFileSystem& memoryFiles) : files(memoryFiles) {}

    std::int16_t Run(void*, const std::wstring& command, const std::wstring&, unsigned) override {
        const std::string archive = files.Contents(lzh::ArchiveOfCommand(command).value());
        const lzh::Extraction extraction(archive, lzh::HiddenFiles::Visible);
        const std::wstring root = WithBackslash(files.CurrentFolder());
        for (const std::wstring& folder : extraction.target.folders)
            files.AddFolder(root + folder);
        for (const auto& [path, file] : extraction.target.files)
            files.AddFile(root + path, file.bytes,
                          {.readOnly = file.attributes.readOnly,
                           .hidden = file.attributes.hidden,
                           .system = file.attributes.system,
                           .archive = true});
        return static_cast<std::int16_t>(extraction.Failure());
    }

  private:
    MemoryFileSystem& files;
};

} // namespace tamblin
