// What the parts of a sheet share: the grid, what the host has said of its columns and lines.
#pragma once

#include <cstdint>
#include <deque>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "kxVsGrid/sheet/SheetBody.h"

namespace kxVsGrid::sheet {

struct SheetContext {
    kxGrid& grid;
    MakeRecord make;
    bool computesTwice;
    std::deque<ColumnPlan> plans = {};  ///< hosts hold them while they describe a column
    std::vector<Rule> rules = {};
    std::function<bool(const void*)> inUse = {};
    std::optional<Identity> identity = {};
    std::optional<Identity> version = {};
    std::optional<Position> position = {};
    std::function<void(void*, const Edited&)> edited = {};
    std::function<bool(void*)> copied = {};
    std::function<void(const std::string&)> failed = {};
    std::function<std::string(const Fault&)> wording = {};
    std::function<bool(const std::vector<std::int32_t>&)> mayDelete = {};
    std::function<std::string(const std::vector<KeptRecord>&)> together = {};
    std::string enterToNextRow = {};  ///< from columns of which nothing else is said
    Unreadable unreadable = Unreadable::Refused;
    std::int32_t leastRows = 5;
    bool gone =
        false;  ///< the host has destroyed the sheet, and perhaps the grid: neither is touched any more

    // When the sheet has gone there are no columns and no rows left: whoever goes through them ends.
    std::int32_t count() const { return gone ? 0 : static_cast<std::int32_t>(plans.size()); }
    const ColumnPlan& plan(std::int32_t column) const { return plans[static_cast<std::size_t>(column)]; }
    /// -1 for a name that is none.
    std::int32_t columnNamed(std::string_view name) const {
        for (std::int32_t column = 0; column < count(); ++column)
            if (plan(column).name == name) return column;
        return -1;
    }
    /// The host has taken none of the columns away.
    bool whole() const { return !gone && grid.Cols() >= grid.FixedCols() + count(); }
    /// Of a column of the sheet, in the grid.
    std::int32_t gridCol(std::int32_t column) const { return gone ? -1 : grid.FixedCols() + column; }
    CellGrid& cells() const { return grid.Grid(); }
    /// Where the row is now; -1 when it has gone, or the sheet has.
    std::int32_t rowOf(RowId id) const {
        if (gone) return -1;
        const std::int32_t row = cells().RowOf(id);
        return row >= firstRow() && row < endRow() ? row : -1;
    }
    /// All lines and the rows that may become some.
    std::int32_t firstRow() const { return gone ? 0 : grid.FixedRows(); }
    std::int32_t endRow() const { return gone ? 0 : grid.Rows(); }

    /// The host may do anything as he hears of it.
    void tellFailed(const std::string& why) const {
        if (const auto told = failed) told(why);
    }
    /// A line with such a text cannot be read.
    bool refuses(const std::optional<Fault>& unreadableText) const {
        return unreadableText && unreadable == Unreadable::Refused;
    }
    /// For the clerk.
    Fault faultAt(std::int32_t row, std::int32_t column, std::string reason) const {
        return {row,
                gridCol(column),
                "第 " + std::to_string(row - firstRow() + 1) + " 行的" + plan(column).caption,
                std::move(reason),
                {},
                FaultKind::Rule,
                plan(column).caption};
    }
};
}  // namespace kxVsGrid::sheet
