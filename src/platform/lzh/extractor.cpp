#include "platform/lzh/extractor.h"

#include <new>
#include <optional>

#include "base/run_time_error.h"
#include "platform/lzh/crc16.h"
#include "platform/lzh/entry_list.h"
#include "platform/lzh/entry_path.h"
#include "platform/lzh/mac_binary.h"

namespace tamblin::lzh {
namespace {

std::wstring Widened(const std::string& ascii) {
    return {ascii.begin(), ascii.end()};
}

std::wstring Printable(const std::string& method) {
    std::wstring text;
    for (const char letter : method)
        text += letter >= 0x20 && letter < 0x7F ? static_cast<wchar_t>(letter) : L'?';
    return text;
}

// Counts and checks what is unpacked on its way to the file.
class CheckedSink : public ByteSink {
  public:
    CheckedSink(ByteSink& byteSink, const PackedInput& packedInput, std::uint64_t archiveSize,
                const ExtractionProgress& extractionProgress)
        : sink(byteSink), input(packedInput), total(archiveSize), progress(extractionProgress) {}

    void Write(const std::uint8_t* bytes, std::size_t size) override {
        crc = Crc16(crc, bytes, size);
        sink.Write(bytes, size);
        if (progress)
            progress(input.Position(), total);
    }

    std::uint16_t Crc() const { return crc; }

  private:
    ByteSink& sink;
    const PackedInput& input;
    const std::uint64_t total;
    const ExtractionProgress& progress;
    std::uint16_t crc = 0;
};

// A header that cannot be read has no name to be reported by, but a place.
std::optional<EntryHeader> NextOf(EntryList& entries) {
    try {
        return entries.Next();
    } catch (const LzhError& error) {
        if (entries.Offset() == 0)
            throw;
        throw LzhError(error.Failure(), L"at byte " + std::to_wstring(entries.Offset()));
    }
}

LzhFailure FailureOf(const RunTimeError& error) {
    switch (error.Number()) {
        case ErrorNumber::OutOfMemory:
            return LzhFailure::OutOfMemory;
        case ErrorNumber::DiskFull:
            return LzhFailure::DiskFull;
        default:
            return LzhFailure::CannotWrite;
    }
}

} // namespace

std::wstring ExtractionResult::Message() const {
    std::wstring text = Widened(Describe(failure));
    if (!entry.empty())
        text = entry + L": " + text;
    if (!detail.empty())
        text += L" (" + detail + L")";
    return text;
}

Extractor::Extractor(ArchiveSource& archive, ExtractionTarget& extractionTarget, CodePages& pages,
                     HiddenFiles whatIsHidden, ExtractionProgress extractionProgress)
    : source(archive),
      target(extractionTarget),
      codePages(pages),
      hiddenFiles(whatIsHidden),
      progress(std::move(extractionProgress)),
      input(archive) {}

ExtractionResult Extractor::Run() {
    ExtractionResult result;
    try {
        try {
            ExtractAll();
        } catch (const LzhError& error) {
            result = {error.Failure(), {}, error.Detail()};
        } catch (const RunTimeError& error) {
            result = {FailureOf(error), {}, error.Text()};
        }
        if (!result.Succeeded() && inEntry)
            result.entry = DisplayName(entry, codePages);
    } catch (const std::bad_alloc&) {
        result = {LzhFailure::OutOfMemory, {}, {}};
    } catch (const std::exception&) {
        result = {LzhFailure::CannotWrite, {}, {}};
    }
    return result;
}

void Extractor::ExtractAll() {
    EntryList entries(source);
    inEntry = false;
    while (auto next = NextOf(entries)) {
        entry = std::move(*next);
        inEntry = true;
        ExtractEntry();
        inEntry = false;
        if (progress)
            progress(entry.dataOffset + entry.packedSize, source.Size());
    }
}

void Extractor::ExtractEntry() {
    if (!entry.FitsInto(source.Size()))
        throw LzhError(LzhFailure::Truncated);
    if (entry.IsLink())
        return;
    const std::optional<EntryPath> path = PathOf(entry, codePages);
    if (!path)
        return;
    if (entry.IsFolder())
        target.MakeFolders(*path);
    else
        ExtractFile(*path);
}

void Extractor::ExtractFile(const EntryPath& path) {
    Decoder* decoder = decoders.Find(entry.method);
    if (decoder == nullptr)
        throw LzhError(LzhFailure::UnknownMethod, Printable(entry.method));
    const auto file = target.NewFile(path);
    MacBinaryFilter unwrapped(entry, *file);
    const bool mayBeWrapped = MayBeMacBinary(entry);
    CheckedSink sink(mayBeWrapped ? static_cast<ByteSink&>(unwrapped) : *file, input, source.Size(),
                     progress);

    input.Open(entry.dataOffset, entry.packedSize);
    decoder->Decode(input, entry.originalSize, sink);
    if (mayBeWrapped)
        unwrapped.Finish();
    if (entry.crc && *entry.crc != sink.Crc())
        throw LzhError(LzhFailure::WrongChecksum);
    if (hiddenFiles == HiddenFiles::Visible)
        entry.attributes.hidden = entry.attributes.system = false;
    file->Finish(entry.times, entry.attributes);
}

} // namespace tamblin::lzh
