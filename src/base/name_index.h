// Finds names without regard to letter case, in the time of one look-up each.
#pragma once

#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "base/text.h"

namespace tamblin {

class NameIndex {
  public:
    // The names have to outlive the index.
    explicit NameIndex(const std::vector<std::wstring>& names) {
        for (const std::wstring& name : names)
            byUpperCase.emplace(UpperCase(name), &name);
    }

    // The first of the names that is equal but for letter case, or null.
    const std::wstring* Find(std::wstring_view name) const {
        const auto found = byUpperCase.find(UpperCase(name));
        return found == byUpperCase.end() ? nullptr : found->second;
    }

  private:
    std::unordered_map<std::wstring, const std::wstring*> byUpperCase;
};

} // namespace tamblin
