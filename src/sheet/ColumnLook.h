// How columns look in a grid by the kind of their values, whoever describes them: a sheet, or a Qt model.
#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "kxVsGrid/kxGrid.h"
#include "kxVsGrid/sheet/FieldText.h"

namespace kxVsGrid::sheet {

mEmDataType typeOf(FieldKind kind);
mEmflexAlign alignmentOf(FieldKind kind);
/// How values are shown of which the host has said nothing else (kxGrid::ColFormat).
std::string formatOf(FieldKind kind, std::optional<int> decimals);
/// A text that such columns have room for; none of flags, and of numbers, which are as long as their decimals say.
std::string_view usualText(FieldKind kind);
/// The wider one of a usual text and the caption, which has room beside it.
std::string sampleOf(const kxGrid& grid, std::string_view usual, const std::string& caption);
/// Those of all columns after the fixed ones, through the property that keeps them.
void putCaptions(kxGrid& grid, std::span<const std::string> captions);
/// Gives a column what the others leave of the control's width, in the total row as well.
void stretch(kxGrid& grid, std::int32_t col);
}  // namespace kxVsGrid::sheet
