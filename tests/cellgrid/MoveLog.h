// Writes down the events of a grid's moves in the order in which they come.
#pragma once

#include <string>
#include <utility>
#include <vector>

#include "kxVsGrid/CellGrid.h"

namespace kxVsGrid::test {

class MoveLog {
  public:
    explicit MoveLog(CellGrid& grid) {
        grid.BeforeRowColChange.connect([this](int r, int c, int newR, int newC, bool&) {
            add("Before " + cell(r, c) + " -> " + cell(newR, newC));
        });
        grid.LeaveCell.connect([this, &grid] { add("Leave " + cell(grid.Row(), grid.Col())); });
        grid.EnterCell.connect([this, &grid] { add("Enter " + cell(grid.Row(), grid.Col())); });
        grid.RowColChange.connect([this] { add("RowColChange"); });
        grid.AfterRowColChange.connect([this](int r, int c, int newR, int newC) {
            add("After " + cell(r, c) + " -> " + cell(newR, newC));
        });
        grid.SelChange.connect([this] { add("SelChange"); });
    }
    MoveLog(const MoveLog&) = delete;
    MoveLog& operator=(const MoveLog&) = delete;

    /// What came since the last call.
    std::vector<std::string> take() { return std::exchange(lines_, {}); }
    void add(std::string line) { lines_.push_back(std::move(line)); }

    static std::string cell(int r, int c) { return std::to_string(r) + "," + std::to_string(c); }
    /// All events of one undisturbed move.
    static std::vector<std::string> whole(const std::string& from, const std::string& to) {
        return {"Before " + from + " -> " + to, "Leave " + from, "Enter " + to, "RowColChange",
                "After " + from + " -> " + to,  "SelChange"};
    }

  private:
    std::vector<std::string> lines_;
};
}  // namespace kxVsGrid::test
