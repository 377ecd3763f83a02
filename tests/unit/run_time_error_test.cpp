// The error that operations throw, and what the user reads of it.
#include "base/run_time_error.h"

#include <gtest/gtest.h>

#include <set>

namespace tamblin {
namespace {

TEST(RunTimeError, ReportsNumberAndText) {
    const RunTimeError error(ErrorNumber::FileNotFound);
    EXPECT_EQ(error.Number(), ErrorNumber::FileNotFound);
    EXPECT_EQ(error.Text(), L"ファイルが見つかりません。");
    EXPECT_EQ(error.Report(), L"実行時エラー '53':\n\nファイルが見つかりません。");
}

TEST(RunTimeError, SaysWhatHasFailed) {
    const std::pair<int, const wchar_t*> texts[] = {
        {7, L"メモリが足りません。"},
        {9, L"番号が使える範囲を超えています。"},
        {52, L"ファイル名が正しくありません。"},
        {53, L"ファイルが見つかりません。"},
        {55, L"ファイルはすでに開かれています。"},
        {57, L"デバイスの入出力でエラーが起きました。"},
        {58, L"同じ名前のファイルがすでにあります。"},
        {61, L"ディスクの空き容量が足りません。"},
        {67, L"ファイルの数が多すぎます。"},
        {68, L"デバイスを使用できません。"},
        {70, L"アクセスが許可されていません。ほかのプログラムが使用している可能性があります。"},
        {71, L"ディスクの準備ができていません。"},
        {75, L"ファイルまたはフォルダを操作できません。"},
        {76, L"フォルダが見つかりません。"},
        {9999, L"原因の分からないエラーです。"},
    };
    for (const auto& [number, text] : texts)
        EXPECT_EQ(RunTimeError(static_cast<ErrorNumber>(number)).Text(), text) << number;
}

TEST(RunTimeError, ReportsTheFileAndWhatHelps) {
    const RunTimeError error(ErrorNumber::PermissionDenied, L"C:\\Vimora\\mikan.obl");
    EXPECT_EQ(error.Report(),
              L"実行時エラー '70':\n\n" + error.Text() + L"\n\nC:\\Vimora\\mikan.obl\n\n" +
                  L"使用しているプログラム（Vimora など）を終了してから、もう一度お試"
                  L"しください。");
    EXPECT_EQ(RunTimeError(ErrorNumber::FileNotFound, L"C:\\a").Report(),
              L"実行時エラー '53':\n\nファイルが見つかりません。\n\nC:\\a");
}

TEST(RunTimeError, AdvisesWhereTheUserCanDoSomething) {
    std::set<std::wstring> advice;
    for (const int number : {70, 75, 61})
        EXPECT_TRUE(advice.insert(RunTimeError(static_cast<ErrorNumber>(number)).Advice()).second);
    EXPECT_EQ(advice.count(L""), 0U);
    for (const int number : {7, 9, 52, 53, 55, 57, 58, 67, 68, 71, 76})
        EXPECT_EQ(RunTimeError(static_cast<ErrorNumber>(number)).Advice(), L"") << number;
    EXPECT_EQ(RunTimeError(ErrorNumber::DiskFull, L"C:\\a", L"one's own").Advice(), L"one's own");
}

TEST(RunTimeError, BecomesFatalOnlyInTheCopy) {
    const RunTimeError error(ErrorNumber::DiskFull, L"C:\\a");
    const RunTimeError fatal = error.AsFatal();
    EXPECT_FALSE(error.IsFatal());
    EXPECT_TRUE(fatal.IsFatal());
    EXPECT_EQ(fatal.Number(), ErrorNumber::DiskFull);
    EXPECT_EQ(fatal.Report(), error.Report());
}

TEST(RunTimeError, IsCaughtAsAnException) {
    try {
        throw RunTimeError(ErrorNumber::PathNotFound);
    } catch (const std::exception& error) {
        EXPECT_STRNE(error.what(), "");
        return;
    }
    FAIL();
}

} // namespace
} // namespace tamblin
