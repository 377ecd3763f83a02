// Unpacks an archive that a test has made up and keeps what came of it.
#pragma once

#include <string>
#include <vector>

#include "platform/lzh/extractor.h"
#include "support/lzh_target_fake.h"

namespace tamblin::lzh {

struct Extraction {
    explicit Extraction(const std::string& archive, HiddenFiles hidden = HiddenFiles::AsStored);

    TargetFake target;
    ExtractionResult result;

    LzhFailure Failure() const { return result.failure; }
    std::vector<std::wstring> Files() const; // sorted paths
    std::string Bytes(const std::wstring& path) const;
};

} // namespace tamblin::lzh
