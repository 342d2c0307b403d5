// Frames of random grids, compared with what a look at every single cell says.
#include <gtest/gtest.h>

#include "cellgrid/FrameReader.h"
#include "kit/Random.h"

namespace kxVsGrid {
namespace {

using Kind = FrameItem::Kind;

class RandomlyDrawnGrid : public CellGrid {
  public:
    explicit RandomlyDrawnGrid(kit::Random& random) : random_(random) {
        Rows(1 + upTo(40));
        Cols(1 + upTo(12));
        FixedRows(upTo(std::min(3, Rows())));
        FixedCols(upTo(std::min(3, Cols())));
        FrozenCols(upTo(1) == 0 ? upTo(5) : 0);
        ScrollBars(upTo(1) == 0);
        Resize(upTo(9000), upTo(6000));
        BackColor(0x111111);
        BackColorFixed(0x222222);
        BackColorBkg(0x333333);
        ShowCursor(upTo(3) != 0);
        SelectsRows(upTo(3) == 0);
        for (std::int32_t row = 0; row < Rows(); ++row) {
            if (upTo(4) == 0) RowHeight(row, upTo(1000));
            RowHidden(row, upTo(5) == 0);
        }
        for (std::int32_t col = 0; col < Cols(); ++col) {
            if (upTo(2) == 0) ColWidth(col, upTo(3000));
            ColHidden(col, upTo(5) == 0);
        }
        for (int i = upTo(60); i > 0; --i)
            CellBackColor(upTo(Rows() - 1), upTo(Cols() - 1), 0xC0 + static_cast<std::uint32_t>(upTo(1)));
        for (std::int32_t row = 0; row < Rows(); ++row)
            for (std::int32_t col = 0; col < Cols(); ++col)
                if (upTo(3) != 0) Text(row, col, std::to_string(row * 100 + col));
        Select(upTo(Rows() - 1), upTo(Cols() - 1));
        ScrollTo(upTo(Rows() - 1), upTo(Cols() - 1));
        if (upTo(1) == 0) ScrollBy(upTo(2000) - 1000, upTo(1000) - 500);
    }

    std::int32_t upTo(std::int32_t largest) {
        return static_cast<std::int32_t>(random_.between(0, std::max(largest, 0)));
    }

    FrameState state() {
        FrameState state{.focused = upTo(1) == 0, .editorOpen = upTo(1) == 0};
        if (upTo(2) == 0) state.clip = {upTo(9000) - 100, upTo(6000) - 100, upTo(3000), upTo(3000)};
        return state;
    }

    bool isFixed(std::int32_t row, std::int32_t col) const { return row < FixedRows() || col < FixedCols(); }

    /// The part of the view that shows cells under the state.
    Rect area(const FrameState& state) const {
        const Rect client{0, 0, ClientWidth(), ClientHeight()};
        if (state.clip.empty()) return client;
        const std::int32_t left = std::max(state.clip.left, 0);
        const std::int32_t top = std::max(state.clip.top, 0);
        return {left, top, std::min(state.clip.right(), client.right()) - left,
                std::min(state.clip.bottom(), client.bottom()) - top};
    }

    bool isShown(std::int32_t row, std::int32_t col, const Rect& area) const {
        if (area.empty() || RowHidden(row) || ColHidden(col)) return false;
        if (row >= FixedRows() && row < TopRow()) return false;
        if (col >= StillCols() && col < LeftCol()) return false;
        const Rect rect = CellRect(row, col);
        return !rect.empty() && rect.overlaps(area);
    }

    std::uint32_t fill(std::int32_t row, std::int32_t col) const {
        const bool cursor = ShowCursor() && !isFixed(Row(), Col());
        if (cursor && SelectsRows() && row == Row()) return 0x8000000D;
        if (const auto own = CellBackColor(row, col)) return *own;
        if (!isFixed(row, col)) return 0x111111;
        return cursor && !SelectsRows() && (row == Row() || col == Col()) ? 0x80000014 : 0x222222;
    }

  private:
    kit::Random& random_;
};

void checkCell(const RandomlyDrawnGrid& grid, const FrameReader& frame, const FrameState& state,
               std::int32_t row, std::int32_t col) {
    const Rect area = grid.area(state);
    const bool shown = grid.isShown(row, col, area);
    const bool current =
        grid.ShowCursor() && !grid.isFixed(row, col) && row == grid.Row() && col == grid.Col();
    const Rect rect = grid.CellRect(row, col);
    const Rect inside{rect.left + 45, rect.top, rect.width - 90, rect.height};
    const bool hasText = shown && !grid.Text(row, col).empty() && !inside.empty() && inside.overlaps(area);
    EXPECT_EQ(frame.showsText(row, col), hasText && !(current && state.editorOpen)) << row << "," << col;
    EXPECT_EQ(frame.find(Kind::Focus, row, col) != nullptr, shown && current && !grid.SelectsRows());
    if (!shown) return;
    // what is cut lies under what stands still
    const std::int32_t x = std::max({rect.left, area.left, col < grid.StillCols() ? 0 : grid.StillWidth()});
    const std::int32_t y = std::max({rect.top, area.top, row < grid.FixedRows() ? 0 : grid.FixedHeight()});
    if (x >= std::min(rect.right(), area.right()) || y >= std::min(rect.bottom(), area.bottom())) return;
    EXPECT_EQ(frame.fillAt(x, y), grid.fill(row, col)) << row << "," << col;
}

TEST(Frame, AgreesWithALookAtEveryCellOfRandomGrids) {
    kit::Random random;
    for (std::uint32_t round = 0; round < 300 && !testing::Test::HasFailure(); ++round) {
        SCOPED_TRACE("round " + std::to_string(round));
        RandomlyDrawnGrid grid(random);
        const FrameState state = grid.state();
        const FrameReader frame(grid, state);
        for (std::int32_t row = 0; row < grid.Rows(); ++row)
            for (std::int32_t col = 0; col < grid.Cols(); ++col) checkCell(grid, frame, state, row, col);
        const Rect view{0, 0, grid.Width(), grid.Height()};
        for (const auto& item : frame.items()) {
            EXPECT_TRUE(item.rect.overlaps(view));
            EXPECT_TRUE(state.clip.empty() || item.rect.overlaps(state.clip));
        }
    }
}
}  // namespace
}  // namespace kxVsGrid
