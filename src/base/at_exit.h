// Does something when a block is left, whichever way.
#pragma once

#include <utility>

namespace tamblin {

template <class Action>
class AtExit {
  public:
    explicit AtExit(Action whatToDo) : action(std::move(whatToDo)) {}
    ~AtExit() { action(); }
    AtExit(const AtExit&) = delete;
    AtExit& operator=(const AtExit&) = delete;

  private:
    Action action;
};

} // namespace tamblin
