#include "base/run_time_error.h"

#include "base/text.h"

namespace tamblin {

RunTimeError RunTimeError::AsFatal() const {
    RunTimeError error(*this);
    error.fatal = true;
    return error;
}

RunTimeError RunTimeError::WithPath(const std::wstring& fileOrFolder) const {
    RunTimeError error(*this);
    if (error.path.empty())
        error.path = fileOrFolder;
    return error;
}

std::wstring RunTimeError::Text() const {
    switch (number) {
        case ErrorNumber::OutOfMemory:
            return L"メモリが足りません。";
        case ErrorNumber::SubscriptOutOfRange:
            return L"番号が使える範囲を超えています。";
        case ErrorNumber::BadFileName:
            return L"ファイル名が正しくありません。";
        case ErrorNumber::FileNotFound:
            return L"ファイルが見つかりません。";
        case ErrorNumber::FileAlreadyOpen:
            return L"ファイルはすでに開かれています。";
        case ErrorNumber::DeviceIo:
            return L"デバイスの入出力でエラーが起きました。";
        case ErrorNumber::FileAlreadyExists:
            return L"同じ名前のファイルがすでにあります。";
        case ErrorNumber::DiskFull:
            return L"ディスクの空き容量が足りません。";
        case ErrorNumber::TooManyFiles:
            return L"ファイルの数が多すぎます。";
        case ErrorNumber::DeviceUnavailable:
            return L"デバイスを使用できません。";
        case ErrorNumber::PermissionDenied:
            return L"アクセスが許可されていません。ほかのプログラムが使用している可能性があります"
                   L"。";
        case ErrorNumber::DiskNotReady:
            return L"ディスクの準備ができていません。";
        case ErrorNumber::PathFileAccess:
            return L"ファイルまたはフォルダを操作できません。";
        case ErrorNumber::PathNotFound:
            return L"フォルダが見つかりません。";
    }
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
