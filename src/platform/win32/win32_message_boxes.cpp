#include "platform/win32/win32_message_boxes.h"

namespace tamblin {
namespace {

UINT StyleOf(MessageIcon icon) {
    switch (icon) {
        case MessageIcon::Information:
            return MB_ICONINFORMATION;
        case MessageIcon::Stop:
            return MB_ICONHAND;
        case MessageIcon::None:
            break;
    }
    return 0;
}

} // namespace

int Win32MessageBoxes::Show(const std::wstring& text, UINT style) const {
    return MessageBoxW(owner ? owner() : nullptr, text.c_str(), L"Tamblin", style);
}

void Win32MessageBoxes::Inform(const std::wstring& text, MessageIcon icon) {
    Show(text, MB_OK | StyleOf(icon));
}

bool Win32MessageBoxes::AskOkCancel(const std::wstring& text) {
    return Show(text, MB_OKCANCEL) == IDOK;
}

bool Win32MessageBoxes::AskYesNo(const std::wstring& text) {
    return Show(text, MB_YESNO) == IDYES;
}

bool Win32MessageBoxes::AskRetryCancel(const std::wstring& text) {
    return Show(text, MB_RETRYCANCEL) == IDRETRY;
}

} // namespace tamblin
