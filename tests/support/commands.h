// Sets of the main window's commands, as selections enable them.
#pragma once

#include <ostream>
#include <set>

#include "install/command.h"

namespace tamblin {

using Commands = std::set<Command>;

inline const Commands NeedingNoSelection{Command::ManageFolders, Command::Leave, Command::ShowHelp,
                                         Command::CheckFolders};
inline const Commands ForPackages{Command::Install, Command::DeselectFiles};
inline const Commands ForAProgram{Command::UpdateHost, Command::DeselectFiles};
inline const Commands ForCharacters{Command::Uninstall, Command::DeselectInstalled};
inline const Commands ForOneCharacter{Command::Uninstall, Command::DeselectInstalled,
                                      Command::SetStartUpCharacter, Command::Launch};

inline Commands operator+(Commands some, const Commands& others) {
    some.insert(others.begin(), others.end());
    return some;
}

// Those for which `holds`.
template <class Condition>
Commands CommandsWhere(const Condition& holds) {
    Commands found;
    for (size_t number = 1; number < CommandCount; ++number)
        if (holds(static_cast<Command>(number)))
            found.insert(static_cast<Command>(number));
    return found;
}

inline void PrintTo(Command command, std::ostream* out) {
    *out << "Command" << static_cast<int>(command);
}

} // namespace tamblin
