#include "grid/Layout.h"

#include <algorithm>

namespace kxVsGrid::grid {
namespace {

constexpr std::int32_t BorderBelow = 15;
constexpr std::int32_t BordersBeside = 60;
}  // namespace

void Layout::resize(std::int32_t width, std::int32_t height) {
    mainRect_ = {1, 1, width, height};
    main_.Resize(width, height);
    totalRect_ = {0, totalRect_.top, width, totals_.gridHeight()};
    sums_.Resize(totalRect_.width, totalRect_.height);
    alignTotalRow();
}

/// Height to leave free for the horizontal scroll bar.
std::int32_t Layout::scrollBarAllowance() const {
    if (main_.Cols() <= main_.FixedCols()) return 0;
    constexpr std::int32_t bar = CellGrid::HorizontalBarHeight;
    const std::int32_t firstScrolled = std::min(main_.StillCols(), main_.Cols() - 1);
    if (!main_.ColIsVisible(main_.Cols() - 1) || !main_.ColIsVisible(firstScrolled)) return bar;
    std::int64_t width = main_.TotalWidth();
    const bool rowsOutOfView = main_.Rows() > main_.FixedRows() && (!main_.RowIsVisible(main_.Rows() - 1) ||
                                                                    !main_.RowIsVisible(main_.FixedRows()));
    if (rowsOutOfView) width += CellGrid::VerticalBarWidth;
    if (width > main_.Width() - BordersBeside) return bar;
    // A last row that is cut off needs a vertical bar although it is in view; the horizontal bar that this
    // may bring must not disappear under the total row.
    return main_.HorizontalBarShown() ? bar : 0;
}

void Layout::alignTotalRow() {
    totals_.copyWidths();
    totalRect_.height = totals_.gridHeight();
    sums_.Resize(totalRect_.width, totalRect_.height);
    totalRect_.top = main_.Height() - totalRect_.height - BorderBelow - scrollBarAllowance();
    coverStrip();
}

void Layout::showTotalRow(bool shown) {
    totalRowShown_ = shown;
    coverStrip();
}

/// Tells the main grid how much of its bottom is covered, so that its last row can be scrolled clear of it.
void Layout::coverStrip() {
    const std::int32_t covered = mainRect_.bottom() - totalRect_.top;
    const std::int32_t bar = main_.HorizontalBarShown() ? CellGrid::HorizontalBarHeight : 0;
    main_.BottomStrip(totalRowShown_ ? std::max(0, covered - bar) : 0);
}
}  // namespace kxVsGrid::grid
