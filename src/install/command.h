// The main window's commands. Their numbers are those of its buttons, Command1 to Command14, by
// which scripts and tests know them too.
#pragma once

#include <array>
#include <cstddef>
#include <initializer_list>

namespace tamblin {

enum class Command {
    Install = 1,
    PrepareStaging = 2,
    UpdateHost = 3,
    UpdateDefinition = 4,
    Uninstall = 5,
    ManageFolders = 6,
    DeselectInstalled = 7,
    Leave = 8,
    DeselectFiles = 9,
    ShowHelp = 10,
    SetStartUpCharacter = 11,
    CheckFolders = 12,
    Launch = 13,
    ShowReadme = 14,
};

inline constexpr size_t CommandCount = static_cast<size_t>(Command::ShowReadme) + 1;

// Which of them can be used; at first those that need no selection.
class EnabledCommands {
  public:
    EnabledCommands() {
        Set({Command::ManageFolders, Command::Leave, Command::ShowHelp, Command::CheckFolders});
    }
    bool& operator[](Command command) { return enabled[static_cast<size_t>(command)]; }
    bool operator[](Command command) const { return enabled[static_cast<size_t>(command)]; }
    void Set(std::initializer_list<Command> commands, bool on = true) {
        for (const Command command : commands)
            (*this)[command] = on;
    }

  private:
    std::array<bool, CommandCount> enabled{};
};

} // namespace tamblin
