// Unpacks an archive in a file into the current folder.
#pragma once

#include <string>

#include "platform/lzh/extractor.h"

namespace tamblin {

// Never throws.
lzh::ExtractionResult ExtractIntoCurrentFolder(const std::wstring& archive,
                                               lzh::HiddenFiles hiddenFiles,
                                               const lzh::ExtractionProgress& progress = nullptr);

} // namespace tamblin
