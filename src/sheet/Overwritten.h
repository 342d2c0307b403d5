// What a fill has written over what follows from codes.
#pragma once

#include <cstdint>
#include <span>

#include "sheet/Lines.h"
#include "sheet/SheetContext.h"

namespace kxVsGrid::sheet {

/// Fills of the menu write into columns that the clerk cannot type into, too. What stands there follows from the
/// line's codes, and is brought by them again; other columns keep what the clerk has put there.
void bringBack(const SheetContext& context, const Lines& lines, std::int32_t row,
               std::span<const std::int32_t> cols);
}  // namespace kxVsGrid::sheet
