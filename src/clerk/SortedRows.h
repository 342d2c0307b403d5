// The order that data rows take when they are sorted by a column.
//
// Stable: rows that count as equal keep their order, downwards as well. Whichever way, numbers (or dates) come
// before other texts, empty cells behind both, and rows last that hold nothing, or only what default filling has put
// there.
#pragma once

#include <cstdint>
#include <span>
#include <string_view>
#include <vector>

#include "kxVsGrid/CellGrid.h"
#include "kxVsGrid/Platform.h"
#include "rows/DefaultedCells.h"

namespace kxVsGrid::clerk {

/// What decides over a column's texts; those that are none of it are sorted as texts.
enum class SortKind { Numbers, Dates, Texts };

/// For each data row down to the last one that holds something the one that comes there, as CellGrid::Reorder
/// takes it from the first data row on. Texts are ordered as the platform orders them. Takes a time that grows
/// with the rows that were ever written to, times the logarithm of those in use.
std::vector<std::int32_t> sortedRows(const CellGrid& grid, const rows::DefaultedCells& defaulted,
                                     std::int32_t col, SortKind kind, bool down, const Platform& platform);

/// A text of a column, as the clerk sees it and as it is stored.
struct SortedText {
    std::string_view seen;
    std::string_view stored;
};
/// The numbers of the texts, which differ in what is seen, in the order that rows with them have when they are
/// sorted up: numbers or dates first, an empty text last.
std::vector<std::uint32_t> sortedTexts(const std::vector<SortedText>& texts, SortKind kind,
                                       const Platform& platform);
}  // namespace kxVsGrid::clerk
