#include "base/type_ahead.h"

#include "base/text.h"

namespace tamblin {
namespace {

// The first row from `first` on whose name begins with the text, going round.
std::optional<size_t> RowThatBegins(const std::wstring& text, size_t first, size_t count,
                                    const TypeAhead::NameAt& nameAt) {
    for (size_t step = 0; step < count; ++step) {
        const size_t row = (first + step) % count;
        if (UpperCase(nameAt(row)).starts_with(text))
            return row;
    }
    return std::nullopt;
}

} // namespace

std::optional<size_t> TypeAhead::Find(wchar_t letter, std::uint64_t milliseconds, size_t current,
                                      size_t count, const NameAt& nameAt) {
    if (milliseconds - lastTyped > PauseMilliseconds)
        typed.clear();
    const bool begins = typed.empty();
    if (letter < L' ' || (letter == L' ' && begins))
        return std::nullopt;
    lastTyped = milliseconds;
    typed += UpperCase(letter);
    if (const auto row = RowThatBegins(typed, begins ? current + 1 : current, count, nameAt))
        return row;
    return OneLetterOnly() ? RowThatBegins(typed.substr(0, 1), current + 1, count, nameAt)
                           : std::nullopt;
}

bool TypeAhead::OneLetterOnly() const {
    return typed.find_first_not_of(typed.front()) == std::wstring::npos;
}

} // namespace tamblin
