// Unpacks an archive in a file into the current folder.
#pragma once

#include <string>

#include "platform/lzh/extraction_progress.h"
#include "platform/lzh/extractor.h"

namespace tamblin {

enum class HiddenFiles { AsStored, Visible };

// Never throws.
lzh::ExtractionResult ExtractIntoCurrentFolder(const std::wstring& archive, HiddenFiles hiddenFiles,
                                               lzh::ExtractionProgress* progress = nullptr);

} // namespace tamblin
