// Whole archives, unpacked into a target that only records.
#include <set>

#include "fuzz_support.h"
#include "platform/lzh/entry_path.h"
#include "platform/lzh/extractor.h"

using namespace tamblin::lzh;

namespace {

// Each byte is the character of its number; quick, and no less hostile than a true one.
class PlainCodePages : public CodePages {
  public:
    bool Knows(unsigned codePage) override { return codePage == 932; }
    std::optional<std::wstring> Decode(unsigned, std::string_view bytes) override {
        std::wstring text;
        for (const char byte : bytes) {
            if (byte == '\x81')
                return std::nullopt;
            text += static_cast<wchar_t>(static_cast<unsigned char>(byte));
        }
        return text;
    }
};

class RecordingTarget : public ExtractionTarget {
  public:
    LimitedSink sink; // shared by all files: the disk
    int open = 0;

    void MakeFolders(const EntryPath& folder) override { Check(folder); }
    std::unique_ptr<TargetFile> NewFile(const EntryPath& file) override {
        Check(file);
        return std::make_unique<File>(*this);
    }

  private:
    class File : public TargetFile {
      public:
        explicit File(RecordingTarget& recordingTarget) : target(recordingTarget) {
            Demand(++target.open == 1);
        }
        ~File() override { --target.open; }
        void Write(const std::uint8_t* bytes, std::size_t size) override {
            target.sink.Write(bytes, size);
        }
        void Finish(const EntryTimes&, EntryAttributes) override {}

      private:
        RecordingTarget& target;
    };

    static void Check(const EntryPath& path) {
        Demand(!path.empty());
        for (const std::wstring& name : path)
            Demand(IsAllowedName(name));
    }
};

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    MemoryView archive(AsText(data, size));
    RecordingTarget target;
    PlainCodePages codePages;
    const ExtractionResult result = Extractor(archive, target, codePages).Run();
    Demand(target.open == 0);
    Demand(!result.Message().empty());
    return 0;
}
