#include "clerk/CopyPaste.h"

#include <algorithm>
#include <random>
#include <utility>

#include "clerk/PassedRows.h"
#include "clerk/ShownCells.h"
#include "rows/RowsInUse.h"
#include "support/BlockForm.h"
#include "support/Numbers.h"
#include "support/TableText.h"
#include "support/Text.h"

namespace kxVsGrid::clerk {

using support::BlockReader;
using support::TableReader;

// --- Copying

namespace {

/// Whole columns, and selections that are very long, end with the last row that holds something when they reach
/// the last one of the grid: below it there is nothing to copy.
std::int32_t lastRowToCopy(const CellGrid& grid, const CellRange& range) {
    const SelectionKind kind = grid.SelectedAs();
    const bool whole = kind == SelectionKind::Columns || kind == SelectionKind::All;
    const bool asItIs = !whole && range.rows() <= VeryLong;
    return asItIs || range.lastRow < grid.Rows() - 1 ? range.lastRow : lastFilledRow(grid, range);
}

/// What other programs read of a check box: what the clerk sees, in the words that pasting takes.
std::string boxText(const std::string& stored) {
    if (support::trim(stored).empty()) return {};
    return support::leadingNumber(stored) != 0 ? "是" : "否";
}
}  // namespace

const std::string& CopyPaste::gridKey() const {
    if (gridKey_.empty()) {
        std::random_device random;
        for (int i = 0; i < 4; ++i) gridKey_ += std::to_string(random()) + '-';
    }
    return gridKey_;
}

bool CopyPaste::copy(bool headers) const {
    std::int64_t filtered = 0;
    if (!copySelected(headers, filtered)) return false;
    tellPassedOver(c_, filtered);
    return true;
}

bool CopyPaste::copyToCut() const {
    std::int64_t filtered = 0;  // of which clearing will tell
    return copySelected(false, filtered);
}

bool CopyPaste::copySelected(bool headers, std::int64_t& filtered) const {
    const CellGrid& grid = c_.grid;
    const CellRange range = grid.Selected();
    const std::vector<std::int32_t> cols = shownCols(grid, range.firstCol, range.lastCol);
    if (range.empty() || cols.empty()) return false;

    ClipboardContent content{{}, {}, headers};
    support::TableWriter text(content.text);
    std::vector<support::BlockColumn> columns;
    columns.reserve(cols.size());
    std::vector<bool> boxes;
    for (const std::int32_t col : cols) {
        columns.push_back({col, c_.columns.at(col).sName()});
        boxes.push_back(c_.columns.at(col).iType() == flexDTBoolean);
    }
    support::BlockWriter block(content.block, gridKey(), columns);
    ShownRows captions(grid, c_.rows.follower(), 0, grid.FixedRows() - 1);
    while (headers && captions.next()) {
        for (const std::int32_t col : cols) text.cell(grid.Text(captions.row().row(), col));
        text.endRow();
    }
    std::int64_t cells = 0;
    std::string only;
    const std::int32_t last = lastRowToCopy(grid, range);
    filtered = grid.FilteredRows(range.firstRow, last);
    ShownRows rows(grid, c_.rows.follower(), range.firstRow, last);
    while (rows.next()) {
        const std::int32_t row = rows.row().row();
        for (std::size_t i = 0; i < cols.size(); ++i) {
            const std::int32_t col = cols[i];
            only = boxes[i] ? boxText(grid.Text(row, col)) : grid.DisplayText(row, col);
            text.cell(only);
            block.cell(grid.Text(row, col), grid.Data(row, col));
            ++cells;
        }
        text.endRow();
    }
    if (cells == 0) return false;
    text.finish();
    block.finish();
    // One cell is its text, to be pasted into a letter as well: no quotes, whatever stands in it.
    if (cells == 1 && !headers) content.text = std::move(only);
    if (headers) content.block.clear();
    c_.platform.copyToClipboard(content);
    return true;
}

// --- Pasting

/// The cells of what is pasted, one after the other: the text that another program would see, and where they
/// come from a column of this grid, what stood there.
class CopyPaste::Source {
  public:
    Source(const ClipboardContent& content, const std::string& gridKey, columns::ColumnArray& columns)
        : all_(content.text),
          text_(content.text),
          shape_(support::tableShape(content.text)),
          columns_(columns) {
        block_ = BlockReader::open(content.block);
        if (!block_) return;
        const support::TableShape shape{block_->rows(), static_cast<std::int64_t>(block_->columns().size())};
        // A single cell was copied as its bare text, which may look like several.
        oneCell_ = block_->isOneCell();
        if (oneCell_) shape_ = OneCell;
        if (block_->grid() != gridKey || shape != shape_) block_.reset();
    }

    const support::TableShape& shape() const { return shape_; }
    bool isOneCell() const { return shape_ == OneCell; }
    bool next() {
        if (block_ && !block_->next()) block_.reset();
        return oneCell_ ? std::exchange(atStart_, false) : text_.next();
    }
    std::int64_t row() const { return oneCell_ ? 0 : text_.row(); }
    std::int64_t col() const { return oneCell_ ? 0 : text_.col(); }

    void writeTo(BlockEdit& edit, const rows::FollowedRow& row, std::int32_t col) {
        if (comesFrom(col))
            edit.writePair(row, col, std::string(block_->text()), std::string(block_->tag()));
        else if (oneCell_)
            edit.write(row, col, all_);
        else
            edit.write(row, col, text_.text());
    }

  private:
    static constexpr support::TableShape OneCell{1, 1};

    bool comesFrom(std::int32_t col) const {
        if (!block_) return false;
        const support::BlockColumn& from = block_->columns()[static_cast<std::size_t>(block_->col())];
        const cVsControl* const column = columns_.find(col);
        return from.index == col && column && from.name == column->sName();
    }

    std::string_view all_;
    TableReader text_;
    support::TableShape shape_;
    columns::ColumnArray& columns_;
    std::optional<BlockReader> block_;
    bool oneCell_ = false;  ///< of a grid's: its text is not to be read as a table
    bool atStart_ = true;
};

bool CopyPaste::paste() {
    const CellRange range = c_.grid.Selected();
    if (range.empty()) return false;
    const ClipboardContent content = c_.platform.clipboardContent();
    Source source(content, gridKey(), c_.columns);
    if (source.shape().rows == 0) return false;
    return pasteInto(range, source);
}

bool CopyPaste::isCurrentCell(const CellRange& range) const {
    return range == CellRange{c_.grid.Row(), c_.grid.Col(), c_.grid.Row(), c_.grid.Col()};
}

/// Whole columns end with the last line: a value in the rows below would make lines of them.
std::int32_t CopyPaste::lastRowToFill(const CellRange& range) const {
    const SelectionKind kind = c_.grid.SelectedAs();
    if (kind != SelectionKind::Columns && kind != SelectionKind::All) return range.lastRow;
    const std::int32_t last = rows::lastRowInUse(c_, c_.defaulted, range.firstRow);
    return std::min(last < range.firstRow ? c_.grid.Rows() - 1 : last, range.lastRow);
}

bool CopyPaste::pasteInto(CellRange range, Source& source) {
    const support::TableShape& shape = source.shape();
    const bool single = source.isOneCell();
    const bool here = single && isCurrentCell(range);
    if (here && !c_.editor.gate().opens(range.firstRow, range.firstCol)) return false;
    if (single && c_.host.there()) range.lastRow = lastRowToFill(range);
    if (!c_.host.there() || range.lastCol >= c_.grid.Cols()) return false;

    std::vector<std::int32_t> cols =
        shownCols(c_.grid, range.firstCol, single ? range.lastCol : c_.grid.Cols() - 1);
    const auto width = static_cast<std::int64_t>(cols.size());
    if (!single && width > shape.cols) cols.resize(static_cast<std::size_t>(shape.cols));
    const std::int64_t cells = single ? range.rows() * width : shape.rows * std::min(width, shape.cols);
    BlockEdit edit(c_, Command::Paste, cells);
    if (here) edit.leaveRefusedToClerk();
    edit.during(namedFor(Command::Paste, cells), [&] {
        if (single)
            fill(edit, source, range, cols);
        else
            pasteBlock(edit, source, range, cols);
    });
    if (here && edit.report().refused > 0 && c_.host.there() && isCurrentCell(range)) leaveToClerk(edit);
    return true;
}

/// What the gate refuses is the clerk's to put right, in the editor unless that would cut it.
void CopyPaste::leaveToClerk(const BlockEdit& edit) {
    const bool boolean = c_.columns.at(c_.grid.Col()).iType() == flexDTBoolean;
    if (!boolean && !edit.tooLong()) {
        c_.editor.open();
        if (c_.editor.visible()) c_.seat.editText(Command::Paste);
    }
    tellAtCell(c_, edit.reason());
}

void CopyPaste::pasteBlock(BlockEdit& edit, Source& source, const CellRange& at,
                           const std::vector<std::int32_t>& cols) const {
    ShownRows rows(c_.grid, c_.rows.follower(), at.firstRow);
    std::int64_t row = -1;
    bool room = true;
    bool begun = false;
    std::int64_t beside = 0;
    std::int64_t below = 0;
    while (edit.goesOn() && source.next()) {
        if (rows.gone()) return edit.cutShort();
        if (source.row() != row) {
            row = source.row();
            if (room && row > 0) edit.askForRowBelow(rows.row());
            room = room && rows.next();
            begun = begun || room;
        }
        const auto col = static_cast<std::size_t>(source.col());
        if (col >= cols.size())
            ++beside;
        else if (!room)
            ++below;
        else
            source.writeTo(edit, rows.row(), cols[col]);
    }
    if (begun && !rows.gone()) edit.passOver(c_.grid.FilteredRows(at.firstRow, rows.row().row()));
    edit.refuseBeyond(beside, "超出最后一列。");
    edit.refuseBeyond(below, "没有更多的行。");
}

void CopyPaste::fill(BlockEdit& edit, Source& source, const CellRange& range,
                     const std::vector<std::int32_t>& cols) const {
    if (!source.next()) return;
    edit.forEachRow(range.firstRow, range.lastRow, [&](const rows::FollowedRow& row) {
        for (const std::int32_t col : cols) source.writeTo(edit, row, col);
    });
}
}  // namespace kxVsGrid::clerk
