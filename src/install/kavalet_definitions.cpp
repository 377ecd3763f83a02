#include "install/kavalet_definitions.h"

#include <cstdint>
#include <optional>
#include <vector>

#include "base/byte_lines.h"
#include "base/text.h"
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

// A package is a stranger's file: far more than any sensible two files need, and soon done.
constexpr std::uint64_t MostComparisons = 10'000'000;

class PackageEntries {
  public:
    explicit PackageEntries(std::string_view package) {
        LineReader lines(package);
        while (const auto line = lines.Next())
            if (IsEntry(*line))
                entries.push_back({*line});
    }

    // The first unused entry that starts with the key; it is used from now on.
    std::optional<std::string_view> Take(std::string_view key) {
        for (Entry& entry : entries) {
            if (++comparisons > MostComparisons)
                break;
            if (entry.used || !entry.text.starts_with(key))
                continue;
            entry.used = true;
            return entry.text;
        }
        return std::nullopt;
    }

    // The unused entries to append. The very first entry is never one of them.
    std::vector<std::string_view> Rest() const {
        std::vector<std::string_view> rest;
        for (size_t index = 1; index < entries.size(); ++index)
            if (!entries[index].used)
                rest.push_back(entries[index].text);
        return rest;
    }

  private:
    struct Entry {
        std::string_view text;
        bool used = false;
    };
    std::vector<Entry> entries;
    std::uint64_t comparisons = 0;
};

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

bool MergesDefinitions(const std::wstring& folder, const std::wstring& name,
                       const SettingsState& state) {
    return !folder.empty() && state.KvaOption == L"ON" && EqualIgnoringCase(name, L"KVA.DEF");
}

void CheckDefinitionsReplaceable(const std::wstring& hostFolder, Platform& platform) {
    const std::wstring current = hostFolder + DefinitionFileName;
    if (FileExists(platform.files, current))
        platform.files.CheckReplaceable(current);
}

void MergeKavaletDefinitions(const std::wstring& packageFileName, const std::wstring& packageFile,
                             const std::wstring& hostFolder, Platform& platform) {
    FileSystem& files = platform.files;
    const std::wstring current = hostFolder + DefinitionFileName;
    const std::wstring former = hostFolder + FormerFileName;
    if (!FileExists(files, current))
        return;
    // Both are read before anything is touched: a package file that cannot be read costs nothing.
    const std::string merged =
        MergedKavaletDefinitions(files.Read(current), files.Read(packageFile));
    files.CheckReplaceable(current);
    files.Copy(current, former);
    files.Write(current, merged);
    files.Rename(current, hostFolder + packageFileName);
}

} // namespace tamblin
