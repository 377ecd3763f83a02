// The program's message boxes. Every one is titled "Tamblin".
#pragma once

#include <string>

namespace tamblin {

enum class MessageIcon { None, Information, Stop };

class MessageBoxes {
  public:
    virtual ~MessageBoxes() = default;

    virtual void Inform(const std::wstring& text, MessageIcon icon = MessageIcon::None) = 0;
    // The questions answer true for OK, Yes and Retry.
    virtual bool AskOkCancel(const std::wstring& text) = 0;
    virtual bool AskYesNo(const std::wstring& text) = 0;
    virtual bool AskRetryCancel(const std::wstring& text) = 0;
};

} // namespace tamblin
