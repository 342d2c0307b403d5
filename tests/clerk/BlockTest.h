// A clerk at the small grid who writes blocks of cells, with what was reported of each, and everything that a
// block which is taken back must leave as it was.
#pragma once

#include <algorithm>
#include <string>
#include <string_view>
#include <vector>

#include "kit/ClerkTest.h"

namespace kxVsGrid::testing {

/// What can be seen of a grid and its document, as lines that a failing test shows.
inline Lines wholeOf(kxGrid& grid) {
    Lines state;
    for (std::int32_t row = 0; row < grid.Rows(); ++row) {
        std::string cells;
        for (std::int32_t col = 0; col < grid.Cols(); ++col) {
            cells += " | " + grid.Grid().Text(row, col) + " #" + grid.Grid().Data(row, col);
            if (const CellMark* mark = grid.Mark(row, col)) cells += " marked " + mark->text;
        }
        state.push_back(cells);
    }
    std::string rest = std::string("dirty ") + (grid.bIsDirty() ? "yes" : "no") + ", at " +
                       std::to_string(grid.Row()) + "," + std::to_string(grid.Col()) + ", undo " +
                       (grid.History().CanUndo() ? grid.History().UndoName() : "nothing") + ", totals";
    for (std::int32_t col = 0; col < grid.Cols(); ++col) rest += " | " + grid.ReadSum(col);
    state.push_back(rest);
    return state;
}

/// The lines of such a state that are not those of another one.
inline Lines differences(const Lines& now, const Lines& before) {
    Lines found;
    for (std::size_t i = 0; i < std::max(now.size(), before.size()); ++i) {
        const std::string is = i < now.size() ? now[i] : "none", was = i < before.size() ? before[i] : "none";
        if (is != was) found.push_back("is" + is + ", was" + was);
    }
    return found;
}

/// Texts, or tags, of a rectangle: "a|b/c|d".
inline std::string blockOf(const CellGrid& cells, const CellRange& range, bool tags) {
    std::string block;
    for (std::int32_t row = range.firstRow; row <= range.lastRow; ++row) {
        if (row > range.firstRow) block += '/';
        for (std::int32_t col = range.firstCol; col <= range.lastCol; ++col) {
            if (col > range.firstCol) block += '|';
            block += tags ? cells.Data(row, col) : cells.Text(row, col);
        }
    }
    return block;
}

class BlockTest : public ClerkTest {
  protected:
    BlockTest() {
        grid.Commands().Reported.connect([this](const PasteReport& report) { reports.push_back(report); });
    }

    bool run(Command command) { return desk.run(command); }
    /// What another program has put on the clipboard.
    bool paste(std::string_view text) {
        desk.clipboard(text);
        return desk.run(Command::Paste);
    }
    /// Selects from the current cell, which the first one becomes, to another, without a trace in the log.
    void choose(std::int32_t row, std::int32_t col, std::int32_t lastRow, std::int32_t lastCol) {
        grid.Grid().Select(row, col);
        grid.Grid().SelectRange(row, col, lastRow, lastCol);
        log.clear();
    }
    std::string texts(std::int32_t row, std::int32_t col, std::int32_t lastRow, std::int32_t lastCol) const {
        return blockOf(grid.Grid(), {row, col, lastRow, lastCol}, false);
    }
    std::string tags(std::int32_t row, std::int32_t col, std::int32_t lastRow, std::int32_t lastCol) const {
        return blockOf(grid.Grid(), {row, col, lastRow, lastCol}, true);
    }
    /// What was reported last.
    PasteReport report() const {
        EXPECT_FALSE(reports.empty());
        return reports.empty() ? PasteReport() : reports.back();
    }
    void expectCounts(std::int64_t written, std::int64_t same, std::int64_t passedOver,
                      std::int64_t refused) {
        const PasteReport now = report();
        EXPECT_EQ(now.written, written);
        EXPECT_EQ(now.same, same);
        EXPECT_EQ(now.passedOver, passedOver);
        EXPECT_EQ(now.refused, refused);
    }
    bool problemAt(std::int32_t row, std::int32_t col) const {
        const CellMark* mark = grid.Mark(row, col);
        return mark != nullptr && mark->kind == CellMark::Kind::Problem;
    }
    /// The host locks cells for which `isLocked`.
    void lock(std::function<bool(std::int32_t, std::int32_t)> isLocked) {
        grid.Options().CellLocked.connect(
            [isLocked = std::move(isLocked)](std::int32_t row, std::int32_t col, bool& locked) {
                locked = isLocked(row, col);
            });
    }
    void undo() { EXPECT_TRUE(grid.Run(Command::Undo)); }

    std::vector<PasteReport> reports;
};
}  // namespace kxVsGrid::testing
