#include "app/dropped_packages.h"

#include "base/character_files.h"
#include "base/text.h"
#include "platform/file_lists.h"

namespace tamblin {
namespace {

constexpr wchar_t NoPackageText[] = L"ドロップされたものの中に、パッケージ（.lzh）がありません。";
constexpr wchar_t SeveralFoldersText[] =
    L"パッケージが、いくつかのフォルダに分かれています。\r\n"
    L"１つのフォルダにあるものだけをドロップしてください。";

} // namespace

DroppedPackages::DroppedPackages(const std::vector<std::wstring>& paths, FileSystem& files) {
    for (const std::wstring& path : paths) {
        if (!IsArchive(path) || !ProbeFile(files, path))
            continue;
        const std::wstring itsFolder(WithoutLast(path, NameOf(path).size()));
        if (names.empty())
            folder = itsFolder;
        else if (!EqualIgnoringCase(folder, itsFolder))
            fault = SeveralFoldersText;
        names.emplace_back(NameOf(path));
    }
    if (names.empty())
        fault = NoPackageText;
}

} // namespace tamblin
