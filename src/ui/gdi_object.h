// Fonts, brushes, pens, regions and bitmaps that delete themselves.
#pragma once

#include <memory>
#include <type_traits>

#include "ui/windows_headers.h"

namespace tamblin {

struct GdiDeleter {
    void operator()(HGDIOBJ object) const { DeleteObject(object); }
};
// Of a HFONT, HBRUSH ...
template <class Handle>
using GdiObject = std::unique_ptr<std::remove_pointer_t<Handle>, GdiDeleter>;

} // namespace tamblin
