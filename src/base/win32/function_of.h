// Functions of Windows that not every version has.
#pragma once

#include <windows.h>

namespace tamblin {

// A function of a library; null when either is missing.
template <class Function>
Function* FunctionOf(HMODULE library, const char* name) {
    const auto address = library ? GetProcAddress(library, name) : nullptr;
    return reinterpret_cast<Function*>(reinterpret_cast<void*>(address));
}

} // namespace tamblin
