// Who may do what with files and folders.
#pragma once

#include <windows.h>

#include <cstddef>
#include <string>
#include <vector>

namespace tamblin {

// The permissions of a folder, as a new folder elsewhere is given them: what its files inherit is
// what files in the first one do, whatever the folder above it says.
class InheritedPermissions {
  public:
    explicit InheritedPermissions(const std::wstring& folder);
    InheritedPermissions(const InheritedPermissions&) = delete;
    InheritedPermissions& operator=(const InheritedPermissions&) = delete;

    // For CreateDirectory; null where no permissions are kept.
    SECURITY_ATTRIBUTES* Attributes() const { return known ? &attributes : nullptr; }

  private:
    std::vector<std::byte> read;
    SECURITY_DESCRIPTOR descriptor{};
    mutable SECURITY_ATTRIBUTES attributes{};
    bool known = false;
};

// Gives a file the permissions of another one, where they are kept.
void CopyPermissions(const std::wstring& fromPath, const std::wstring& toPath);

} // namespace tamblin
