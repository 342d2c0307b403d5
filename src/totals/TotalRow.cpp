#include "totals/TotalRow.h"

#include <algorithm>

#include "support/Numbers.h"

namespace kxVsGrid::totals {

TotalRow::TotalRow(CellGrid& main, CellGrid& sums, columns::ColumnArray& columns)
    : main_(main), sums_(sums), columns_(columns) {
    sums_.ShowCursor(false);
    sums_.FixedRows(0);
    sums_.Rows(1);
    sums_.TextsRunOver(true);
    // A text that code writes into the total row stands in place of the sum that was still to be made.
    sums_.CellChanged.connect([this](std::int32_t, std::int32_t col) { forget(col); });
    sums_.watch(&ownCells_);
}

TotalRow::~TotalRow() {
    main_.watch(nullptr);
    sums_.watch(nullptr);
}

/// The main grid is watched only while there is something to add up: each of its writes would pay for it.
void TotalRow::pending(std::int32_t totals) {
    pending_ = totals;
    if (totals == 0) heedNone();
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
    sums_.FrozenCols(main_.StillCols() - main_.FixedCols());
    setRowHeight(StandardHeight);
    sums_.ScrollBars(false);
    color_ = LightGrey;
    sums_.FittedColor(LightGrey);
    paintAndCaption();
    for (std::int32_t c = 0; c < main_.Cols(); ++c) {
        sums_.ColWidth(c, main_.ColWidth(c));
        sums_.ColHidden(c, main_.ColHidden(c));
        sums_.ColAlignment(c, main_.ColAlignment(c));
        sums_.ColFormat(c, main_.ColFormat(c));
    }
    followScroll();
}

void TotalRow::followScroll() {
    if (sums_.Cols() != main_.Cols() || main_.Cols() <= main_.FixedCols()) return;
    sums_.ScrollTo(sums_.TopRow(), main_.LeftCol(), sums_.TopOffset(), main_.LeftOffset());
}

void TotalRow::followStillCols() {
    if (followsStillCols()) return;
    sums_.FrozenCols(main_.StillCols() - main_.FixedCols());
    followScroll();
}

void TotalRow::followFixedCols() {
    if (sums_.FixedCols() == main_.FixedCols()) return;
    sums_.FixedCols(main_.FixedCols());
    for (std::int32_t c = 0; c < sums_.Cols(); ++c) {
        sums_.Text(0, c, "");
        forget(c);
    }
    paintAndCaption();
    followStillCols();
    followScroll();
}

/// Without a column beside the fixed ones there is no cell for either.
void TotalRow::paintAndCaption() {
    const std::int32_t first = main_.FixedCols();
    if (first >= sums_.Cols()) return;
    paint();
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
    totals_[i].putOff = false;
    totals_[i].writtenRow = NoRow;
    pending(pending_ - 1);
}

/// The cell may not ask for its value any more.
void TotalRow::overwritten(std::int32_t col) {
    const auto first = static_cast<std::size_t>(std::max(col, 0));
    const std::size_t stop = col < 0 ? totals_.size() : std::min(first + 1, totals_.size());
    for (std::size_t c = first; c < stop; ++c) totals_[c].shown = false;
}

void TotalRow::copyWidths() {
    if (sums_.Cols() != main_.Cols()) followCols();  // something failed when the number was put
    for (std::int32_t c = 0; c < main_.Cols(); ++c) sums_.ColWidth(c, main_.ColWidth(c));
    followStillCols();
    followScroll();
}

void TotalRow::setColor(std::uint32_t color) {
    color_ = color;
    sums_.FittedColor(std::nullopt);
    paint();
}

void TotalRow::paint() {
    for (std::int32_t c = main_.FixedCols(); c < sums_.Cols(); ++c) sums_.CellBackColor(0, c, color_);
}

std::int32_t TotalRow::rowHeight() const {
    return sums_.RowHeight(0);
}

void TotalRow::setRowHeight(std::int32_t twips) {
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

/// A cell that is being written counts as it is now from here on. Once the total row's cell asks for the
/// value, this takes no memory: what was written is always counted.
void TotalRow::note(std::int32_t col) {
    if (!isSummed(col) || col >= sums_.Cols() || sums_.Rows() == 0) return;
    const auto i = static_cast<std::size_t>(col);
    if (totals_.size() <= i) totals_.resize(i + 1);
    if (!totals_[i].shown) {
        sums_.ComputedText(0, col, [this, col] { return valueText(col); });
        totals_[i].shown = true;
    } else if (!totals_[i].pending) {
        sums_.damageCell(0, col);
    }
    Total& total = totals_[i];
    total.putOff = false;
    total.writtenRow = NoRow;
    if (total.pending) return;
    total.pending = true;
    heed(col);
    pending(pending_ + 1);
}

std::string TotalRow::valueText(std::int32_t col) {
    if (static_cast<std::size_t>(col) >= totals_.size()) return {};
    settle(col);
    if (static_cast<std::size_t>(col) >= totals_.size()) return {};
    return support::totalText(totals_[static_cast<std::size_t>(col)].value);
}

/// A host that computes one of the texts may set the grid up meanwhile.
void TotalRow::settle(std::int32_t col) {
    if (!isPending(col)) return;
    const double value =
        isWritten(col) ? sumBeforeWrite(col, totals_[static_cast<std::size_t>(col)]) : main_.ColumnSum(col);
    if (!isPending(col)) return;
    totals_[static_cast<std::size_t>(col)].value = value;
    forget(col);
}

TotalRow::PutOff::PutOff(TotalRow& totals, std::int32_t row, std::int32_t col, bool heard)
    : totals_(totals), col_(col) {
    if (col == NoColumn) return;
    const double before = heard ? totals.main_.CellNumber(row, col) : 0;
    if (!totals.isPending(col)) return;  // the host that computes the cell has set the grid up
    Total& total = totals.totals_[static_cast<std::size_t>(col)];
    total.putOff = true;
    if (!heard) return;
    total.writtenRow = row;
    total.numberBefore = before;
}

double TotalRow::sumBeforeWrite(std::int32_t col, Total total) const {
    double sum = 0;
    if (col >= main_.Cols()) return sum;  // taken away meanwhile
    for (std::int32_t r = main_.FixedRows(); r < main_.Rows(); ++r)
        sum += r == total.writtenRow ? total.numberBefore : main_.CellNumber(r, col);
    return sum;
}

void TotalRow::contentWillChange(std::int32_t col) {
    if (col >= 0) {
        if (awaits(col)) settle(col);
        return;
    }
    for (std::size_t c = 0; c < totals_.size(); ++c) {
        // An inserted row moves the one that a written cell is known by.
        if (!emptyRows_ || totals_[c].writtenRow >= 0) settle(static_cast<std::int32_t>(c));
    }
}
}  // namespace kxVsGrid::totals
