#include "support/message_boxes_fake.h"

namespace tamblin {

std::vector<std::wstring> MessageBoxesFake::Texts() const {
    std::vector<std::wstring> texts;
    for (const Box& box : shown)
        texts.push_back(box.text);
    return texts;
}

void MessageBoxesFake::Show(Box box) {
    shown.push_back(box);
    if (onShow)
        onShow(box);
}

bool MessageBoxesFake::Ask(Kind kind, const std::wstring& text) {
    Show({kind, text});
    return answer;
}

void MessageBoxesFake::Inform(const std::wstring& text, MessageIcon icon) {
    Show({Kind::Inform, text, icon});
}

bool MessageBoxesFake::AskOkCancel(const std::wstring& text) {
    return Ask(Kind::AskOkCancel, text);
}

bool MessageBoxesFake::AskYesNo(const std::wstring& text) {
    return Ask(Kind::AskYesNo, text);
}

bool MessageBoxesFake::AskRetryCancel(const std::wstring& text) {
    return Ask(Kind::AskRetryCancel, text);
}

} // namespace tamblin
