// The commands of Unlha, as text: x "PATH" unpacks an archive. Nothing else is known.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace tamblin::lzh {

// The archive's path, or nothing when the command is not of this form.
std::optional<std::wstring> ArchiveOfCommand(std::wstring_view command);

} // namespace tamblin::lzh
