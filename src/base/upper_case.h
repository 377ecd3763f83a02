// The upper-case forms of letters as Windows' file systems compare names: code unit by code unit,
// whatever the language of the system. Windows itself knows them (win32/upper_case.cpp); elsewhere
// a table of what Wine answers does (posix/upper_case.cpp).
#pragma once

namespace tamblin {

wchar_t UpperCase(wchar_t letter);

} // namespace tamblin
