// Prints src/base/posix/upper_case_table.inc from what this Windows takes for the upper-case forms
// of letters. tools/check-case-table runs it.
#include <cstdio>
#include <vector>

#include "base/upper_case.h"

namespace {

struct Run {
    int first;
    int last;
    int step;
    int distance;
};

// Whether the letter goes on with the run: the next one or, throughout the run, the next but one.
bool Continues(const Run& run, int letter, int distance) {
    const int step = letter - run.last;
    const bool isOpen = run.first == run.last && step <= 2;
    return distance == run.distance && (isOpen || step == run.step);
}

std::vector<Run> CaseRuns() {
    std::vector<Run> runs;
    for (int letter = 0; letter < 0x10000; ++letter) {
        const int distance = tamblin::UpperCase(static_cast<wchar_t>(letter)) - letter;
        if (distance == 0)
            continue;
        if (runs.empty() || !Continues(runs.back(), letter, distance)) {
            runs.push_back({letter, letter, 1, distance});
            continue;
        }
        runs.back().step = letter - runs.back().last;
        runs.back().last = letter;
    }
    return runs;
}

} // namespace

int main() {
    std::puts("// Made by tools/check-case-table --fix: first, last, step, distance.");
    for (const Run& run : CaseRuns())
        std::printf("{0x%04X, 0x%04X, %d, %d},\n", run.first, run.last, run.step, run.distance);
}
