// The system's message boxes, owned by the window that the program is showing.
#pragma once

#include <windows.h>

#include <functional>

#include "platform/message_boxes.h"

namespace tamblin {

class Win32MessageBoxes : public MessageBoxes {
  public:
    // Asked before every box; the box is modal to that window. A null window owns nothing.
    using Owner = std::function<HWND()>;

    explicit Win32MessageBoxes(Owner ownerOfBoxes) : owner(std::move(ownerOfBoxes)) {}

    void Inform(const std::wstring& text, MessageIcon icon = MessageIcon::None) override;
    bool AskOkCancel(const std::wstring& text) override;
    bool AskYesNo(const std::wstring& text) override;
    bool AskRetryCancel(const std::wstring& text) override;

  private:
    int Show(const std::wstring& text, UINT style) const;

    Owner owner;
};

} // namespace tamblin
