// SHA-256, to compare files with lists of checksums.
#pragma once

#include <string>
#include <string_view>

namespace tamblin {

std::string Sha256(std::string_view bytes); // in lower-case hexadecimal digits

} // namespace tamblin
