#include "rows/DefaultTexts.h"

#include <optional>
#include <string>

#include "columns/CellTarget.h"
#include "columns/EditableColumn.h"
#include "rows/PairWrite.h"

namespace kxVsGrid::rows {
namespace {

enum class Slot { Text, Tag };

bool isReference(std::string_view text) {
    return text.size() >= 2 && text.front() == '[' && text.back() == ']';
}

/// What a default gives the cell (row, col); nothing when it gives none.
std::optional<std::string> resolveDefault(const CellGrid& grid, const std::string& text, std::int32_t row,
                                          std::int32_t col, Slot slot) {
    if (text.empty()) return std::nullopt;
    if (!isReference(text)) return text;
    const auto target = columns::resolveTarget(std::string_view(text).substr(1, text.size() - 2), row, col);
    if (!target) return std::nullopt;
    if (target->row < grid.FixedRows() || target->row >= grid.Rows()) return std::nullopt;
    if (target->col < grid.FixedCols() || target->col >= grid.Cols()) return std::nullopt;
    const auto fromRow = static_cast<std::int32_t>(target->row);
    const auto fromCol = static_cast<std::int32_t>(target->col);
    if (grid.Text(fromRow, fromCol).empty()) return std::nullopt;
    return slot == Slot::Text ? grid.Text(fromRow, fromCol) : grid.Data(fromRow, fromCol);
}
}  // namespace

bool fillDefaultTexts(CellGrid& grid, columns::ColumnArray& columns, DefaultedCells& defaulted,
                      RowFollower& follower, std::int32_t row) {
    bool currentWritten = false;
    for (std::int32_t c = grid.FixedCols(); c < grid.Cols(); ++c) {
        if (row >= grid.Rows()) break;  // a host took rows away as it heard of a change
        if (!grid.Text(row, c).empty()) continue;
        const std::shared_ptr<cVsControl> column = columns.shared(c);
        const auto tag = resolveDefault(grid, column->sDefaultText_Code(), row, c, Slot::Tag);
        const auto text = resolveDefault(grid, column->sDefaultText_Name(), row, c, Slot::Text);
        const auto write = [&] {
            if (tag) grid.Data(row, c, *tag);
            if (!text || !columns::isDataCell(grid, row, c)) return;
            defaulted.put(row, c, *text);  // before others hear of it, who may give the cell another one
            grid.Text(row, c, *text);
        };
        if (tag && text)
            PairWrite(grid, follower, row, c).during(*tag, write);
        else
            write();
        if ((tag || text) && row == grid.Row() && c == grid.Col()) currentWritten = true;
    }
    return currentWritten;
}
}  // namespace kxVsGrid::rows
