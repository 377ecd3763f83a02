#include "install/kavalet_definitions.h"

#include <algorithm>
#include <numeric>
#include <optional>
#include <vector>

#include "base/byte_lines.h"
#include "base/range_minimum.h"
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

// A package is a stranger's file: however long it is, each line of the host's file costs one
// search. Sorted by their texts, all entries with one beginning stand side by side; of those, the
// first in the package's order counts.
class PackageEntries {
  public:
    explicit PackageEntries(std::string_view package)
        : entries(EntriesOf(package)),
          sorted(entries.size()),
          places(entries.size()),
          unused(entries.size()) {
        std::iota(sorted.begin(), sorted.end(), size_t{0});
        std::sort(sorted.begin(), sorted.end(),
                  [this](size_t a, size_t b) { return entries[a] < entries[b]; });
        for (size_t place = 0; place < sorted.size(); ++place) {
            places[sorted[place]] = place;
            unused.Set(place, sorted[place]);
        }
    }

    // The first unused entry that starts with the key; it is used from now on.
    std::optional<std::string_view> Take(std::string_view key) {
        const auto isBefore = [&](size_t index, std::string_view begin) {
            return entries[index].substr(0, key.size()) < begin;
        };
        const auto isBehind = [&](std::string_view begin, size_t index) {
            return begin < entries[index].substr(0, key.size());
        };
        const auto first = std::lower_bound(sorted.begin(), sorted.end(), key, isBefore);
        const auto behind = std::upper_bound(first, sorted.end(), key, isBehind);
        const size_t index = unused.Smallest(static_cast<size_t>(first - sorted.begin()),
                                             static_cast<size_t>(behind - sorted.begin()));
        if (index == RangeMinimum::None)
            return std::nullopt;
        unused.Set(places[index], RangeMinimum::None);
        return entries[index];
    }

    // The unused entries to append. The very first entry is never one of them.
    std::vector<std::string_view> Rest() const {
        std::vector<std::string_view> rest;
        for (size_t index = 1; index < entries.size(); ++index)
            if (unused.Smallest(places[index], places[index] + 1) != RangeMinimum::None)
                rest.push_back(entries[index]);
        return rest;
    }

  private:
    static std::vector<std::string_view> EntriesOf(std::string_view package) {
        std::vector<std::string_view> found;
        LineReader lines(package);
        while (const auto line = lines.Next())
            if (IsEntry(*line))
                found.push_back(*line);
        return found;
    }

    const std::vector<std::string_view> entries;
    std::vector<size_t> sorted; // indices of entries
    std::vector<size_t> places; // of each entry in the sorted order
    RangeMinimum unused;        // for each place the entry's index, while it is unused
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
    if (FileExists(files, former))
        files.Delete(former);
    files.Copy(current, former);
    files.Write(current, merged);
    files.Rename(current, hostFolder + packageFileName);
}

} // namespace tamblin
