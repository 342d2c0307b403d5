// Filling a column is writing its cells one after the other, whoever listens.
#include <gtest/gtest.h>

#include <algorithm>
#include <memory>
#include <stdexcept>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "kit/Dice.h"
#include "kxVsGrid/CellGrid.h"

namespace kxVsGrid {
namespace {

using Views = std::vector<std::string_view>;
using Rows = std::vector<std::string>;

/// Everything that is told of the content, as lines.
class ToldOfAFill : public ChangeListener {
  public:
    explicit ToldOfAFill(bool filledAtOnce) : filledAtOnce_(filledAtOnce) {}
    void written(std::int32_t row, std::int32_t col, CellPart part, std::string_view before,
                 std::string_view after) noexcept override {
        lines.push_back(std::to_string(row) + ',' + std::to_string(col) +
                        (part == CellPart::Text ? " text " : " tag ") + std::string(before) + " > " +
                        std::string(after));
    }
    bool hearsFilled() const noexcept override { return filledAtOnce_; }
    void filled(std::int32_t row, std::int32_t col, std::uint32_t texts,
                std::uint32_t tags) noexcept override {
        lines.push_back("filled " + std::to_string(row) + ',' + std::to_string(col) + ' ' +
                        std::to_string(texts) + ' ' + std::to_string(tags));
    }
    void shown(std::int32_t col) noexcept override { lines.push_back("shown " + std::to_string(col)); }
    Rows lines;

  private:
    bool filledAtOnce_;
};

/// Writes down what the grid holds before the first change of a column that it awaits.
class AwaitsAColumn : public CellGrid::Watcher {
  public:
    explicit AwaitsAColumn(CellGrid& grid) : grid_(grid) {}
    void contentWillChange(std::int32_t col) override {
        sums.push_back(col < 0 ? -1 : grid_.ColumnSum(col));
        if (col == awaited || !stays) awaited = -2;
    }
    bool awaits(std::int32_t col) const override { return col == awaited; }
    std::int32_t awaited = -2;
    bool stays = false;
    std::vector<double> sums;

  private:
    CellGrid& grid_;
};

struct FillListener {
    bool event = false;
    bool stream = false;
    bool filledAtOnce = false;
    bool watched = false;
};

/// A grid, and all who hear of it.
struct FilledGrid {
    CellGrid cells;
    ToldOfAFill told;
    AwaitsAColumn watcher{cells};
    Rows heard;

    explicit FilledGrid(const FillListener& who) : told(who.filledAtOnce) {
        cells.Rows(700);
        cells.Cols(4);
        cells.NumberRows();
        cells.Resize(6000, 3000);
        cells.takeDamage();
        if (who.event)
            cells.CellChanged.connect([this](std::int32_t row, std::int32_t col) {
                heard.push_back(std::to_string(row) + ',' + std::to_string(col) + ' ' + cells.Text(row, col) +
                                " #" + cells.Data(row, col));
            });
        if (who.stream) cells.AddListener(told);
        if (who.watched) cells.watch(&watcher);
    }
    ~FilledGrid() {
        cells.watch(nullptr);
        cells.RemoveListener(told);
    }

    Rows seen() const {
        Rows lines;
        for (std::int32_t row = 0; row < cells.Rows(); ++row) {
            std::string line = std::to_string(static_cast<std::uint64_t>(cells.KnownId(row)));
            for (std::int32_t col = 0; col < cells.Cols(); ++col)
                line += '|' + cells.Text(row, col) + '#' + cells.Data(row, col);
            lines.push_back(line);
        }
        for (std::int32_t col = 0; col < cells.Cols(); ++col)
            lines.push_back(std::to_string(cells.ColumnSum(col)));
        return lines;
    }
    std::vector<std::vector<std::int32_t>> damaged() {
        const CellGrid::Damage damage = cells.takeDamage();
        std::vector<std::vector<std::int32_t>> rects;
        if (damage.all) rects.push_back({-1});
        for (const Rect& r : damage.rects) rects.push_back({r.left, r.top, r.width, r.height});
        return rects;
    }
};

class RandomColumnFill : public ::testing::TestWithParam<FillListener> {
  protected:
    FilledGrid filled{GetParam()};
    FilledGrid twin{GetParam()};
    kit::Dice dice;

    void both(auto act) {
        act(filled.cells);
        act(twin.cells);
    }
    /// Few different texts, so that some change nothing.
    std::string anyText() { return dice.oneIn(2) ? std::to_string(dice.between(0, 2)) : dice.text(); }
    void fill() {
        const std::int32_t col = dice.between(0, filled.cells.Cols() - 1);
        const std::int32_t first = dice.index(filled.cells.Rows());
        const std::int32_t count =
            std::min(filled.cells.Rows() - first, dice.between(0, dice.oneIn(3) ? 600 : 5));
        std::vector<std::string> texts;
        std::vector<std::string> tags;
        for (std::int32_t i = 0; i < count; ++i) {
            texts.push_back(anyText());
            tags.push_back(dice.oneIn(3) ? "" : anyText());
        }
        const bool tagged = dice.oneIn(2);
        if (dice.oneIn(4)) filled.watcher.awaited = twin.watcher.awaited = col;
        filled.watcher.stays = twin.watcher.stays = dice.oneIn(3);
        filled.cells.Fill(col, first, Views(texts.begin(), texts.end()),
                          tagged ? Views(tags.begin(), tags.end()) : Views());
        for (std::int32_t i = 0; i < count; ++i) {
            const auto at = static_cast<std::size_t>(i);
            twin.cells.Cell(first + i, col, texts[at], tagged ? tags[at] : "");
        }
    }
    void disturb() {
        const std::int32_t row = dice.index(filled.cells.Rows());
        const std::int32_t col = dice.between(0, filled.cells.Cols() - 1);
        switch (dice.between(0, 6)) {
            case 0:
                return both([&](CellGrid& cells) { cells.InsertRow(row); });
            case 1:
                return both([&](CellGrid& cells) {
                    if (row >= 1 && cells.Rows() > 2) cells.RemoveRow(row);
                });
            case 2:
                return both([&](CellGrid& cells) { cells.ColumnSum(col); });
            case 3:
                return both(
                    [&](CellGrid& cells) { cells.ComputedText(row, col, [] { return std::string("7"); }); });
            case 4:
                return both([&](CellGrid& cells) { cells.IdOf(row); });
            case 5:
                return both([&](CellGrid& cells) { cells.MoveRows(1, 1, cells.Rows() / 2); });
            default:
                return both([&](CellGrid& cells) { cells.Cell(row, col, "single", "write"); });
        }
    }
};

TEST_P(RandomColumnFill, IsWritingCellAfterCell) {
    for (int act = 0; act < 400; ++act) {
        fill();
        filled.cells.TellFilled();
        twin.cells.TellFilled();
        ASSERT_EQ(filled.heard, twin.heard);
        ASSERT_EQ(filled.told.lines, twin.told.lines);
        ASSERT_EQ(filled.watcher.sums, twin.watcher.sums);
        ASSERT_EQ(filled.damaged(), twin.damaged());
        if (act % 8 == 0) {
            ASSERT_EQ(filled.seen(), twin.seen());
        }
        for (FilledGrid* one : {&filled, &twin}) {
            one->heard.clear();
            one->told.lines.clear();
            one->watcher.sums.clear();
        }
        disturb();
    }
}
INSTANTIATE_TEST_SUITE_P(Heard, RandomColumnFill,
                         ::testing::Values(FillListener{}, FillListener{.event = true},
                                           FillListener{.stream = true},
                                           FillListener{.stream = true, .filledAtOnce = true},
                                           FillListener{.watched = true},
                                           FillListener{.event = true, .stream = true, .watched = true}));

TEST(ColumnFill, EmptiesTheTagsWhereNoneAreGiven) {
    CellGrid cells;
    cells.Cell(2, 1, "old", "tag");
    cells.Fill(1, 2, Views{"new", "other"});
    EXPECT_EQ(cells.Text(2, 1), "new");
    EXPECT_EQ(cells.Data(2, 1), "");
    EXPECT_EQ(cells.Text(3, 1), "other");
}

TEST(ColumnFill, RefusesWhatDoesNotFitIntoTheGrid) {
    CellGrid cells;
    const Views two{"a", "b"};
    EXPECT_THROW(cells.Fill(10, 1, two), GridError);
    EXPECT_THROW(cells.Fill(-1, 1, two), GridError);
    EXPECT_THROW(cells.Fill(1, -1, two), GridError);
    EXPECT_THROW(cells.Fill(1, 5, two), GridError);
    EXPECT_THROW(cells.Fill(1, 6, two), GridError);
    EXPECT_THROW(cells.Fill(1, 1, two, Views{"one"}), GridError);
    EXPECT_THROW(cells.Fill(1, 1, Views{}, Views{"one"}), GridError);
    for (std::int32_t row = 0; row < cells.Rows(); ++row) EXPECT_EQ(cells.Text(row, 1), "");
    EXPECT_NO_THROW(cells.Fill(1, 6, Views{}));
}

TEST(ColumnFill, EndsWhereAListenerDestroysTheGrid) {
    auto cells = std::make_unique<CellGrid>();
    int heard = 0;
    cells->CellChanged.connect([&](std::int32_t row, std::int32_t) {
        ++heard;
        if (row == 2) cells.reset();
    });
    cells->Fill(1, 1, Views{"a", "b", "c"}, Views{"x", "y", "z"});
    EXPECT_FALSE(cells);
    EXPECT_EQ(heard, 3);
}

TEST(ColumnFill, EndsWhereAListenerThrows) {
    CellGrid cells;
    cells.CellChanged.connect([](std::int32_t row, std::int32_t) {
        if (row == 2) throw std::runtime_error("boom");
    });
    EXPECT_THROW(cells.Fill(1, 1, Views{"a", "b", "c"}), std::runtime_error);
    EXPECT_EQ(cells.Text(1, 1), "a");
    EXPECT_EQ(cells.Text(2, 1), "b");
    EXPECT_EQ(cells.Text(3, 1), "");
}

TEST(ColumnFill, LeavesOutRowsThatAListenerRemoves) {
    CellGrid cells;
    cells.CellChanged.connect([&](std::int32_t row, std::int32_t) {
        if (row == 3) cells.Rows(4);
    });
    cells.Fill(1, 1, Views{"a", "b", "c", "d", "e"});
    EXPECT_EQ(cells.Rows(), 4);
    EXPECT_EQ(cells.Text(3, 1), "c");
}

TEST(ColumnFill, TellsAListenerThatComesInTheMiddle) {
    CellGrid cells;
    ToldOfAFill told(false);
    cells.CellChanged.connect([&](std::int32_t row, std::int32_t) {
        if (row == 2) cells.AddListener(told);
    });
    cells.Fill(1, 1, Views{"a", "b", "c"});
    EXPECT_EQ(told.lines, (Rows{"3,1 text  > c"}));
    cells.RemoveListener(told);
}
}  // namespace
}  // namespace kxVsGrid
