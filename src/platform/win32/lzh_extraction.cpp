#include "platform/win32/lzh_extraction.h"

#include <exception>

#include "base/run_time_error.h"
#include "platform/win32/lzh_code_pages.h"
#include "platform/win32/lzh_file_source.h"
#include "platform/win32/lzh_folder_target.h"

namespace tamblin {

using lzh::LzhFailure;

lzh::ExtractionResult ExtractIntoCurrentFolder(const std::wstring& archive,
                                               lzh::HiddenFiles hiddenFiles,
                                               const lzh::ExtractionProgress& progress) {
    try {
        LzhFileSource source(archive);
        LzhFolderTarget target(L"");
        LzhCodePages codePages;
        return lzh::Extractor(source, target, codePages, hiddenFiles, progress).Run();
    } catch (const lzh::LzhError& error) {
        return {error.Failure(), {}, error.Detail()};
    } catch (const RunTimeError&) {
        return {LzhFailure::CannotOpenArchive, {}, {}};
    } catch (const std::exception&) {
        return {LzhFailure::OutOfMemory, {}, {}};
    }
}

} // namespace tamblin
