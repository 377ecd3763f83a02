// Tells a second copy of the program, started from whatever folder, that one is running already.
// The first copy of a user's session holds its place for as long as its object lives.
#pragma once

#include <string>

#include "platform/earlier_copy.h"
#include "platform/win32/win32_handle.h"

namespace tamblin {

class ProgramInstance : public EarlierCopy {
  public:
    explicit ProgramInstance(const std::wstring& name = L"Local\\Tamblin");

    bool IsRunning() const override { return !isFirst; }
    void BringToFront() const override;

  private:
    UniqueHandle mutex;
    bool isFirst = false;
};

} // namespace tamblin
