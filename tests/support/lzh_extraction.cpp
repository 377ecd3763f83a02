#include "support/lzh_extraction.h"

#include "support/lzh_code_pages_here.h"
#include "support/lzh_memory_source.h"

namespace tamblin::lzh {

Extraction::Extraction(const std::string& archive, HiddenFiles hidden) {
    MemorySource source(archive);
    CodePagesHere codePages;
    result = Extractor(source, target, codePages, hidden).Run();
}

std::vector<std::wstring> Extraction::Files() const {
    std::vector<std::wstring> paths;
    for (const auto& [path, file] : target.files)
        paths.push_back(path);
    return paths;
}

std::string Extraction::Bytes(const std::wstring& path) const {
    const auto found = target.files.find(path);
    return found == target.files.end() ? "(no such file)" : found->second.bytes;
}

} // namespace tamblin::lzh
