#include "platform/error_naming_file_system.h"

#include "base/run_time_error.h"
#include "base/text.h"
#include "platform/path_form.h"

namespace tamblin {
namespace {

// Which of two paths an error is about, where the system does not say.
bool IsAboutTheTarget(ErrorNumber number) {
    return number == ErrorNumber::FileAlreadyExists || number == ErrorNumber::DiskFull;
}

} // namespace

template <typename Operation>
auto ErrorNamingFileSystem::NamingOneOf(const std::wstring& from, const std::wstring& to,
                                        const Operation& operation) {
    try {
        return operation();
    } catch (const RunTimeError& error) {
        throw error.WithPath(InFull(IsAboutTheTarget(error.Number()) ? to : from));
    }
}

template <typename Operation>
auto ErrorNamingFileSystem::Naming(const std::wstring& path, const Operation& operation) {
    return NamingOneOf(path, path, operation);
}

// For a reader, not for Windows: a path of another drive's current folder stays as it is.
std::wstring ErrorNamingFileSystem::InFull(const std::wstring& path) {
    if (IsFullPath(path) || path.starts_with(L'\\') || path.find(L':') != std::wstring::npos)
        return path;
    try {
        const std::wstring folder = files.CurrentFolder();
        return path.empty() ? folder : WithBackslash(folder) + path;
    } catch (const RunTimeError&) {
        return path;
    }
}

std::optional<FolderEntry> ErrorNamingFileSystem::Find(const std::wstring& path) {
    return Naming(path, [&] { return files.Find(path); });
}

std::vector<FolderEntry> ErrorNamingFileSystem::List(const std::wstring& folder) {
    return Naming(folder, [&] { return files.List(folder); });
}

std::string ErrorNamingFileSystem::Read(const std::wstring& file) {
    return Naming(file, [&] { return files.Read(file); });
}

void ErrorNamingFileSystem::Write(const std::wstring& file, std::string_view bytes) {
    Naming(file, [&] { files.Write(file, bytes); });
}

void ErrorNamingFileSystem::Copy(const std::wstring& from, const std::wstring& to) {
    NamingOneOf(from, to, [&] { files.Copy(from, to); });
}

void ErrorNamingFileSystem::Replace(const std::wstring& from, const std::wstring& to) {
    NamingOneOf(from, to, [&] { files.Replace(from, to); });
}

void ErrorNamingFileSystem::CheckReplaceable(const std::wstring& file) {
    Naming(file, [&] { files.CheckReplaceable(file); });
}

void ErrorNamingFileSystem::Rename(const std::wstring& from, const std::wstring& to) {
    NamingOneOf(from, to, [&] { files.Rename(from, to); });
}

void ErrorNamingFileSystem::Delete(const std::wstring& file) {
    Naming(file, [&] { files.Delete(file); });
}

void ErrorNamingFileSystem::MakeFolder(const std::wstring& folder) {
    Naming(folder, [&] { files.MakeFolder(folder); });
}

void ErrorNamingFileSystem::MakeFolderLike(const std::wstring& folder, const std::wstring& model) {
    Naming(folder, [&] { files.MakeFolderLike(folder, model); });
}

void ErrorNamingFileSystem::RemoveFolder(const std::wstring& folder) {
    Naming(folder, [&] { files.RemoveFolder(folder); });
}

bool ErrorNamingFileSystem::HoldFolder(const std::wstring& folder) {
    return Naming(folder, [&] { return files.HoldFolder(folder); });
}

void ErrorNamingFileSystem::ReleaseFolder() {
    files.ReleaseFolder();
}

void ErrorNamingFileSystem::SetAttributes(const std::wstring& path, FileAttributes attributes) {
    Naming(path, [&] { files.SetAttributes(path, attributes); });
}

std::wstring ErrorNamingFileSystem::CurrentFolder() {
    return files.CurrentFolder();
}

void ErrorNamingFileSystem::SetCurrentFolder(const std::wstring& folder) {
    Naming(folder, [&] { files.SetCurrentFolder(folder); });
}

bool ErrorNamingFileSystem::OnOneDrive(const std::wstring& folder, const std::wstring& other) {
    return Naming(folder, [&] { return files.OnOneDrive(folder, other); });
}

std::wstring ErrorNamingFileSystem::RealPath(const std::wstring& folder) {
    return Naming(folder, [&] { return files.RealPath(folder); });
}

std::uint64_t ErrorNamingFileSystem::FreeBytes(const std::wstring& folder) {
    return Naming(folder, [&] { return files.FreeBytes(folder); });
}

std::vector<Drive> ErrorNamingFileSystem::Drives() {
    return files.Drives();
}

std::optional<std::wstring> ErrorNamingFileSystem::FixedVolumeAt(const std::wstring& folder) {
    return Naming(folder, [&] { return files.FixedVolumeAt(folder); });
}

} // namespace tamblin
