// Names to paths. The input: a byte that chooses the code page, one that says how long the folder
// is, folder and name; both are tried as bytes and as Unicode.
#include "fuzz_support.h"
#include "platform/lzh/entry_path.h"
#include "platform/posix/iconv_code_pages.h"

using namespace tamblin;
using namespace tamblin::lzh;

namespace {

void Try(const EntryHeader& header) {
    static IconvCodePages codePages;
    Demand(DisplayName(header, codePages).size() < 300);
    try {
        const auto path = PathOf(header, codePages);
        if (!path)
            return;
        Demand(!path->empty());
        for (const std::wstring& name : *path) {
            Demand(IsAllowedName(name));
            Demand(name.find_first_of(std::wstring(L"\\/:\0", 4)) == std::wstring::npos);
        }
    } catch (const LzhError& error) {
        Demand(error.Failure() == LzhFailure::ForbiddenName);
    }
}

std::u16string Wide(std::string_view bytes) {
    std::u16string text;
    for (std::size_t i = 0; i + 1 < bytes.size(); i += 2)
        text += static_cast<char16_t>(static_cast<unsigned char>(bytes[i]) |
                                      static_cast<unsigned char>(bytes[i + 1]) << 8);
    return text;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    constexpr unsigned codePages[] = {932, 932, 65001, 936, 949, 950, 1252, 0};
    if (size < 2)
        return 0;
    const std::string_view names = AsText(data, size).substr(2);
    EntryHeader header;
    header.method = (data[0] & 8) != 0 ? "-lhd-" : "-lh5-";
    header.codePage = codePages[data[0] % 8];
    header.system = (data[0] & 16) != 0 ? 'A' : 'M';
    const std::size_t folderSize = data[1] % (names.size() + 1);
    header.folder = names.substr(0, folderSize);
    header.name = names.substr(folderSize);
    Try(header);
    header.unicodeFolder = Wide(header.folder);
    Try(header);
    header.unicodeName = Wide(header.name);
    Try(header);
    return 0;
}
