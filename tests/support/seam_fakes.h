// Fakes of what the program asks of its surroundings, but for the disk and what the shell does to
// it.
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "base/run_time_error.h"
#include "platform/earlier_copy.h"
#include "platform/lzh/lzh_error.h"
#include "platform/lzh/unlha_command.h"
#include "platform/platform.h"
#include "support/native_ansi_code_page.h"

namespace tamblin {

// Records the programs that a test starts.
class ProgramStarterFake : public ProgramStarter {
  public:
    std::vector<std::wstring> started; // command lines
    std::vector<std::wstring> shown;   // documents
    // Called at the moment of the start, so that a test can look at the disk as the program does.
    std::function<void(const std::wstring&)> onStart;
    std::function<void(const std::wstring&)> onShow;
    // With a number here, StartMinimised records, calls onStart and throws.
    std::optional<ErrorNumber> failure;

    void StartMinimised(const std::wstring& commandLine) override {
        started.push_back(commandLine);
        if (onStart)
            onStart(commandLine);
        if (failure)
            throw RunTimeError(*failure);
    }
    void ShowMinimised(const std::wstring& document) override {
        shown.push_back(document);
        if (onShow)
            onShow(document);
    }
};

// Records the message boxes of a test and answers its questions.
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

// Counts how often an operation gave way, and lets a test act at that moment.
class EventLoopFake : public EventLoop {
  public:
    size_t yields = 0;
    std::function<void()> onYield;

    void Yield() override {
        ++yields;
        if (onYield)
            onYield();
    }
};

// Stands for the archive library: records its calls and lets a test unpack what it likes.
class UnlhaFake : public Unlha {
  public:
    struct Call {
        void* window;
        std::wstring command;
        std::wstring output;
        unsigned outputSize;

        bool operator==(const Call&) const = default;
    };

    std::vector<Call> calls;
    // Given the archive's path; fills the current folder and returns what Run returns. Without
    // it nothing is unpacked and Run returns 0.
    std::function<std::int16_t(const std::wstring& archive)> onUnpack;

    std::int16_t Run(void* window, const std::wstring& command, const std::wstring& output,
                     unsigned outputSize) override {
        calls.push_back({window, command, output, outputSize});
        const auto archive = lzh::ArchiveOfCommand(command);
        if (!archive)
            return static_cast<std::int16_t>(lzh::LzhFailure::BadCommand);
        return onUnpack ? onUnpack(*archive) : std::int16_t{0};
    }
};

// Remembers which work was under way and how far it came.
class WorkProgressFake : public WorkProgress {
  public:
    struct Work {
        std::wstring text;
        std::wstring folder;
        std::vector<double> parts; // as they were reported
        bool ended = false;
    };
    std::vector<Work> works;

    void Begin(const std::wstring& text, const std::wstring& folder) override {
        works.push_back({text, folder, {}, false});
    }
    void Advance(double part) override { works.back().parts.push_back(part); }
    void End() noexcept override { works.back().ended = true; }
};

// A copy that runs if the test says so, and counts how often it was brought to the front.
class EarlierCopyFake : public EarlierCopy {
  public:
    bool running = false;
    mutable int timesInFront = 0;

    bool IsRunning() const override { return running; }
    void BringToFront() const override { ++timesInFront; }
};

struct SeamFakes {
    ProgramStarterFake starter;
    MessageBoxesFake messages;
    EventLoopFake events;
    UnlhaFake unlha;
    NativeAnsiCodePage ansi;
    WorkProgressFake progress;

    Platform Over(FileSystem& files, DesktopShell& shell, const std::wstring& programFolder) {
        return {files, shell, starter, messages, events, unlha, ansi, progress, programFolder};
    }
};

} // namespace tamblin
