// The ids of rows against a plain list of rows that each know their own.
#include "cellgrid/RowIds.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <optional>
#include <string>
#include <vector>

#include "kit/AnyOrder.h"
#include "kit/Dice.h"
#include "kxVsGrid/CellGrid.h"

namespace kxVsGrid {
namespace {

using cellgrid::RowIds;

/// The slow, obvious one.
class RandomRowIds : public ::testing::Test {
  protected:
    using Rows = std::vector<RowId>;  ///< None where nobody has asked

    std::int32_t count() const { return static_cast<std::int32_t>(rows.size()); }
    RowId& idAt(std::int32_t row) { return rows[static_cast<std::size_t>(row)]; }

    void insert() {
        const std::int32_t row = dice.between(0, count());
        const std::int32_t n = dice.between(1, dice.oneIn(20) && count() < 5000 ? 1500 : 3);
        ids.inserted(row, n);
        rows.insert(rows.begin() + row, static_cast<std::size_t>(n), RowId::None);
    }
    void remove() {
        if (rows.empty()) return;
        const std::int32_t row = dice.index(count());
        const std::int32_t n = std::min(count() - row, dice.between(1, dice.oneIn(20) ? 2000 : 3));
        ids.removed(row, n);
        const auto first = rows.begin() + row;
        std::copy_if(first, first + n, std::back_inserter(gone), [](RowId id) { return id != RowId::None; });
        rows.erase(first, first + n);
    }
    void reorder() {
        const kit::AnyOrder any(dice, 0, count());
        any.apply(rows);
        ids.reorder(ids.prepareReorder(any.first, any.from));
    }
    void ask() {
        if (rows.empty()) return;
        std::int32_t row = dice.index(count());
        for (std::int32_t n = dice.between(1, dice.oneIn(20) ? 300 : 4); n > 0 && row < count(); --n, ++row) {
            const RowId id = ids.idOf(row);
            if (idAt(row) == RowId::None) {
                ASSERT_EQ(std::count(gone.begin(), gone.end(), id), 0) << "given again";
                ASSERT_EQ(std::count(rows.begin(), rows.end(), id), 0) << "given twice";
                idAt(row) = id;
            }
            ASSERT_EQ(id, idAt(row)) << row;
        }
    }
    /// About a stretch of rows at once, which gives all of them ids.
    void askMany() {
        const std::int32_t first = dice.between(0, count());
        std::vector<RowId> asked(static_cast<std::size_t>(dice.between(0, count() - first)));
        ids.idsOf(first, asked);
        for (std::size_t i = 0; i < asked.size(); ++i) {
            RowId& id = idAt(first + static_cast<std::int32_t>(i));
            if (id == RowId::None) id = asked[i];
            ASSERT_EQ(asked[i], id) << i;
        }
    }
    /// About ids of rows that are there and of others that have gone.
    void findMany() {
        std::vector<RowId> asked;
        std::vector<std::int32_t> places;
        const int every = dice.between(1, 40);
        for (std::int32_t row = dice.between(0, every); row < count(); row += every) {
            asked.push_back(idAt(row));
            places.push_back(idAt(row) == RowId::None ? -1 : row);
        }
        for (std::size_t i = 0; i < gone.size() && i < 5; ++i) {
            asked.push_back(gone[i]);
            places.push_back(-1);
        }
        std::vector<std::int32_t> found(asked.size());
        ids.rowsOf(asked, found);
        ASSERT_EQ(found, places);
    }
    void compareOne() {
        if (!rows.empty()) {
            const std::int32_t row = dice.index(count());
            ASSERT_EQ(ids.known(row), idAt(row)) << row;
        }
        if (!gone.empty()) {
            ASSERT_EQ(ids.rowOf(gone[static_cast<std::size_t>(
                          dice.between(0, static_cast<std::int32_t>(gone.size()) - 1))]),
                      -1);
        }
    }
    void compareAll() {
        for (std::int32_t row = 0; row < count(); ++row) {
            ASSERT_EQ(ids.known(row), idAt(row)) << row;
            if (idAt(row) != RowId::None) {
                ASSERT_EQ(ids.rowOf(idAt(row)), row);
            }
        }
        for (const RowId id : gone) ASSERT_EQ(ids.rowOf(id), -1);
    }

    kit::Dice dice;
    RowIds ids;
    Rows rows;
    std::vector<RowId> gone;
};

TEST_F(RandomRowIds, AgreeWithAPlainListOfRows) {
    for (int operation = 0; operation < 20'000; ++operation) {
        SCOPED_TRACE("operation " + std::to_string(operation));
        if (dice.oneIn(100)) dice.oneIn(2) ? askMany() : findMany();
        switch (dice.between(0, 4)) {
            case 0:
                insert();
                break;
            case 1:
                remove();
                break;
            case 2:
                reorder();
                break;
            default:
                ask();
        }
        compareOne();
        if (operation % 500 == 0) compareAll();
        if (HasFatalFailure()) return;
    }
    compareAll();
}

TEST(RowIdsOfAGrid, FollowTheirRows) {
    CellGrid grid;
    const RowId third = grid.IdOf(3);
    const RowId last = grid.IdOf(5);
    EXPECT_NE(third, last);
    grid.InsertRow(1);
    EXPECT_EQ(grid.RowOf(third), 4);
    EXPECT_EQ(grid.IdOf(4), third);
    grid.RemoveRow(2);
    EXPECT_EQ(grid.RowOf(third), 3);
    EXPECT_EQ(grid.RowOf(last), 5);
    grid.Rows(5);
    EXPECT_EQ(grid.RowOf(third), 3);
    EXPECT_EQ(grid.RowOf(last), -1);
}

TEST(RowIdsOfAGrid, AreNeverGivenToAnotherRow) {
    CellGrid grid;
    const RowId gone = grid.IdOf(2);
    grid.RemoveRow(2);
    EXPECT_EQ(grid.RowOf(gone), -1);
    grid.InsertRow(2);
    EXPECT_NE(grid.IdOf(2), gone);
    EXPECT_EQ(grid.RowOf(gone), -1);
}

TEST(RowIdsOfAGrid, AreThereOnlyForRowsThatWereAskedAbout) {
    CellGrid grid;
    EXPECT_EQ(grid.KnownId(2), RowId::None);
    const RowId id = grid.IdOf(2);
    EXPECT_EQ(grid.KnownId(2), id);
    EXPECT_EQ(grid.KnownId(3), RowId::None);
    EXPECT_EQ(grid.RowOf(RowId::None), -1);
    EXPECT_EQ(grid.RowOf(RowId{12345}), -1);
}

TEST(RowIdsOfAGrid, AskedOfARowThatIsNotThereAreAnError) {
    CellGrid grid;
    EXPECT_THROW(grid.IdOf(-1), GridError);
    EXPECT_THROW(grid.IdOf(6), GridError);
    EXPECT_THROW(grid.KnownId(6), GridError);
}

TEST(RowIdsOfAGrid, AreFoundAtOnceAmongAHundredMillionRows) {
    CellGrid grid;
    grid.Rows(CellGrid::MaxRows);
    const RowId last = grid.IdOf(CellGrid::MaxRows - 1);
    const RowId middle = grid.IdOf(50'000'000);
    grid.RemoveRow(1);
    EXPECT_EQ(grid.RowOf(last), CellGrid::MaxRows - 2);
    EXPECT_EQ(grid.RowOf(middle), 49'999'999);
    grid.Rows(10);
    EXPECT_EQ(grid.RowOf(middle), -1);
}

TEST(RowIdsOfAGrid, StayWhenCellsAndColumnsGo) {
    CellGrid grid;
    grid.Text(2, 1, "x");
    const RowId id = grid.IdOf(2);
    grid.Cols(0);
    grid.ClearText(0, grid.Rows() - 1);
    grid.FixedRows(2);
    EXPECT_EQ(grid.RowOf(id), 2);
}
}  // namespace
}  // namespace kxVsGrid
