// The names of a character's files. A character NAME is a folder NAME in the host folder and its
// definition, the file NAME.obl beside it; packages of characters are LZH archives.
#pragma once

#include <string>
#include <string_view>

namespace tamblin {

bool IsArchive(std::wstring_view file);
bool IsDefinition(std::wstring_view file);

// Of a character by its name or by the path of its folder.
std::wstring DefinitionOf(std::wstring_view character);
// Of a definition's name, or of its path.
std::wstring CharacterOf(std::wstring_view definition);

} // namespace tamblin
