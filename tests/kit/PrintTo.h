// How a failing test shows the control's own types.
#pragma once

#include <ostream>

#include "kxVsGrid/Geometry.h"
#include "kxVsGrid/Platform.h"

namespace kxVsGrid {
inline void PrintTo(const MessageBox& box, std::ostream* out) {
    *out << '"' << box.title << "\" (" << box.style << "): \"" << box.text << '"';
}
inline void PrintTo(const Rect& r, std::ostream* out) {
    *out << '(' << r.left << ", " << r.top << ", " << r.width << ", " << r.height << ')';
}
}  // namespace kxVsGrid
