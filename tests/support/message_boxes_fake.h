// Records the message boxes of a test and answers its questions.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "platform/message_boxes.h"

namespace tamblin {

class MessageBoxesFake : public MessageBoxes {
  public:
    enum class Kind { Inform, AskOkCancel, AskYesNo, AskRetryCancel };

    struct Box {
        Kind kind;
        std::wstring text;
        MessageIcon icon = MessageIcon::None;

        bool operator==(const Box&) const = default;
    };

    std::vector<Box> shown;
    bool answer = true; // to every question
    // Called while a box stands on the screen, before it is answered.
    std::function<void(const Box&)> onShow;

    std::vector<std::wstring> Texts() const {
        std::vector<std::wstring> texts;
        for (const Box& box : shown)
            texts.push_back(box.text);
        return texts;
    }

    void Inform(const std::wstring& text, MessageIcon icon = MessageIcon::None) override {
        Show({Kind::Inform, text, icon});
    }
    bool AskOkCancel(const std::wstring& text) override { return Ask(Kind::AskOkCancel, text); }
    bool AskYesNo(const std::wstring& text) override { return Ask(Kind::AskYesNo, text); }
    bool AskRetryCancel(const std::wstring& text) override {
        return Ask(Kind::AskRetryCancel, text);
    }

  private:
    void Show(const Box& box) {
        shown.push_back(box);
        if (onShow)
            onShow(box);
    }
    bool Ask(Kind kind, const std::wstring& text) {
        Show({kind, text});
        return answer;
    }
};

} // namespace tamblin
