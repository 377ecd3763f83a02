// From the names stored in an archive to a path that may be written.
//
// Bytes are cut into components before they are decoded: 0xFF always separates, "\" and "/" do
// unless they are the second byte of a character. Leading separators and a drive in front of them
// are dropped, so that an absolute name ends up below the target folder. What remains has to be a
// name that Windows takes as it stands: no "..", no device, no stream, nothing that it would change
// or refuse, since it would end up elsewhere or under another name. A byte that is no character of
// its code page becomes U+FFFD and its value in two hexadecimal digits, so that different names
// stay different.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "platform/lzh/code_pages.h"
#include "platform/lzh/entry_header.h"
#include "platform/lzh/extraction_target.h"

namespace tamblin::lzh {

// Whether Windows takes a component as it stands.
bool IsAllowedName(std::wstring_view name);

// The path of an entry, or nothing when it has no name. Throws LzhError (ForbiddenName).
std::optional<EntryPath> PathOf(const EntryHeader& entry, CodePages& codePages);

// The entry's name for a report, whatever it holds: on one line, not too long.
std::wstring DisplayName(const EntryHeader& entry, CodePages& codePages);

} // namespace tamblin::lzh
