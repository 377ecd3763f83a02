#include "setup/wizard_window.h"

namespace tamblin {
namespace {

std::wstring Explanation(const std::wstring& programFolder) {
    return L"Vimoraフォルダがまだ登録されていません。\r\n"
           L"このバージョンのTamblinは、Vimoraフォルダを自動では設定できません。\r\n"
           L"\r\n"
           L"お使いになるには、次の内容のファイル tamb.ini を、メモ帳などで\r\n" +
           programFolder +
           L"\r\n"
           L"に作ってください（C:\\Vimora は、ombrel.exe があるフォルダに置き換えます）。\r\n"
           L"そのあと、Tamblinをもう一度起動してください。\r\n"
           L"\r\n"
           L"VERSION=Ver.0.61\r\n"
           L"DEFAULT=C:\\Vimora\r\n"
           L"KVAOPTION=OFF\r\n"
           L"VMRFOLDER=C:\\Vimora";
}

} // namespace

Form2::Form2(Application& owner, HandOver& windows, const std::wstring& programFolder)
    : Form(owner, 2, L"環境設定ウィザード  - Tamblin -", FormFrame::Fixed), handOver(windows) {
    label1.SetText(Explanation(programFolder));
    command3.onClick = [this] {
        handOver.Show(NextWindow::EndProgram);
    };
    SetFirstFocus(command3);
    SetLayout(MakeLayout());
}

std::unique_ptr<LayoutItem> Form2::MakeLayout() {
    auto whole = Column();
    whole->Margin(10, 10).Add(label1, 1).Gap(10).Add(command3, 0, Across::End);
    return whole;
}

} // namespace tamblin
