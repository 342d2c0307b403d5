// How a failing test shows the control's own types.
#pragma once

#include <ostream>

#include "kxVsGrid/CellRange.h"
#include "kxVsGrid/Geometry.h"
#include "kxVsGrid/Platform.h"
#include "kxVsGrid/support/Decimal.h"

namespace kxVsGrid {
inline void PrintTo(const MessageBox& box, std::ostream* out) {
    *out << '"' << box.title << "\" (" << box.style << "): \"" << box.text << '"';
}
inline void PrintTo(const Rect& r, std::ostream* out) {
    *out << '(' << r.left << ", " << r.top << ", " << r.width << ", " << r.height << ')';
}
inline void PrintTo(const CellRange& r, std::ostream* out) {
    *out << r.firstRow << ',' << r.firstCol << " to " << r.lastRow << ',' << r.lastCol;
}
inline void PrintTo(const Decimal& number, std::ostream* out) {
    *out << number.text();
}
}  // namespace kxVsGrid
