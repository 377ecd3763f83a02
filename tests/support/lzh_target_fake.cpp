#include "support/lzh_target_fake.h"

#include "platform/lzh/lzh_error.h"

namespace tamblin::lzh {
namespace {

class TargetFileFake : public TargetFile {
  public:
    TargetFileFake(TargetFake& targetFake, std::wstring filePath)
        : target(targetFake), path(std::move(filePath)) {}
    ~TargetFileFake() override {
        if (!finished)
            target.discarded.insert(path);
    }

    void Write(const std::uint8_t* bytes, std::size_t size) override {
        target.written += size;
        if (target.room && target.written > *target.room)
            throw LzhError(LzhFailure::DiskFull);
        file.bytes.append(reinterpret_cast<const char*>(bytes), size);
    }

    void Finish(const EntryTimes& times, EntryAttributes attributes) override {
        file.times = times;
        file.attributes = attributes;
        target.files[path] = file;
        finished = true;
    }

  private:
    TargetFake& target;
    std::wstring path;
    TargetFake::File file;
    bool finished = false;
};

} // namespace

void TargetFake::MakeFolders(const EntryPath& folder) {
    std::wstring path;
    for (const std::wstring& name : folder) {
        path += (path.empty() ? L"" : L"\\") + name;
        folders.insert(path);
    }
}

std::unique_ptr<TargetFile> TargetFake::NewFile(const EntryPath& file) {
    MakeFolders(EntryPath(file.begin(), file.end() - 1));
    std::wstring path;
    for (const std::wstring& name : file)
        path += (path.empty() ? L"" : L"\\") + name;
    files.erase(path);
    return std::make_unique<TargetFileFake>(*this, path);
}

} // namespace tamblin::lzh
