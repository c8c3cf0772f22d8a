#pragma once

#include <span>

namespace kelvado {

enum class ElementKind { Group, Text, Number };

/// Something that films are sorted or filtered by: one entry of the tree in the dialogs. A group cannot be chosen.
struct FilmElement
{
    const char* caption;
    const char* key; ///< column key; a group has one of its own, which contains "MAIN"
    ElementKind kind;
};

/// In the order of the trees, each group followed by its elements.
std::span<const FilmElement> SortMethods();
std::span<const FilmElement> FilterElements();

} // namespace kelvado
