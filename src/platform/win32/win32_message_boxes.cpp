#include "platform/win32/win32_message_boxes.h"

namespace tamblin {
namespace {

UINT StyleOf(MessageIcon icon) {
    if (icon == MessageIcon::Information)
        return MB_ICONINFORMATION;
    return icon == MessageIcon::Stop ? MB_ICONHAND : 0;
}

} // namespace

// A box gives the focus back to its owner only when that was enabled before. A window that an
// operation holds disabled would lose it to another program.
int Win32MessageBoxes::Show(const std::wstring& text, UINT style) const {
    const HWND window = owner ? owner() : nullptr;
    const bool held = window && !IsWindowEnabled(window);
    if (held)
        EnableWindow(window, TRUE);
    const int answer = MessageBoxW(window, text.c_str(), L"Tamblin", style);
    if (held)
        EnableWindow(window, FALSE);
    return answer;
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
