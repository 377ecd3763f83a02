// Keeps files in use for as long as a test wants. Every answer is JSON text. Throws
// std::runtime_error when there is no such file.
#pragma once

#include <string>

namespace tamblin {

// Opens a file so that nobody else can. Answers a number to release it by.
std::string HoldFile(const std::wstring& path);

std::string ReleaseFile(long long number);

} // namespace tamblin
