#include "platform/win32/win32_work_progress.h"

namespace tamblin {

void Win32WorkProgress::Begin(const std::wstring& text, const std::wstring& folder) {
    work = std::make_unique<Work>();
    work->text = text;
    work->folder = folder;
    work->begin = work->painted = GetTickCount64();
}

void Win32WorkProgress::Advance(double part) {
    const ULONGLONG now = GetTickCount64();
    if (!work || now - work->painted < ProgressWindow::betweenPictures)
        return;
    ShowIfLong();
    if (work->window)
        work->window->Show(static_cast<int>(part * ProgressWindow::fullBar));
    LetPaint();
    work->painted = GetTickCount64();
}

void Win32WorkProgress::ShowIfLong() {
    if (work && !work->window && GetTickCount64() - work->begin >= ProgressWindow::patience)
        work->window = std::make_unique<ProgressWindow>(owner(), work->text, work->folder);
}

void Win32WorkProgress::End() noexcept {
    work.reset();
}

} // namespace tamblin
