#include "base/run_time_error.h"

#include <utility>

#include "base/text.h"

namespace tamblin {
namespace {

constexpr std::pair<ErrorNumber, const wchar_t*> Texts[] = {
    {ErrorNumber::OutOfMemory, L"メモリが足りません。"},
    {ErrorNumber::SubscriptOutOfRange, L"番号が使える範囲を超えています。"},
    {ErrorNumber::BadFileName, L"ファイル名が正しくありません。"},
    {ErrorNumber::FileNotFound, L"ファイルが見つかりません。"},
    {ErrorNumber::FileAlreadyOpen, L"ファイルはすでに開かれています。"},
    {ErrorNumber::DeviceIo, L"デバイスの入出力でエラーが起きました。"},
    {ErrorNumber::FileAlreadyExists, L"同じ名前のファイルがすでにあります。"},
    {ErrorNumber::DiskFull, L"ディスクの空き容量が足りません。"},
    {ErrorNumber::TooManyFiles, L"ファイルの数が多すぎます。"},
    {ErrorNumber::DeviceUnavailable, L"デバイスを使用できません。"},
    {ErrorNumber::PermissionDenied,
     L"アクセスが許可されていません。ほかのプログラムが使用している可能性があります。"},
    {ErrorNumber::DiskNotReady, L"ディスクの準備ができていません。"},
    {ErrorNumber::PathFileAccess, L"ファイルまたはフォルダを操作できません。"},
    {ErrorNumber::PathNotFound, L"フォルダが見つかりません。"},
};

} // namespace

RunTimeError RunTimeError::AsFatal() const {
    RunTimeError error(*this);
    error.fatal = true;
    return error;
}

std::wstring RunTimeError::Text() const {
    for (const auto& [ofNumber, text] : Texts)
        if (ofNumber == number)
            return text;
    return L"原因の分からないエラーです。";
}

std::wstring RunTimeError::Advice() const {
    if (!ownAdvice.empty())
        return ownAdvice;
    switch (number) {
        case ErrorNumber::PermissionDenied:
            return L"使用しているプログラム（Vimora など）を終了してから、もう一度お試しください。";
        case ErrorNumber::PathFileAccess:
            return L"読み取り専用か、変更する許可がない可能性があります。Program Files "
                   L"の下などにあるときは、書き込めるフォルダへ移してください。";
        case ErrorNumber::DiskFull:
            return L"不要なファイルを削除して空きを作ってから、もう一度お試しください。";
        default:
            return {};
    }
}

std::wstring RunTimeError::Report() const {
    std::wstring report =
        WithGapFilled(L"実行時エラー '{}':", std::to_wstring(static_cast<int>(number)));
    for (const std::wstring& part : {Text(), path, Advice()})
        if (!part.empty())
            report += L"\n\n" + part;
    return report;
}

} // namespace tamblin
