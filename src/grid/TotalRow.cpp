#include "grid/TotalRow.h"

#include "support/Numbers.h"

namespace kxVsGrid::grid {

TotalRow::TotalRow(CellGrid& main, CellGrid& sums, columns::ColumnArray& columns)
    : main_(main), sums_(sums), columns_(columns) {
    sums_.ShowCursor(false);
    // A text that code writes into the total row stands in place of the sum that was still to be made.
    sums_.CellChanged.connect([this](std::int32_t, std::int32_t col) { forget(col); });
}

TotalRow::~TotalRow() {
    main_.watch(nullptr);
}

/// The main grid is watched only while there is something to add up: each of its writes would pay for it.
void TotalRow::pending(std::int32_t totals) {
    pending_ = totals;
    main_.watch(totals > 0 ? this : nullptr);
}

void TotalRow::setUp() {
    sums_.Cols(0);
    totals_.clear();
    pending(0);
    sums_.Cols(main_.Cols());
    sums_.FixedRows(0);
    sums_.Rows(1);
    sums_.FixedCols(main_.FixedCols());
    rowHeight(StandardHeight);
    sums_.ScrollBars(false);
    color_ = LightGrey;
    paintAndCaption();
    for (std::int32_t c = 0; c < main_.Cols(); ++c) {
        sums_.ColWidth(c, main_.ColWidth(c));
        sums_.ColHidden(c, main_.ColHidden(c));
        sums_.ColAlignment(c, main_.ColAlignment(c));
        sums_.ColFormat(c, main_.ColFormat(c));
    }
}

void TotalRow::followFixedCols() {
    sums_.FixedCols(main_.FixedCols());
    for (std::int32_t c = 0; c < sums_.Cols(); ++c) {
        sums_.Text(0, c, "");
        forget(c);
    }
    paintAndCaption();
}

/// Without a column beside the fixed ones there is no cell for either.
void TotalRow::paintAndCaption() {
    const std::int32_t first = main_.FixedCols();
    if (first >= sums_.Cols()) return;
    color(color_);
    sums_.Text(0, first, "合计");
    sums_.CellAlignment(0, first, flexAlignCenterCenter);
}

/// Not fewer columns than fixed ones: what one grid has done, the other can do.
void TotalRow::followCols() {
    if (sums_.FixedCols() > main_.Cols()) followFixedCols();
    sums_.Cols(main_.Cols());
    for (auto c = static_cast<std::size_t>(main_.Cols()); c < totals_.size(); ++c)
        forget(static_cast<std::int32_t>(c));
}

void TotalRow::forget(std::int32_t col) {
    const auto i = static_cast<std::size_t>(col);
    if (i >= totals_.size() || !totals_[i].pending) return;
    totals_[i].pending = false;
    pending(pending_ - 1);
}

void TotalRow::copyWidths() {
    for (std::int32_t c = 0; c < main_.Cols(); ++c) sums_.ColWidth(c, main_.ColWidth(c));
}

void TotalRow::color(std::uint32_t color) {
    color_ = color;
    for (std::int32_t c = main_.FixedCols(); c < sums_.Cols(); ++c) sums_.CellBackColor(0, c, color);
}

std::int32_t TotalRow::rowHeight() const {
    return sums_.RowHeight(0);
}

void TotalRow::rowHeight(std::int32_t twips) {
    sums_.RowHeight(0, twips);
}

std::int32_t TotalRow::gridHeight() const {
    return rowHeight() + BorderHeight;
}

void TotalRow::recalculate(std::int32_t col) {
    if (col >= 0) {
        note(col);
        return;
    }
    for (std::int32_t c = main_.FixedCols(); c < main_.Cols(); ++c) note(c);
}

void TotalRow::note(std::int32_t col) {
    const auto i = static_cast<std::size_t>(col);
    if (i < totals_.size() && totals_[i].pending) return;
    if (!isSummed(col) || col >= sums_.Cols() || sums_.Rows() == 0) return;
    if (totals_.size() <= i) totals_.resize(i + 1);
    totals_[i].pending = true;
    pending(pending_ + 1);
    sums_.ComputedText(0, col, [this, col] { return valueText(col); });
}

std::string TotalRow::valueText(std::int32_t col) {
    settle(col);
    return support::totalText(totals_[static_cast<std::size_t>(col)].value);
}

void TotalRow::settle(std::int32_t col) {
    Total& total = totals_[static_cast<std::size_t>(col)];
    if (!total.pending) return;
    total.value = col == expected_ && writtenRow_ >= 0 ? sumBeforeWrite(col) : main_.ColumnSum(col);
    total.pending = false;
    pending(pending_ - 1);
}

TotalRow::PutOff::PutOff(TotalRow& totals, std::int32_t row, std::int32_t col, bool heard)
    : totals_(totals), col_(col) {
    totals.expected_ = col;
    if (!heard) return;
    totals.writtenRow_ = row;
    totals.numberBeforeWrite_ = support::leadingNumberOfDisplayed(totals.main_.DisplayText(row, col));
}

/// Not made anew after all: only who heard of the write can have brought that about.
TotalRow::PutOff::~PutOff() {
    if (!made_ && totals_.writtenRow_ >= 0 && totals_.isPending(col_)) totals_.settle(col_);
    totals_.expected_ = NoColumn;
    totals_.writtenRow_ = -1;
}

double TotalRow::sumBeforeWrite(std::int32_t col) const {
    double sum = 0;
    if (col >= main_.Cols()) return sum;  // taken away meanwhile
    for (std::int32_t r = main_.FixedRows(); r < main_.Rows(); ++r)
        sum += r == writtenRow_ ? numberBeforeWrite_
                                : support::leadingNumberOfDisplayed(main_.DisplayText(r, col));
    return sum;
}

void TotalRow::contentWillChange(std::int32_t col) {
    if (expected_ == AllColumns) return;
    if (col >= 0) {
        if (isPending(col) && col != expected_) settle(col);
        return;
    }
    for (std::size_t c = 0; c < totals_.size(); ++c) settle(static_cast<std::int32_t>(c));
}
}  // namespace kxVsGrid::grid
