#include "platform/win32/program_instance.h"

namespace tamblin {

// A mutex that exists but may not be opened (ERROR_ACCESS_DENIED) belongs to a copy that runs with
// more rights. Any other failure must not keep the program from starting.
ProgramInstance::ProgramInstance(const std::wstring& name)
    : mutex(CreateMutexW(nullptr, FALSE, name.c_str())) {
    const DWORD code = GetLastError();
    isFirst = mutex ? code != ERROR_ALREADY_EXISTS : code != ERROR_ACCESS_DENIED;
}

} // namespace tamblin
