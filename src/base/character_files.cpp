#include "base/character_files.h"

#include "base/text.h"

namespace tamblin {
namespace {

constexpr std::wstring_view ArchiveExtension = L".lzh";
constexpr std::wstring_view DefinitionExtension = L".obl";

} // namespace

bool IsArchive(std::wstring_view file) {
    return EndsWithIgnoringCase(file, ArchiveExtension);
}

bool IsDefinition(std::wstring_view file) {
    return EndsWithIgnoringCase(file, DefinitionExtension);
}

std::wstring DefinitionOf(std::wstring_view character) {
    return std::wstring(character).append(DefinitionExtension);
}

std::wstring CharacterOf(std::wstring_view definition) {
    return std::wstring(WithoutLast(definition, DefinitionExtension.size()));
}

} // namespace tamblin
