// unlha x "PATH": unpacks an archive into the current folder. Exits with 0 or the number of the
// failure (platform/lzh/lzh_error.h), after one line on standard error about it.
#include <cstdio>
#include <string>

#include "platform/lzh/extractor.h"
#include "platform/posix/iconv_code_pages.h"
#include "platform/posix/lzh_file_source.h"
#include "platform/posix/lzh_folder_target.h"

using namespace tamblin;
using namespace tamblin::lzh;

namespace {

ExtractionResult Extract(const std::string& path) {
    try {
        LzhFileSource source(path);
        LzhFolderTarget target(".");
        IconvCodePages codePages;
        return Extractor(source, target, codePages).Run();
    } catch (const LzhError& error) {
        return {error.Failure(), {}, error.Detail()};
    }
}

} // namespace

int main(int argumentCount, char** arguments) {
    ExtractionResult result{LzhFailure::BadCommand, {}, L"usage: unlha x \"PATH\""};
    if (argumentCount == 3 && std::string(arguments[1]) == "x")
        result = Extract(arguments[2]);
    if (!result.Succeeded())
        std::fprintf(stderr, "unlha: %s\n", ToUtf8(result.Message()).c_str());
    return static_cast<int>(result.failure);
}
