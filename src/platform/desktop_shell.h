// What the program asks of the desktop: deleting whole trees, opening documents, finding the
// desktop folder. A request that fails is not reported; the shell has told the user itself.
#pragma once

#include <optional>
#include <string>

namespace tamblin {

class DesktopShell {
  public:
    virtual ~DesktopShell() = default;

    // Deletes a file or a folder with all it holds, for good, without asking. A link goes, what it
    // points to stays. A root, or a path that ends in "\", is never deleted.
    virtual void DeleteTree(const std::wstring& path) = 0;
    // The same into the recycle bin, from which the user can take it back. Where there is none the
    // user is asked.
    virtual void MoveToRecycleBin(const std::wstring& path) = 0;

    // Opens a document or web page with its associated program, in a normal window.
    virtual void Open(const std::wstring& document, const std::wstring& workingFolder) = 0;

    // The user's desktop folder without a trailing "\", or nothing when the shell does not know it.
    virtual std::optional<std::wstring> DesktopFolder() = 0;
};

} // namespace tamblin
