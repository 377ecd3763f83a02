// The main window over two hosts, with characters and packages.
#pragma once

#include "app/main_window.h"
#include "support/commands.h"
#include "support/hosts.h"
#include "windows/window_scene.h"

namespace tamblin {

class MainWindowTest : public WindowScene {
  protected:
    void SetUp() override {
        for (const wchar_t* host : {L"C:\\Vimora", L"C:\\Second"}) {
            AddHost(fake.files, host);
            Register(state, host);
        }
        for (const wchar_t* name : {L"Alpha", L"Beta", L"表ソ能"})
            AddCharacter(fake.files, L"C:\\Vimora", name);
        for (const wchar_t* package : {L"a.lzh", L"abc.obl", L"ombrel.exe", L"new.lzh"})
            fake.files.AddFile(std::wstring(L"C:\\packages\\") + package);
        fake.files.AddFolder(L"C:\\packages\\inner");
        state.DefaultFolder = L"C:\\Vimora";
        state.ViewFolder = L"C:\\packages";
        state.KvaOption = L"OFF";
        fake.messages.answer = false;
    }

    Form1& Open() {
        form = &application.Open<Form1>(application, fake.platform, state, file, handOver);
        form->Show();
        Pump();
        return *form;
    }
    HWND Button(Command command) const {
        return Find(*form, ControlKind::Command, static_cast<int>(command));
    }
    HWND List(int number) const { return Find(*form, ControlKind::List, number); }
    std::wstring Status() const { return TextOf(Find(*form, ControlKind::Text, 2)); }
    Commands Enabled() const {
        return CommandsWhere([&](Command command) { return IsEnabled(Button(command)); });
    }
    int RowOf(HWND list, const std::wstring& entry) const {
        const auto entries = EntriesOf(list);
        return static_cast<int>(std::find(entries.begin(), entries.end(), entry) - entries.begin());
    }

    SettingsState state;
    SettingsFile file{fake.platform, state};
    HandOverFake handOver;
    Form1* form = nullptr;
};

} // namespace tamblin
