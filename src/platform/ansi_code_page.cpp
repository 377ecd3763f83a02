#include "platform/ansi_code_page.h"

#include "base/run_time_error.h"

namespace tamblin {

std::string AnsiCodePage::EncodeName(std::wstring_view name) {
    if (auto bytes = Encode(name))
        return std::move(*bytes);
    throw RunTimeError(ErrorNumber::BadFileName, std::wstring(name),
                       L"この名前には、設定のファイルに書けない文字が入っています。"
                       L"名前を変えてから、もう一度お試しください。");
}

} // namespace tamblin
