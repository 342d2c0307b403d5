#include "clerk/CopyPaste.h"

#include <algorithm>
#include <random>

#include "clerk/ShownCells.h"
#include "support/BlockForm.h"
#include "support/TableText.h"

namespace kxVsGrid::clerk {

using support::BlockReader;
using support::TableReader;

// --- Copying

namespace {

/// Whole columns end with the last row that holds something: below it there is nothing to copy.
std::int32_t lastRowToCopy(const CellGrid& grid, const CellRange& range) {
    const bool whole = grid.SelectedAs() == SelectionKind::Columns || grid.SelectedAs() == SelectionKind::All;
    if (!whole) return range.lastRow;
    std::int32_t last = range.firstRow;
    grid.ForEachCell(range.firstRow, range.lastRow,
                     [&](std::int32_t row, std::int32_t col, std::string_view, std::string_view) {
                         if (col >= range.firstCol && col <= range.lastCol) last = std::max(last, row);
                     });
    return last;
}

template <class Visit>
void forEachShownRow(const CellGrid& grid, std::int32_t first, std::int32_t last, Visit visit) {
    for (std::int32_t row = grid.ShownRowAfter(first - 1); row >= first && row <= last;) {
        visit(row);
        const std::int32_t next = grid.ShownRowAfter(row);
        if (next <= row) break;
        row = next;
    }
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
    const CellGrid& grid = c_.grid;
    const CellRange range = grid.Selected();
    const std::vector<std::int32_t> cols = shownCols(grid, range.firstCol, range.lastCol);
    if (range.empty() || cols.empty()) return false;

    ClipboardContent content{{}, {}, headers};
    support::TableWriter text(content.text);
    std::vector<support::BlockColumn> columns;
    for (const std::int32_t col : cols) columns.push_back({col, c_.columns.at(col).sName()});
    support::BlockWriter block(content.block, gridKey(), columns);
    if (headers)
        forEachShownRow(grid, 0, grid.FixedRows() - 1, [&](std::int32_t row) {
            for (const std::int32_t col : cols) text.cell(grid.Text(row, col));
            text.endRow();
        });
    std::int64_t cells = 0;
    std::string only;
    forEachShownRow(grid, range.firstRow, lastRowToCopy(grid, range), [&](std::int32_t row) {
        for (const std::int32_t col : cols) {
            only = grid.DisplayText(row, col);
            text.cell(only);
            block.cell(grid.Text(row, col), grid.Data(row, col));
            ++cells;
        }
        text.endRow();
    });
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
    Source(const ClipboardContent& content, const std::string& gridKey) : text_(content.text) {
        if (isOneCell(content)) one_ = content.text;
        block_ = BlockReader::open(content.block);
        if (!block_) return;
        const support::TableShape shape = shapeOf(content);
        const auto width = static_cast<std::int64_t>(block_->columns().size());
        if (block_->grid() != gridKey || shape != support::TableShape{block_->rows(), width}) block_.reset();
    }

    static support::TableShape shapeOf(const ClipboardContent& content) {
        return isOneCell(content) ? support::TableShape{1, 1} : support::tableShape(content.text);
    }

    bool next() {
        if (block_ && !block_->next()) block_.reset();
        return text_.next();
    }
    std::int64_t row() const { return text_.row(); }
    std::int64_t col() const { return text_.col(); }

    void writeTo(BlockEdit& edit, const rows::FollowedRow& row, std::int32_t col) {
        const bool samePlace =
            block_ && block_->columns()[static_cast<std::size_t>(block_->col())].index == col;
        if (samePlace)
            edit.writePair(row, col, std::string(block_->text()), std::string(block_->tag()));
        else
            edit.write(row, col, one_ ? *one_ : text_.text());
    }

  private:
    TableReader text_;
    std::optional<std::string_view> one_;  ///< which is not to be read as a table
    std::optional<BlockReader> block_;
};

bool CopyPaste::paste() {
    const CellRange range = c_.grid.Selected();
    if (range.empty()) return false;
    const ClipboardContent content = c_.platform.clipboardContent();
    if (content.text.empty()) return false;
    return pasteInto(range, content);
}

bool CopyPaste::pasteInto(const CellRange& range, const ClipboardContent& content) {
    const support::TableShape shape = Source::shapeOf(content);
    const bool single = shape == support::TableShape{1, 1};
    const bool oneCell = range.rows() == 1 && range.cols() == 1;
    if (single && oneCell && !c_.editor.gate().opens(range.firstRow, range.firstCol)) return false;

    std::vector<std::int32_t> cols =
        shownCols(c_.grid, range.firstCol, single ? range.lastCol : c_.grid.Cols() - 1);
    const auto width = static_cast<std::int64_t>(cols.size());
    if (!single && width > shape.cols) cols.resize(static_cast<std::size_t>(shape.cols));
    const std::int64_t cells = single ? range.rows() * width : shape.rows * std::min(width, shape.cols);
    BlockEdit edit(c_, Command::Paste, cells);
    if (single && oneCell) edit.leaveRefusedToClerk();
    edit.during("粘贴 " + std::to_string(cells) + " 格", [&] {
        Source source(content, gridKey());
        if (single)
            fill(edit, source, range, cols);
        else
            pasteBlock(edit, source, range, cols);
    });
    if (single && oneCell && edit.report().refused > 0) pasteIntoEditor();
    return true;
}

/// What the gate refuses is the clerk's to put right.
void CopyPaste::pasteIntoEditor() {
    if (!c_.host.there() || c_.grid.Col() < 0) return;
    if (c_.columns.at(c_.grid.Col()).iType() == flexDTBoolean) return;
    c_.editor.open();
    if (c_.editor.visible()) c_.seat.editText(Command::Paste);
}

void CopyPaste::pasteBlock(BlockEdit& edit, Source& source, const CellRange& at,
                           const std::vector<std::int32_t>& cols) const {
    ShownRows rows(c_.grid, c_.rows.follower(), at.firstRow, ShownRows::NoEnd);
    std::int64_t row = -1;
    bool room = true;
    std::int64_t beside = 0;
    std::int64_t below = 0;
    while (edit.goesOn() && source.next()) {
        if (rows.gone()) return edit.cutShort();
        if (source.row() != row) {
            row = source.row();
            room = room && rows.next();
            if (room) edit.startRow(rows.row());
        }
        const auto col = static_cast<std::size_t>(source.col());
        if (col >= cols.size())
            ++beside;
        else if (!room)
            ++below;
        else
            source.writeTo(edit, rows.row(), cols[col]);
    }
    edit.refuseBeyond(beside, "超出最后一列。");
    edit.refuseBeyond(below, "没有更多的行。");
}

void CopyPaste::fill(BlockEdit& edit, Source& source, const CellRange& range,
                     const std::vector<std::int32_t>& cols) const {
    if (!source.next()) return;
    ShownRows rows(c_.grid, c_.rows.follower(), range.firstRow, range.lastRow);
    while (edit.goesOn() && rows.next()) {
        edit.startRow(rows.row());
        for (const std::int32_t col : cols)
            if (edit.goesOn()) source.writeTo(edit, rows.row(), col);
    }
}
}  // namespace kxVsGrid::clerk
