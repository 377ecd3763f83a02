// Finds an entry by the letters that the user types one after another. After a pause the letters
// begin anew; one letter again and again goes from one entry to the next.
#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>

namespace tamblin {

class TypeAhead {
  public:
    // What the user takes the entry's name to be.
    using NameAt = std::function<std::wstring(size_t row)>;

    // The row to go to, if any: `current` is where the user is, `milliseconds` the time of the key.
    std::optional<size_t> Find(wchar_t letter, std::uint64_t milliseconds, size_t current,
                               size_t count, const NameAt& nameAt);

    static constexpr std::uint64_t PauseMilliseconds = 1000;

  private:
    bool OneLetterOnly() const;

    std::wstring typed; // in upper case
    std::uint64_t lastTyped = 0;
};

} // namespace tamblin
