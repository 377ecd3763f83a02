#ifdef _WIN32

#include "unit/counted_calls_win32.h"

#include <cstring>

namespace tamblin {

unsigned long callsUntilKilled = 0;

namespace {

void CountCall() {
    if (callsUntilKilled > 0 && --callsUntilKilled == 0)
        TerminateProcess(GetCurrentProcess(), KilledCode);
}

// Where the program keeps the address of a function of Windows.
ULONG_PTR* ImportedAddress(const char* name) {
    const auto base = reinterpret_cast<BYTE*>(GetModuleHandleW(nullptr));
    const auto dos = reinterpret_cast<const IMAGE_DOS_HEADER*>(base);
    const auto headers = reinterpret_cast<const IMAGE_NT_HEADERS*>(base + dos->e_lfanew);
    const auto& directory = headers->OptionalHeader.DataDirectory[IMAGE_DIRECTORY_ENTRY_IMPORT];
    for (auto* dll =
             reinterpret_cast<const IMAGE_IMPORT_DESCRIPTOR*>(base + directory.VirtualAddress);
         dll->Name != 0; ++dll) {
        auto* names = reinterpret_cast<const IMAGE_THUNK_DATA*>(base + dll->OriginalFirstThunk);
        auto* addresses = reinterpret_cast<IMAGE_THUNK_DATA*>(base + dll->FirstThunk);
        for (; names->u1.AddressOfData != 0; ++names, ++addresses) {
            if (IMAGE_SNAP_BY_ORDINAL(names->u1.Ordinal))
                continue;
            const auto* import =
                reinterpret_cast<const IMAGE_IMPORT_BY_NAME*>(base + names->u1.AddressOfData);
            if (std::strcmp(reinterpret_cast<const char*>(import->Name), name) == 0)
                return reinterpret_cast<ULONG_PTR*>(&addresses->u1.Function);
        }
    }
    return nullptr;
}

void Import(const char* name, ULONG_PTR function) {
    ULONG_PTR* const address = ImportedAddress(name);
    if (address == nullptr)
        ExitProcess(1);
    DWORD protection = 0;
    VirtualProtect(address, sizeof *address, PAGE_READWRITE, &protection);
    *address = function;
    VirtualProtect(address, sizeof *address, protection, &protection);
}

BOOL WINAPI FlushNothing(HANDLE) {
    CountCall();
    return TRUE;
}

template <int Number, typename Function>
struct Counted;

template <int Number, typename Result, typename... Arguments>
struct Counted<Number, Result(WINAPI*)(Arguments...)> {
    static inline Result(WINAPI* real)(Arguments...) = nullptr;
    static Result WINAPI Call(Arguments... arguments) {
        CountCall();
        return real(arguments...);
    }
};

// From now on the program's calls of the function are counted. Each has a number of its own.
template <int Number, typename Function>
void CountCallsOf(const char* name, Function function) {
    using ThisCounted = Counted<Number, Function>;
    ThisCounted::real = function;
    Import(name, reinterpret_cast<ULONG_PTR>(&ThisCounted::Call));
}

} // namespace

void CountCallsThatChangeTheDisk() {
    CountCallsOf<1>("CreateFileW", CreateFileW);
    CountCallsOf<2>("WriteFile", WriteFile);
    CountCallsOf<3>("SetFileInformationByHandle", SetFileInformationByHandle);
    CountCallsOf<4>("SetFileAttributesW", SetFileAttributesW);
    CountCallsOf<5>("MoveFileExW", MoveFileExW);
    CountCallsOf<6>("CopyFileW", CopyFileW);
    CountCallsOf<7>("DeleteFileW", DeleteFileW);
    CountCallsOf<8>("CreateDirectoryW", CreateDirectoryW);
    CountCallsOf<9>("RemoveDirectoryW", RemoveDirectoryW);
    CountCallsOf<10>("SetCurrentDirectoryW", SetCurrentDirectoryW);
}

WithoutFlushing::WithoutFlushing() : real(*ImportedAddress("FlushFileBuffers")) {
    Import("FlushFileBuffers", reinterpret_cast<ULONG_PTR>(&FlushNothing));
}

WithoutFlushing::~WithoutFlushing() {
    Import("FlushFileBuffers", real);
}

} // namespace tamblin

#endif
