// Unpacks a whole archive into a folder: the one way in for all who want an archive unpacked.
#pragma once

#include <cstdint>
#include <functional>
#include <string>

#include "platform/lzh/archive_source.h"
#include "platform/lzh/code_pages.h"
#include "platform/lzh/decoder.h"
#include "platform/lzh/entry_header.h"
#include "platform/lzh/extraction_target.h"
#include "platform/lzh/lzh_error.h"
#include "platform/lzh/packed_input.h"

namespace tamblin::lzh {

struct ExtractionResult {
    LzhFailure failure = LzhFailure::None;
    std::wstring entry;  // the one that it failed with, or empty
    std::wstring detail; // more about the failure, or empty

    bool Succeeded() const { return failure == LzhFailure::None; }
    // On one line: "dir\file.txt: the packing method is unknown (-lh9-)"
    std::wstring Message() const;
};

// Visible: no file is left hidden or system. An install moves what it finds in its staging folder's
// listings; what they leave out would stay there and stop it.
enum class HiddenFiles { AsStored, Visible };

// Is told, often, that `done` of `total` bytes of the archive have been unpacked. Never goes back.
using ExtractionProgress = std::function<void(std::uint64_t done, std::uint64_t total)>;

// The first failure ends the extraction. Entries before it have been unpacked and stay; the failing
// one leaves no file.
class Extractor {
  public:
    Extractor(ArchiveSource& archive, ExtractionTarget& extractionTarget, CodePages& pages,
              HiddenFiles whatIsHidden = HiddenFiles::AsStored,
              ExtractionProgress extractionProgress = nullptr);

    // Never throws.
    ExtractionResult Run();

  private:
    void ExtractAll();
    void ExtractEntry();
    void ExtractFile(const EntryPath& path);

    ArchiveSource& source;
    ExtractionTarget& target;
    CodePages& codePages;
    HiddenFiles hiddenFiles;
    ExtractionProgress progress;

    PackedInput input;
    Decoders decoders;
    EntryHeader entry;    // the one in work
    bool inEntry = false; // whether there is one
};

} // namespace tamblin::lzh
