// Remembers which work was under way and how far it came.
#pragma once

#include <string>
#include <vector>

#include "platform/work_progress.h"

namespace tamblin {

class WorkProgressFake : public WorkProgress {
  public:
    struct Work {
        std::wstring text;
        std::wstring folder;
        std::vector<double> parts; // as they were reported
        bool ended = false;
    };
    std::vector<Work> works;

    void Begin(const std::wstring& text, const std::wstring& folder) override {
        works.push_back({text, folder, {}, false});
    }
    void Advance(double part) override { works.back().parts.push_back(part); }
    void End() noexcept override { works.back().ended = true; }
};

} // namespace tamblin
