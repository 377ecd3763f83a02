// What the user sees of long work on files: what is done where, and how far it has come. Work that
// is over soon shows nothing.
#pragma once

#include <string>

namespace tamblin {

// One piece of work at a time. WorkUnderWay calls Begin and End.
class WorkProgress {
  public:
    virtual ~WorkProgress() = default;

    // `folder` is where the work is done.
    virtual void Begin(const std::wstring& text, const std::wstring& folder) = 0;
    // `part` goes from 0 to 1. To be called often: meanwhile the windows paint themselves.
    virtual void Advance(double part) = 0;
    virtual void End() noexcept = 0;
};

// The work lasts as long as one of these lives.
class WorkUnderWay {
  public:
    WorkUnderWay(WorkProgress& workProgress, const std::wstring& text, const std::wstring& folder)
        : progress(workProgress) {
        progress.Begin(text, folder);
    }
    ~WorkUnderWay() { progress.End(); }
    WorkUnderWay(const WorkUnderWay&) = delete;
    WorkUnderWay& operator=(const WorkUnderWay&) = delete;

    void Advance(double part) { progress.Advance(part); }

  private:
    WorkProgress& progress;
};

} // namespace tamblin
