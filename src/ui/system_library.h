// Libraries of Windows that are looked up when they are wanted.
#pragma once

#include "ui/windows_headers.h"

namespace tamblin {

// The library of that name from Windows' own folder and from nowhere else, loaded when it is not
// yet; null when Windows has none. It stays loaded.
HMODULE SystemLibrary(const wchar_t* name);

// A function of a library; null when either is missing.
template <class Function>
Function* FunctionOf(HMODULE library, const char* name) {
    const auto address = library ? GetProcAddress(library, name) : nullptr;
    return reinterpret_cast<Function*>(reinterpret_cast<void*>(address));
}

} // namespace tamblin
