#include "platform/lzh/entry_path.h"

#include <algorithm>
#include <cstdint>

#include "base/file_name.h"
#include "platform/lzh/entry_text.h"
#include "platform/lzh/lzh_error.h"

namespace tamblin::lzh {
namespace {

constexpr std::size_t longestDisplayName = 200;

// In characters as they are stored, far beyond what makes a path. Longer ones are not taken apart:
// a header has room for a quarter of a million components.
constexpr std::size_t longestStoredName = 8 * 1024;

// Some archivers fill names up with zeros.
template <typename Text>
Text WithoutZeros(Text name) {
    return name.substr(0, name.find_last_not_of(typename Text::value_type{}) + 1);
}

// On one system a comment follows the name behind a zero.
std::string_view WithoutComment(std::string_view name, char system) {
    if (system == 'A')
        return name.substr(0, name.find('\0'));
    return WithoutZeros(name);
}

// Empty when there is none, or one of zeros alone.
std::u16string_view Unicode(const std::optional<std::u16string>& name) {
    return name ? WithoutZeros(std::u16string_view(*name)) : std::u16string_view();
}

EntryPath FolderComponents(const EntryHeader& entry, CodePages& codePages) {
    if (const auto folder = Unicode(entry.unicodeFolder); !folder.empty())
        return Components(folder);
    return Components(WithoutZeros(std::string_view(entry.folder)), entry.codePage, codePages);
}

EntryPath NameComponents(const EntryHeader& entry, CodePages& codePages) {
    if (const auto name = Unicode(entry.unicodeName); !name.empty())
        return Components(name);
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
    if (size > LongestPath)
        throw LzhError(LzhFailure::ForbiddenName);
}

EntryPath AllComponents(const EntryHeader& entry, CodePages& codePages) {
    EntryPath components = FolderComponents(entry, codePages);
    for (std::wstring& name : NameComponents(entry, codePages))
        components.push_back(std::move(name));
    return components;
}

std::size_t LengthOf(const std::optional<std::u16string>& text) {
    return text ? text->size() : 0;
}

bool IsTooLong(const EntryHeader& entry) {
    return std::max({entry.name.size(), entry.folder.size(), LengthOf(entry.unicodeName),
                     LengthOf(entry.unicodeFolder)}) > longestStoredName;
}

// As much of the names as is ever shown.
EntryHeader Shortened(EntryHeader entry) {
    entry.name.resize(std::min(entry.name.size(), longestDisplayName));
    entry.folder.resize(std::min(entry.folder.size(), longestDisplayName));
    for (auto* text : {&entry.unicodeName, &entry.unicodeFolder})
        if (*text)
            (*text)->resize(std::min((*text)->size(), longestDisplayName));
    return entry;
}

bool EndsOrChangesALine(wchar_t letter) {
    const auto code = static_cast<std::uint32_t>(letter);
    return code < 0x20 || (code >= 0x7F && code < 0xA0) || code == 0x2028 || code == 0x2029;
}

} // namespace

bool IsAllowedName(std::wstring_view name) {
    return !name.empty() && IsWellFormedName(name) && !name.ends_with(L'.') &&
           !name.ends_with(L' ');
}

std::optional<EntryPath> PathOf(const EntryHeader& entry, CodePages& codePages) {
    if (IsTooLong(entry))
        throw LzhError(LzhFailure::ForbiddenName);
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
    if (IsTooLong(entry))
        return DisplayName(Shortened(entry), codePages);
    std::wstring text;
    for (const std::wstring& name : RelativePath(AllComponents(entry, codePages)))
        text += (text.empty() ? L"" : L"\\") + name;
    for (wchar_t& letter : text) {
        if (EndsOrChangesALine(letter))
            letter = L'?';
    }
    if (text.size() > longestDisplayName)
        text = text.substr(0, longestDisplayName) + L"…";
    return text;
}

} // namespace tamblin::lzh
