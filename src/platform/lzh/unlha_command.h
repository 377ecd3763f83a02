// The commands of Unlha, as text: x "PATH" unpacks an archive. Nothing else is known.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace tamblin::lzh {

// The archive's path, or nothing when the command is not of this form.
std::optional<std::wstring> ArchiveOfCommand(std::wstring_view command);

// Puts a program's arguments together to a command again: x and a path, which may contain blanks.
std::wstring CommandOfArguments(std::wstring_view verb, std::wstring_view path);

} // namespace tamblin::lzh
