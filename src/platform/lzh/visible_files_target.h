// Unpacks into another target, but leaves no file hidden or system. An install moves what it finds
// in its staging folder's listings; what they leave out would stay there and stop it.
#pragma once

#include "platform/lzh/extraction_target.h"

namespace tamblin::lzh {

class VisibleFilesTarget : public ExtractionTarget {
  public:
    explicit VisibleFilesTarget(ExtractionTarget& realTarget) : target(realTarget) {}

    void MakeFolders(const EntryPath& folder) override { target.MakeFolders(folder); }
    std::unique_ptr<TargetFile> NewFile(const EntryPath& file) override {
        return std::make_unique<VisibleFile>(target.NewFile(file));
    }

  private:
    class VisibleFile : public TargetFile {
      public:
        explicit VisibleFile(std::unique_ptr<TargetFile> realFile) : file(std::move(realFile)) {}

        void Write(const std::uint8_t* bytes, std::size_t size) override {
            file->Write(bytes, size);
        }
        void Finish(const EntryTimes& times, EntryAttributes attributes) override {
            attributes.hidden = attributes.system = false;
            file->Finish(times, attributes);
        }

      private:
        std::unique_ptr<TargetFile> file;
    };

    ExtractionTarget& target;
};

} // namespace tamblin::lzh
