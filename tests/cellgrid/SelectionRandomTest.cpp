// Selections against a twin that marks its rows one by one, and moves its corner as a current cell.
#include <gtest/gtest.h>

#include <algorithm>
#include <vector>

#include "FrameReader.h"
#include "kit/Dice.h"
#include "kit/PrintTo.h"
#include "kxVsGrid/CellGrid.h"

namespace kxVsGrid {
namespace {

constexpr Key MovingKeys[] = {Key::Left, Key::Right, Key::Up,     Key::Down,
                              Key::Home, Key::End,   Key::PageUp, Key::PageDown};

class SelectionTwin {
  public:
    SelectionTwin() {
        for (CellGrid* one : {&grid_, &corner_}) {
            one->Rows(30);
            one->Cols(9);
            one->Resize(4300, 3000);
        }
        grid_.SelectsRanges(true);
        grid_.SelChange.connect([this] { ++told_; });
        noteRows();
    }

    void run(int steps) {
        for (int i = 0; i < steps && !::testing::Test::HasFailure(); ++i) {
            step();
            agree();
        }
    }

  private:
    struct Ends {
        SelectionKind kind;
        std::int32_t values[4];
        bool operator==(const Ends&) const = default;
    };
    Ends ends() const {
        return {grid_.SelectedAs(), {grid_.SelRow(), grid_.SelCol(), grid_.RowSel(), grid_.ColSel()}};
    }
    bool anyData() const { return grid_.Rows() > grid_.FixedRows() && grid_.Cols() > grid_.FixedCols(); }
    std::int32_t dataRow() { return dice_.between(grid_.FixedRows(), grid_.Rows() - 1); }
    std::int32_t dataCol() { return dice_.between(grid_.FixedCols(), grid_.Cols() - 1); }

    void step() {
        told_ = 0;
        looked_ = look();
        grid_.takeDamage();
        switch (dice_.between(0, 9)) {
            case 0:
            case 1:
            case 2:
                return pressKey();
            case 3:
                return selectByCode();
            case 4:
                return moveOrHide();
            case 5:
                return changeRows();
            case 6:
                return changeSize();
            default:
                return useMouse();
        }
    }

    /// One SelChange where something else is selected, none where not.
    template <class Act>
    void selecting(Act act) {
        const Ends before = ends();
        const std::int32_t row = grid_.Row();
        const std::int32_t col = grid_.Col();
        act();
        const bool moved = row != grid_.Row() || col != grid_.Col();
        EXPECT_EQ(told_, before != ends() || moved ? 1 : 0);
        EXPECT_TRUE(!moved || grid_.SelectsOneCell());
        checkDamage();
        noteRows();
    }

    void pressKey() {
        const auto key = static_cast<std::int16_t>(MovingKeys[dice_.between(0, 7)]);
        const auto shift = static_cast<std::int16_t>(dice_.between(0, 3));
        const bool extends = (shift & ShiftKey) != 0 && !grid_.Selected().empty();
        const Ends before = ends();
        if (grid_.Row() >= 0 && grid_.Col() >= 0 && before.values[2] >= 0 && before.values[3] >= 0) {
            corner_.Select(before.values[2], before.values[3]);
            corner_.keyDown(key, shift);
        }
        selecting([&] { grid_.keyDown(key, shift); });
        if (!extends) return;
        const bool byRows = before.kind != SelectionKind::Columns && before.kind != SelectionKind::All;
        const bool byCols = before.kind != SelectionKind::Rows && before.kind != SelectionKind::All;
        EXPECT_EQ(grid_.RowSel(), byRows ? corner_.Row() : before.values[2]);
        EXPECT_EQ(grid_.ColSel(), byCols ? corner_.Col() : before.values[3]);
        EXPECT_EQ(grid_.SelRow(), before.values[0]);
        EXPECT_EQ(grid_.SelCol(), before.values[1]);
    }

    void selectByCode() {
        if (!anyData()) return;
        const std::int32_t row = dataRow();
        const std::int32_t col = dataCol();
        const std::int32_t otherRow = dataRow();
        const std::int32_t otherCol = dataCol();
        selecting([&] {
            switch (dice_.between(0, 4)) {
                case 0:
                    return grid_.SelectRange(row, col, otherRow, otherCol);
                case 1:
                    return grid_.SelectRows(row, otherRow);
                case 2:
                    return grid_.SelectCols(col, otherCol);
                case 3:
                    return grid_.SelectAll();
                default:
                    return grid_.Unselect();
            }
        });
    }

    void moveOrHide() {
        if (!anyData()) return;
        const std::int32_t row = dataRow();
        const std::int32_t col = dataCol();
        if (dice_.oneIn(2)) return selecting([&] { grid_.Select(row, col); });
        const bool hidden = dice_.oneIn(2);
        for (CellGrid* one : {&grid_, &corner_}) {
            if (row % 2 == 0)
                one->RowHidden(row, hidden);
            else
                one->ColHidden(col, hidden);
        }
    }

    void changeRows() {
        const bool open =
            grid_.SelectedAs() == SelectionKind::Cells || grid_.SelectedAs() == SelectionKind::Rows;
        const bool insert = dice_.oneIn(2) || grid_.Rows() == grid_.FixedRows();
        const std::int32_t position = insert ? dice_.between(grid_.FixedRows(), grid_.Rows()) : dataRow();
        const bool wasOne = grid_.SelectsOneCell();
        for (CellGrid* one : {&grid_, &corner_}) insert ? one->InsertRow(position) : one->RemoveRow(position);
        EXPECT_EQ(told_, 0);
        if (wasOne || grid_.SelectsOneCell() || !open) return noteRows();
        const auto at = marked_.begin() + position;
        if (insert)
            marked_.insert(
                at, position > 0 && position < static_cast<std::int32_t>(marked_.size()) && at[-1] && at[0]);
        else
            marked_.erase(at);
    }

    void changeSize() {
        const std::int32_t rows = dice_.between(2, 30);
        const std::int32_t cols = dice_.between(2, 9);
        const std::int32_t fixedRows = dice_.between(0, 2);
        const std::int32_t fixedCols = dice_.between(0, 2);
        const std::int32_t frozenCols = dice_.between(0, 4);
        const int what = dice_.between(0, 4);
        const CellRange before = grid_.SelectsOneCell() ? CellRange{} : grid_.Selected();
        const SelectionKind kind = grid_.SelectedAs();
        const std::int32_t row = grid_.Row();
        const std::int32_t col = grid_.Col();
        for (CellGrid* one : {&grid_, &corner_}) {
            if (what == 0) one->Rows(rows);
            if (what == 1) one->Cols(std::max(cols, one->FixedCols()));
            if (what == 2) one->FixedRows(std::min(fixedRows, one->Rows()));
            if (what == 3) one->FixedCols(std::min(fixedCols, one->Cols()));
            if (what == 4) one->FrozenCols(frozenCols);
        }
        const bool moved = row != grid_.Row() || col != grid_.Col();
        EXPECT_EQ(told_, moved && row >= 0 && grid_.Row() >= 0 ? 1 : 0);  // rows may be gone, or come back
        EXPECT_TRUE(!moved || grid_.SelectsOneCell());
        if (!moved && !before.empty()) expectCut(before, kind);
        noteRows();
    }

    /// What lay in the grid still does; what was whole is.
    void expectCut(const CellRange& before, SelectionKind kind) {
        const bool wholeRows = kind == SelectionKind::Rows || kind == SelectionKind::All;
        const bool wholeCols = kind == SelectionKind::Columns || kind == SelectionKind::All;
        CellRange cut{std::max(before.firstRow, grid_.FixedRows()),
                      std::max(before.firstCol, grid_.FixedCols()),
                      std::min(before.lastRow, grid_.Rows() - 1), std::min(before.lastCol, grid_.Cols() - 1)};
        if (wholeCols) cut.firstRow = grid_.FixedRows(), cut.lastRow = grid_.Rows() - 1;
        if (wholeRows) cut.firstCol = grid_.FixedCols(), cut.lastCol = grid_.Cols() - 1;
        if (cut.empty())
            EXPECT_TRUE(grid_.SelectsOneCell());
        else
            EXPECT_EQ(grid_.Selected(), cut);
    }

    void useMouse() {
        const std::int32_t x = dice_.between(-500, 5000);
        const std::int32_t y = dice_.between(-500, 3500);
        const auto shift = static_cast<std::int16_t>(dice_.between(0, 1));
        if (grid_.HitTest(x, y).part == GridHit::Part::ColumnEdge) return;
        switch (dice_.between(0, 3)) {
            case 0:
                return selecting([&] { grid_.mouseDown(LeftButton, shift, x, y); });
            case 1:
                return selecting([&] { grid_.mouseUp(LeftButton, 0, x, y); });
            default:
                return selecting([&] { grid_.mouseMove(LeftButton, 0, x, y); });
        }
    }

    void noteRows() {
        marked_.assign(static_cast<std::size_t>(grid_.Rows()), false);
        const CellRange range = grid_.Selected();
        for (std::int32_t row = range.firstRow; row <= range.lastRow; ++row)
            marked_[static_cast<std::size_t>(row)] = true;
    }

    void agree() {
        const CellRange range = grid_.Selected();
        const bool onData = anyData() && grid_.Row() >= grid_.FixedRows() && grid_.Col() >= grid_.FixedCols();
        EXPECT_FALSE(onData && range.empty());
        if (range.empty()) return;
        EXPECT_GE(range.firstRow, grid_.FixedRows());
        EXPECT_GE(range.firstCol, grid_.FixedCols());
        EXPECT_LT(range.lastRow, grid_.Rows());
        EXPECT_LT(range.lastCol, grid_.Cols());
        EXPECT_EQ(range.firstRow, std::min(grid_.SelRow(), grid_.RowSel()));
        EXPECT_EQ(range.lastRow, std::max(grid_.SelRow(), grid_.RowSel()));
        EXPECT_EQ(range.firstCol, std::min(grid_.SelCol(), grid_.ColSel()));
        EXPECT_EQ(range.lastCol, std::max(grid_.SelCol(), grid_.ColSel()));
        for (std::int32_t row = 0; row < grid_.Rows(); ++row)
            EXPECT_EQ(marked_[static_cast<std::size_t>(row)], row >= range.firstRow && row <= range.lastRow)
                << row;
        if (!grid_.SelectsOneCell()) return;
        EXPECT_EQ(range, (CellRange{grid_.Row(), grid_.Col(), grid_.Row(), grid_.Col()}));
    }

    /// How the cells in view look: their ground, and whether they are tinted.
    std::vector<std::uint32_t> look() const {
        std::vector<std::uint32_t> cells;
        const FrameReader reader(grid_);
        forEachShown([&](std::int32_t x, std::int32_t y) {
            const bool tinted =
                std::any_of(reader.items().begin(), reader.items().end(), [&](const auto& item) {
                    return item.kind == FrameItem::Kind::Tint && item.rect.contains(x, y);
                });
            cells.push_back(reader.fillAt(x, y) + (tinted ? 1u : 0u));
        });
        return cells;
    }
    template <class Visit>
    void forEachShown(Visit visit) const {
        for (std::int32_t y = 20; y < grid_.ClientHeight(); y += 140)
            for (std::int32_t x = 20; x < grid_.ClientWidth(); x += 310) visit(x, y);
    }
    void checkDamage() {
        const CellGrid::Damage damage = grid_.takeDamage();
        if (damage.all) return;
        const std::vector<std::uint32_t> now = look();
        std::size_t i = 0;
        forEachShown([&](std::int32_t x, std::int32_t y) {
            const bool told = std::any_of(damage.rects.begin(), damage.rects.end(),
                                          [&](const Rect& rect) { return rect.contains(x, y); });
            EXPECT_TRUE(now[i] == looked_[i] || told) << x << ',' << y;
            ++i;
        });
    }

    kit::Dice dice_;
    CellGrid grid_;
    CellGrid corner_;  ///< its current cell goes where the corner shall go
    std::vector<bool> marked_;
    std::vector<std::uint32_t> looked_;
    int told_ = 0;
};

TEST(SelectionRandom, AgreesWithItsTwin) {
    for (int grids = 0; grids < 30 && !::testing::Test::HasFailure(); ++grids) SelectionTwin().run(300);
}
}  // namespace
}  // namespace kxVsGrid
