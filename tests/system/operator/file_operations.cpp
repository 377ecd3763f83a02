#include "file_operations.h"

#include <windows.h>

#include <cstdint>
#include <stdexcept>

#include "json.h"

namespace tamblin {

std::string HoldFile(const std::wstring& path) {
    const HANDLE file =
        CreateFileW(path.c_str(), GENERIC_READ, 0, nullptr, OPEN_EXISTING, 0, nullptr);
    if (file == INVALID_HANDLE_VALUE) {
        throw std::runtime_error("the file cannot be opened");
    }
    return JsonNumber(reinterpret_cast<std::intptr_t>(file));
}

std::string ReleaseFile(long long number) {
    return JsonBool(CloseHandle(reinterpret_cast<HANDLE>(static_cast<std::intptr_t>(number))) != 0);
}

} // namespace tamblin
