#include "install/kavalet_definitions.h"

#include <optional>
#include <utility>
#include <vector>

#include "base/byte_lines.h"
#include "platform/file_lists.h"

namespace tamblin {
namespace {

constexpr wchar_t DefinitionFileName[] = L"kva.def";
constexpr wchar_t FormerFileName[] = L"kva.tmp";

bool IsEntry(std::string_view line) {
    return !line.empty() && line.front() != '#';
}

// What stands before the second comma, or the whole line.
std::string_view KeyOf(std::string_view entry) {
    const size_t first = entry.find(',');
    if (first == std::string_view::npos)
        return entry;
    return entry.substr(0, entry.find(',', first + 1));
}

class PackageEntries {
  public:
    explicit PackageEntries(std::string_view package) {
        LineReader lines(package);
        while (const auto line = lines.Next())
            if (IsEntry(*line))
                entries.push_back(*line);
    }

    // The first unused entry that starts with the key; it is used from now on.
    std::optional<std::string_view> Take(std::string_view key) {
        for (auto& entry : entries)
            if (entry && entry->starts_with(key))
                return std::exchange(entry, std::nullopt);
        return std::nullopt;
    }

    // The unused entries to append. The very first entry is never one of them.
    std::vector<std::string_view> Rest() const {
        std::vector<std::string_view> rest;
        for (size_t index = 1; index < entries.size(); ++index)
            if (entries[index])
                rest.push_back(*entries[index]);
        return rest;
    }

  private:
    std::vector<std::optional<std::string_view>> entries;
};

void AddLine(std::string& text, std::string_view line) {
    text.append(line).append(LineEnd);
}

} // namespace

std::string MergedKavaletDefinitions(std::string_view former, std::string_view package) {
    PackageEntries packageEntries(package);
    std::string merged;
    LineReader lines(former);
    while (const auto line = lines.Next()) {
        const auto replacement = IsEntry(*line) ? packageEntries.Take(KeyOf(*line)) : std::nullopt;
        AddLine(merged, replacement.value_or(*line));
    }
    for (const std::string_view entry : packageEntries.Rest())
        AddLine(merged, entry);
    return merged;
}

void MergeKavaletDefinitions(const std::wstring& packageFileName, const std::wstring& packageFile,
                             const std::wstring& hostFolder, Platform& platform) {
    FileSystem& files = platform.files;
    const std::wstring current = hostFolder + DefinitionFileName;
    const std::wstring former = hostFolder + FormerFileName;
    if (!FileExists(files, current))
        return;
    // Both are read before anything moves: a package file that cannot be read costs nothing.
    const std::string merged =
        MergedKavaletDefinitions(files.Read(current), files.Read(packageFile));
    if (FileExists(files, former))
        files.Delete(former);
    files.Rename(current, former);
    files.Write(hostFolder + packageFileName, merged);
}

} // namespace tamblin
