#include "base/upper_case.h"

#include <algorithm>
#include <iterator>

namespace tamblin {
namespace {

// A run of lower-case letters and the distance to their upper-case forms. With a step of 2 the
// lower-case letters are every second one, from `first` on.
struct CaseRun {
    wchar_t first;
    wchar_t last;
    int step;
    int distance;
};

constexpr CaseRun caseRuns[] = {
#include "base/posix/upper_case_table.inc"
};

} // namespace

wchar_t UpperCase(wchar_t letter) {
    if (letter < L'a')
        return letter;
    const auto* run =
        std::lower_bound(std::begin(caseRuns), std::end(caseRuns), letter,
                         [](const CaseRun& r, wchar_t wanted) { return r.last < wanted; });
    if (run == std::end(caseRuns) || letter < run->first || (letter - run->first) % run->step != 0)
        return letter;
    return static_cast<wchar_t>(letter + run->distance);
}

} // namespace tamblin
