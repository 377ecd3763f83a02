#include "platform/lzh/entry_path.h"

#include <algorithm>

#include "platform/lzh/entry_text.h"
#include "platform/lzh/lzh_error.h"
#include "platform/lzh/name_rules.h"

namespace tamblin::lzh {
namespace {

constexpr std::size_t longestDisplayName = 200;

// On one system a comment follows the name behind a zero; others fill names up with zeros.
std::string_view WithoutComment(std::string_view name, char system) {
    if (system == 'A')
        return name.substr(0, name.find('\0'));
    const std::size_t last = name.find_last_not_of('\0');
    return name.substr(0, last + 1);
}

std::u16string_view WithoutZeros(std::u16string_view name) {
    return name.substr(0, name.find_last_not_of(u'\0') + 1);
}

EntryPath FolderComponents(const EntryHeader& entry, CodePages& codePages) {
    if (entry.unicodeFolder && !entry.unicodeFolder->empty())
        return Components(WithoutZeros(*entry.unicodeFolder));
    return Components(entry.folder, entry.codePage, codePages);
}

EntryPath NameComponents(const EntryHeader& entry, CodePages& codePages) {
    if (entry.unicodeName && !entry.unicodeName->empty())
        return Components(WithoutZeros(*entry.unicodeName));
    return Components(WithoutComment(entry.name, entry.system), entry.codePage, codePages);
}

bool IsDrive(std::wstring_view component) {
    const auto isLetter = [](wchar_t c) {
        return (c | 32) >= L'a' && (c | 32) <= L'z';
    };
    return component.size() == 2 && component[1] == L':' && isLetter(component[0]);
}

// Drops what says nothing about a place below the target folder.
EntryPath RelativePath(EntryPath components) {
    const auto saysNothing = [](const std::wstring& name) {
        return name.empty() || name == L".";
    };
    auto first = std::find_if_not(components.begin(), components.end(), saysNothing);
    // A drive has a separator behind it; "a:b" is a stream and stays for the rules to refuse.
    if (first != components.end() && IsDrive(*first) && first + 1 != components.end())
        ++first;
    EntryPath path(first, components.end());
    std::erase_if(path, saysNothing);
    return path;
}

void CheckPath(const EntryPath& path) {
    std::size_t size = path.size() - 1;
    for (const std::wstring& name : path) {
        if (!IsAllowedName(name))
            throw LzhError(LzhFailure::ForbiddenName);
        size += Utf16Size(name);
    }
    if (size > longestPath)
        throw LzhError(LzhFailure::ForbiddenName);
}

EntryPath AllComponents(const EntryHeader& entry, CodePages& codePages) {
    EntryPath components = FolderComponents(entry, codePages);
    for (std::wstring& name : NameComponents(entry, codePages))
        components.push_back(std::move(name));
    return components;
}

} // namespace

std::optional<EntryPath> PathOf(const EntryHeader& entry, CodePages& codePages) {
    EntryPath components = AllComponents(entry, codePages);
    if (!entry.IsFolder()) {
        if (components.back().empty())
            return std::nullopt;
        if (components.back() == L".")
            throw LzhError(LzhFailure::ForbiddenName);
    }
    EntryPath path = RelativePath(std::move(components));
    if (path.empty())
        return std::nullopt;
    CheckPath(path);
    return path;
}

std::wstring DisplayName(const EntryHeader& entry, CodePages& codePages) {
    std::wstring text;
    for (const std::wstring& name : RelativePath(AllComponents(entry, codePages)))
        text += (text.empty() ? L"" : L"\\") + name;
    for (wchar_t& letter : text) {
        if (static_cast<unsigned>(letter) < 0x20 || letter == 0x7F)
            letter = L'?';
    }
    if (text.size() > longestDisplayName)
        text = text.substr(0, longestDisplayName) + L"…";
    return text;
}

} // namespace tamblin::lzh
