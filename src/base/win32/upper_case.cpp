#include "base/upper_case.h"

#include <windows.h>

#include <numeric>
#include <string>

namespace tamblin {
namespace {

// All letters are asked for at once: a call for each text takes longer than looking its letters up,
// and some versions of Windows change pairs of surrogates, which file systems do not.
std::wstring UpperCaseOfAllLetters() {
    std::wstring letters(0x10000, L'\0');
    std::iota(letters.begin(), letters.end(), L'\0');
    LCMapStringEx(LOCALE_NAME_INVARIANT, LCMAP_UPPERCASE, letters.data(), 0x10000, letters.data(),
                  0x10000, nullptr, nullptr, 0);
    return letters;
}

} // namespace

wchar_t UpperCase(wchar_t letter) {
    static const std::wstring upperCase = UpperCaseOfAllLetters();
    return upperCase[letter];
}

} // namespace tamblin
