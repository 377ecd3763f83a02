// A settings file in the program folder, its text given and asked for by lines.
#pragma once

#include "base/byte_lines.h"
#include "base/version.h"
#include "settings/settings_file.h"
#include "unit/rules_fixture.h"

namespace tamblin {

constexpr wchar_t IniPath[] = L"C:\\Tamblin\\tamb.ini";
constexpr wchar_t BackupPath[] = L"C:\\Tamblin\\tamb.bak";

inline std::string Lines(const std::vector<std::string>& lines) {
    std::string text;
    for (const std::string& line : lines)
        text.append(line).append(LineEnd);
    return text;
}

inline HostFolderCombo Combo(std::vector<std::wstring> entries,
                             std::optional<size_t> selected = 0) {
    HostFolderCombo combo;
    combo.entries = std::move(entries);
    combo.selected = combo.entries.empty() ? std::nullopt : selected;
    return combo;
}

class SettingsFileTest : public testing::Test {
  protected:
    void Given(const std::vector<std::string>& lines) { files.AddFile(IniPath, Lines(lines)); }
    void GivenBytes(std::string_view bytes) { files.AddFile(IniPath, bytes); }
    void GivenHosts(const std::vector<std::wstring>& folders) {
        for (const std::wstring& folder : folders)
            AddHost(files, folder);
    }
    // The file or folder that the error names.
    std::wstring FailToSave(const HostFolderCombo& combo, ErrorNumber number) {
        try {
            file.SaveSettings(combo, L"C:\\");
            ADD_FAILURE();
        } catch (const RunTimeError& error) {
            EXPECT_EQ(error.Number(), number);
            EXPECT_TRUE(error.IsFatal());
            return error.Path();
        }
        return {};
    }
    std::string Ini() const { return files.Contents(IniPath); }

    PlatformFake fake;
    MemoryFileSystem& files = fake.files;
    SettingsState state;
    SettingsFile file{fake.platform, state};
};

} // namespace tamblin
