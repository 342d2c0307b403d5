#include "clerk/CellCommands.h"

#include <algorithm>
#include <tuple>
#include <unordered_set>

#include "clerk/PassedRows.h"
#include "clerk/ShownCells.h"
#include "editing/DateForms.h"
#include "support/Dates.h"

namespace kxVsGrid::clerk {
namespace {

struct FilledCell {
    std::int32_t row;
    std::int32_t col;
};

/// Row by row, as the clerk reads them. `filtered` is the number of rows that hold something, and that a filter hides.
std::vector<FilledCell> filledCells(const CellGrid& grid, const CellRange& range, std::int64_t& filtered) {
    std::vector<FilledCell> cells;
    std::unordered_set<std::int32_t> unseen;
    grid.ForEachCell(range.firstRow, range.lastRow,
                     [&](std::int32_t row, std::int32_t col, std::string_view, std::string_view) {
                         if (!range.contains(row, col) || !isShownCol(grid, col)) return;
                         if (isShownRow(grid, row))
                             cells.push_back({row, col});
                         else if (grid.RowFiltered(row))
                             unseen.insert(row);
                     });
    filtered = static_cast<std::int64_t>(unseen.size());
    std::sort(cells.begin(), cells.end(), [](const FilledCell& a, const FilledCell& b) {
        return std::tie(a.row, a.col) < std::tie(b.row, b.col);
    });
    return cells;
}
}  // namespace

// --- Clearing

/// Only rows that hold something are followed: most of a large selection may be empty.
void CellCommands::clear(Command command) {
    CellGrid& grid = c_.grid;
    std::int64_t filtered = 0;
    const std::vector<FilledCell> cells = filledCells(grid, grid.Selected(), filtered);
    if (cells.empty()) return tellPassedOver(c_, filtered);
    std::vector<RowId> ids;  // of the rows, one after the other
    for (std::size_t i = 0; i < cells.size(); ++i)
        if (i == 0 || cells[i].row != cells[i - 1].row) ids.push_back(grid.IdOf(cells[i].row));

    BlockEdit edit(c_, command, static_cast<std::int64_t>(cells.size()));
    edit.passOver(filtered);
    edit.during(namedFor(command, static_cast<std::int64_t>(cells.size())), [&] {
        auto id = ids.begin();
        for (std::size_t i = 0; i < cells.size() && edit.goesOn(); ++id) {
            const std::int32_t row = grid.RowOf(*id);
            if (row < 0) return edit.cutShort();
            const rows::FollowedRow followed(c_.rows.follower(), row);
            for (const std::int32_t known = cells[i].row; i < cells.size() && cells[i].row == known; ++i)
                edit.write(followed, cells[i].col, {});
        }
    });
}

// --- Filling

/// The nearest shown data row above, or -1.
std::int32_t CellCommands::rowAbove(std::int32_t row) const {
    if (row <= c_.grid.FixedRows()) return -1;
    const std::int32_t above = c_.grid.ShownRowBefore(row);
    return above < c_.grid.FixedRows() ? -1 : above;
}

std::int32_t CellCommands::sourceRow() const {
    const CellRange range = c_.grid.Selected();
    if (range.empty()) return -1;
    return range.rows() > 1 ? c_.grid.ShownRowAfter(range.firstRow - 1) : rowAbove(range.firstRow);
}

bool CellCommands::fillDown() {
    CellGrid& grid = c_.grid;
    const std::int32_t source = sourceRow();
    if (source < 0) return false;
    const CellRange range = grid.Selected();
    const std::vector<std::int32_t> cols = shownCols(grid, range.firstCol, range.lastCol);
    std::vector<std::pair<std::string, std::string>> pairs;
    pairs.reserve(cols.size());
    for (const std::int32_t col : cols) pairs.emplace_back(grid.Text(source, col), grid.Data(source, col));

    const std::int32_t first = std::max(range.firstRow, source + 1);
    if (first > range.lastRow) return false;
    const auto cells = std::int64_t{range.lastRow - first + 1} * static_cast<std::int64_t>(cols.size());
    BlockEdit edit(c_, Command::FillDown, cells);
    edit.during(captionOf(Command::FillDown), [&] {
        edit.forEachRow(first, range.lastRow, [&](const rows::FollowedRow& row) {
            for (std::size_t i = 0; i < cols.size(); ++i)
                edit.writePair(row, cols[i], pairs[i].first, pairs[i].second);
        });
    });
    return true;
}

std::int32_t CellCommands::sourceCol() const {
    const CellGrid& grid = c_.grid;
    const CellRange range = grid.Selected();
    if (range.empty()) return -1;
    const std::vector<std::int32_t> cols = shownCols(grid, range.firstCol, range.lastCol);
    if (cols.size() > 1) return cols.front();
    for (std::int32_t col = range.firstCol; --col >= grid.FixedCols();)
        if (isShownCol(grid, col)) return col;
    return -1;
}

/// Another column checks what it is given.
bool CellCommands::fillRight() {
    CellGrid& grid = c_.grid;
    const std::int32_t source = sourceCol();
    if (source < 0) return false;
    const CellRange range = grid.Selected();
    std::vector<std::int32_t> cols = shownCols(grid, range.firstCol, range.lastCol);
    std::erase(cols, source);
    BlockEdit edit(c_, Command::FillRight, range.rows() * static_cast<std::int64_t>(cols.size()));
    edit.during(captionOf(Command::FillRight), [&] {
        edit.forEachRow(range.firstRow, range.lastRow, [&](const rows::FollowedRow& row) {
            if (source >= grid.Cols()) return edit.cutShort();
            const std::string text = grid.DisplayText(row.row(), source);
            for (const std::int32_t col : cols) edit.write(row, col, text);
        });
    });
    return true;
}

bool CellCommands::copyFromAbove() {
    if (!canCopyFromAbove()) return false;
    CellGrid& grid = c_.grid;
    const std::int32_t col = grid.Col();
    const std::int32_t above = rowAbove(grid.Row());
    const std::string text = grid.Text(above, col);
    const std::string tag = grid.Data(above, col);
    BlockEdit edit(c_, Command::CopyFromAbove, 1);
    edit.during(captionOf(Command::CopyFromAbove), [&] {
        const rows::FollowedRow row(c_.rows.follower(), grid.Row());
        edit.writePair(row, col, text, tag);
    });
    return true;
}

std::string CellCommands::enter(std::int32_t row, std::int32_t col, std::string_view text) {
    const CellGrid& grid = c_.grid;
    const bool isData =
        row >= grid.FixedRows() && row < grid.Rows() && col >= grid.FixedCols() && col < grid.Cols();
    if (!isData) return "这里没有单元格。";
    BlockEdit edit(c_, Command::Paste, 1);
    edit.asEntry();
    edit.during("录入", [&] {
        const rows::FollowedRow followed(c_.rows.follower(), row);
        edit.write(followed, col, text);
    });
    const PasteReport& report = edit.report();
    if (report.passedOver > 0) return "这个单元格不能修改。";
    if (!edit.reason().empty()) return edit.reason();
    return report.written + report.same > 0 ? "" : "这个单元格已经不在了。";
}

// --- Dates

/// A date is no number: in a number column it would be worked out as a difference.
bool CellCommands::canTakeMoment() const {
    if (c_.grid.Col() < 0) return false;
    const mEmDataType type = c_.columns.at(c_.grid.Col()).iType();
    return type != flexDTDouble && type != flexDTBoolean;
}

std::string CellCommands::momentText(Command command) const {
    const DateTime now = c_.platform.now();
    const cVsControl& column = c_.columns.at(c_.grid.Col());
    const auto kind = static_cast<std::int32_t>(column.i字段有效性判断类型());
    const bool checked = column.i有效性判断() != 0;
    for (const editing::DateForm form :
         {editing::DateForm::Date, editing::DateForm::HalfDay, editing::DateForm::Time})
        if (checked && kind == static_cast<std::int32_t>(form)) return editing::exampleOf(form, now);
    const std::string date = support::shortDateText(now);
    return command == Command::Now ? date + " " + support::timeText(now) : date;
}

bool CellCommands::moment(Command command) {
    if (!canTakeMoment()) return false;
    const std::int32_t col = c_.grid.Col();
    const std::string text = momentText(command);
    BlockEdit edit(c_, command, 1);
    edit.during(captionOf(command), [&] {
        const rows::FollowedRow row(c_.rows.follower(), c_.grid.Row());
        edit.write(row, col, text);
    });
    return true;
}
}  // namespace kxVsGrid::clerk
