#include "platform/win32/win32_permissions.h"

#include "platform/win32/win32_path.h"

namespace tamblin {
namespace {

// Empty where there are none.
std::vector<std::byte> DescriptorOf(const std::wstring& fullPath) {
    const std::wstring path = PathForWindows(fullPath);
    DWORD size = 0;
    GetFileSecurityW(path.c_str(), DACL_SECURITY_INFORMATION, nullptr, 0, &size);
    std::vector<std::byte> descriptor(size);
    if (size > 0 &&
        !GetFileSecurityW(path.c_str(), DACL_SECURITY_INFORMATION, descriptor.data(), size, &size))
        descriptor.clear();
    return descriptor;
}

// What was inherited is given outright: else Windows would take it for stale, and drop it.
void MakeOwn(ACL* list) {
    for (DWORD index = 0; index < list->AceCount; ++index) {
        void* entry = nullptr;
        if (GetAce(list, index, &entry))
            static_cast<ACE_HEADER*>(entry)->AceFlags &= static_cast<BYTE>(~INHERITED_ACE);
    }
}

} // namespace

InheritedPermissions::InheritedPermissions(const std::wstring& folder)
    : read(DescriptorOf(folder)) {
    BOOL present = FALSE;
    BOOL defaulted = FALSE;
    ACL* list = nullptr;
    if (read.empty() || !GetSecurityDescriptorDacl(read.data(), &present, &list, &defaulted) ||
        !present || list == nullptr)
        return;
    MakeOwn(list);
    known = InitializeSecurityDescriptor(&descriptor, SECURITY_DESCRIPTOR_REVISION) &&
            SetSecurityDescriptorDacl(&descriptor, TRUE, list, FALSE) &&
            SetSecurityDescriptorControl(&descriptor, SE_DACL_PROTECTED, SE_DACL_PROTECTED);
    attributes = {sizeof attributes, &descriptor, FALSE};
}

void CopyPermissions(const std::wstring& fromPath, const std::wstring& toPath) {
    std::vector<std::byte> descriptor = DescriptorOf(fromPath);
    if (!descriptor.empty())
        SetFileSecurityW(PathForWindows(toPath).c_str(), DACL_SECURITY_INFORMATION,
                         descriptor.data());
}

} // namespace tamblin
