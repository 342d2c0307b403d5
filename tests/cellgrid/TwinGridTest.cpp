// A whole CellGrid against the slow, obvious one, under random operations of every kind.
#include <gtest/gtest.h>

#include <utility>

#include "TwinGrid.h"
#include "kit/AnyOrder.h"
#include "kit/Dice.h"
#include "kxVsGrid/CellGrid.h"
#include "support/Numbers.h"

namespace kxVsGrid {
namespace {

/// With a listener, whose record is compared too, or unheard: cells are then written by other ways.
class RandomGrid : public ::testing::TestWithParam<bool> {
  protected:
    void SetUp() override {
        if (GetParam())
            grid.CellChanged.connect([this](std::int32_t r, std::int32_t c) { changed.emplace_back(r, c); });
        grid.Resize(6000, 3000);
    }

    std::int32_t anyRow() { return dice.index(twin.rows()); }
    std::int32_t anyCol() { return dice.between(0, twin.cols - 1); }
    std::pair<std::int32_t, std::int32_t> anyRows() {
        const std::int32_t first = anyRow();
        return {first, std::min(twin.rows() - 1, first + dice.between(0, dice.oneIn(5) ? 500 : 3))};
    }

    void operate() {
        changed.clear();
        expected.clear();
        const int choice = dice.between(0, 99);
        if (choice < 30) return write();
        if (choice < 45) return writeBoth();
        if (choice < 60) return writeTag();
        if (choice < 69) return insertOrRemove();
        if (choice < 72) return reorder();
        if (choice < 80) return style();
        if (choice < 86) return geometry();
        if (choice < 92) return move();
        if (choice < 95) return paint();
        if (choice < 97) return askForId();
        rare();
    }
    void write() {
        const std::int32_t r = anyRow();
        const std::int32_t c = anyCol();
        const std::string text = dice.text();
        if (twin.at(r, c).text != text) expected.emplace_back(r, c);
        twin.setText(r, c, text);
        grid.Text(r, c, text);
    }
    void writeTag() {
        const std::int32_t r = anyRow();
        const std::int32_t c = anyCol();
        const std::string tag = dice.text();
        if (twin.at(r, c).tag != tag) expected.emplace_back(r, c);
        twin.at(r, c).tag = tag;
        grid.Data(r, c, tag);
    }
    void writeBoth() {
        const std::int32_t r = anyRow();
        const std::int32_t c = anyCol();
        const std::string text = dice.text();
        const std::string tag = dice.text();
        if (twin.at(r, c).tag != tag) expected.emplace_back(r, c);
        if (twin.at(r, c).text != text) expected.emplace_back(r, c);
        twin.at(r, c).tag = tag;
        twin.setText(r, c, text);
        EXPECT_TRUE(grid.Cell(r, c, text, tag));
    }
    void insertOrRemove() {
        if (dice.oneIn(2)) {
            const std::int32_t at = dice.between(0, twin.rows());
            twin.insertRow(at);
            grid.InsertRow(at);
        } else if (twin.rows() > std::max(twin.fixedRows, 1)) {
            const std::int32_t at = anyRow();
            twin.removeRow(at);
            grid.RemoveRow(at);
        }
    }
    void reorder() {
        const kit::AnyOrder order(dice, twin.fixedRows, twin.rows());
        twin.reorder(order.first, order.from);
        grid.Reorder(order.first, order.from);
    }
    void style() {
        const std::int32_t r = anyRow();
        const std::int32_t c = anyCol();
        std::optional<std::uint32_t> color;
        if (!dice.oneIn(4)) color = static_cast<std::uint32_t>(dice.between(0, 3));
        switch (dice.between(0, 2)) {
            case 0:
                grid.CellForeColor(r, c, twin.at(r, c).foreColor = color);
                break;
            case 1:
                grid.CellBackColor(r, c, twin.at(r, c).backColor = color);
                break;
            default: {
                std::optional<mEmflexAlign> alignment;
                if (color) alignment = static_cast<mEmflexAlign>(*color);
                grid.CellAlignment(r, c, twin.at(r, c).alignment = alignment);
            }
        }
    }
    void paint() {
        const auto [first, last] = anyRows();
        const std::int32_t c = anyCol();
        const std::optional<std::uint32_t> back = static_cast<std::uint32_t>(dice.between(0, 3));
        for (std::int32_t r = first; r <= last; ++r) {
            twin.at(r, c).foreColor.reset();
            twin.at(r, c).backColor = back;
        }
        grid.PaintColumn(c, first, last, std::nullopt, back);
    }
    void geometry() {
        const std::int32_t r = anyRow();
        test::TwinRow& line = twin.lines[static_cast<std::size_t>(r)];
        switch (dice.between(0, 4)) {
            case 3:
                return grid.RowFiltered(r, line.filtered = dice.oneIn(2));
            case 4:
                return filterRows(r);
            case 0:
                grid.RowHeight(r, line.height = 100 * dice.between(0, 5));
                break;
            case 1:
                grid.RowHidden(r, line.hidden = dice.oneIn(2));
                break;
            default:
                grid.MergeRow(r, line.merged = dice.oneIn(2));
        }
    }
    void filterRows(std::int32_t first) {
        std::vector<bool> filtered;
        const std::int32_t most = std::min(twin.rows() - first, dice.oneIn(10) ? 3000 : 5);
        for (std::int32_t i = dice.between(0, most); i > 0; --i) filtered.push_back(dice.oneIn(2));
        for (std::size_t i = 0; i < filtered.size(); ++i)
            twin.lines[static_cast<std::size_t>(first) + i].filtered = filtered[i];
        grid.FilterRows(first, filtered);
    }
    void askForId() {
        const std::int32_t r = anyRow();
        RowId& id = twin.lines[static_cast<std::size_t>(r)].id;
        ASSERT_EQ(grid.KnownId(r), id);
        const RowId answered = grid.IdOf(r);
        if (id == RowId::None) {
            ASSERT_GT(answered, lastId) << "given again";
            id = lastId = answered;
        }
        ASSERT_EQ(answered, id);
    }
    void move() {
        twin.row = anyRow();
        twin.col = anyCol();
        EXPECT_TRUE(grid.Select(twin.row, twin.col));
        grid.TopRow(anyRow());
    }
    void rare() {
        switch (dice.between(0, 24)) {
            case 0: {
                const std::int32_t cols = dice.between(1, 12);
                twin.setCols(cols);
                return grid.Cols(cols);
            }
            case 1: {
                const std::int32_t fixed = dice.between(0, std::min(3, twin.rows()));
                return grid.FixedRows(twin.fixedRows = fixed);
            }
            case 2: {
                if (grid.FixedCols() == 0) return;
                twin.numberRows();
                return grid.NumberRows();
            }
            case 3: {
                const auto [first, last] = anyRows();
                twin.clearText(first, last);
                return grid.ClearText(first, last);
            }
            default: {
                const std::int32_t least = std::max(twin.fixedRows, 1);
                const std::int32_t near = std::max(least, twin.rows() + dice.between(-3, 5));
                const std::int32_t rows = dice.oneIn(30) ? dice.between(least, 3000) : near;
                twin.setRows(rows);
                return grid.Rows(rows);
            }
        }
    }

    void compareCell(std::int32_t r, std::int32_t c) {
        ASSERT_EQ(grid.Text(r, c), twin.text(r, c)) << r << ", " << c;
        ASSERT_EQ(grid.Data(r, c), twin.at(r, c).tag) << r << ", " << c;
        ASSERT_EQ(grid.CellAlignment(r, c), twin.at(r, c).alignment) << r << ", " << c;
        ASSERT_EQ(grid.CellForeColor(r, c), twin.at(r, c).foreColor) << r << ", " << c;
        ASSERT_EQ(grid.CellBackColor(r, c), twin.at(r, c).backColor) << r << ", " << c;
    }
    void compareGrid() {
        ASSERT_EQ(grid.Rows(), twin.rows());
        ASSERT_EQ(grid.Cols(), twin.cols);
        ASSERT_EQ(grid.Row(), twin.row);
        ASSERT_EQ(grid.Col(), twin.col);
        if (GetParam()) {
            ASSERT_EQ(changed, expected);
        }
        compareCell(anyRow(), anyCol());
    }
    void compareEverything() {
        std::int64_t height = 0;
        for (std::int32_t r = 0; r < twin.rows(); ++r) {
            const test::TwinRow& line = twin.lines[static_cast<std::size_t>(r)];
            ASSERT_EQ(grid.RowHeight(r), line.height) << r;
            ASSERT_EQ(grid.RowHidden(r), line.hidden) << r;
            ASSERT_EQ(grid.RowFiltered(r), line.filtered) << r;
            ASSERT_EQ(grid.RowShown(r), !line.hidden && !line.filtered && line.height > 0) << r;
            ASSERT_EQ(grid.MergeRow(r), line.merged) << r;
            ASSERT_EQ(grid.KnownId(r), line.id) << r;
            if (line.id != RowId::None) {
                ASSERT_EQ(grid.RowOf(line.id), r);
            }
            if (!line.hidden && !line.filtered) height += line.height;
            for (std::int32_t c = 0; c < twin.cols; ++c) compareCell(r, c);
            if (HasFatalFailure()) return;
        }
        ASSERT_EQ(grid.TotalHeight(), height);
        compareSums();
    }
    void compareSums() {
        for (std::int32_t c = 0; c < twin.cols; ++c) {
            const auto value = [](const std::string& text) { return support::leadingNumber(text); };
            ASSERT_EQ(grid.ColumnSum(c), twin.sum(c, value)) << c;
        }
    }

    kit::Dice dice;
    CellGrid grid;
    test::TwinGrid twin;
    RowId lastId = RowId::None;
    std::vector<std::pair<std::int32_t, std::int32_t>> changed;
    std::vector<std::pair<std::int32_t, std::int32_t>> expected;
};

TEST_P(RandomGrid, AgreesWithAPlainTableOfCells) {
    for (int operation = 0; operation < 60'000; ++operation) {
        SCOPED_TRACE("operation " + std::to_string(operation));
        operate();
        compareGrid();
        if (operation % 100 == 0) compareSums();
        if (operation % 5000 == 0) compareEverything();
        if (HasFatalFailure()) return;
    }
    compareEverything();
}
INSTANTIATE_TEST_SUITE_P(Listeners, RandomGrid, ::testing::Bool());
}  // namespace
}  // namespace kxVsGrid
