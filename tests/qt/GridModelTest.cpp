// The grid as a Qt model.
#include "kxVsGrid/qt/GridModel.h"

#include <gtest/gtest.h>

#include <QAbstractItemModelTester>
#include <QSignalSpy>
#include <QSortFilterProxyModel>
#include <QTableView>
#include <array>
#include <memory>

#include "ModelMirror.h"
#include "kit/Random.h"
#include "kit/WhenOpen.h"
#include "kxVsGrid/headless/Desk.h"

namespace kxVsGrid::qt::testing {
namespace {

/// Columns: code (text), quantity (number), paid (Boolean), due (date); row numbers before them.
class GridModelDesk : public ::testing::Test {
  protected:
    enum Column : std::int32_t { Number, Code, Quantity, Paid, Due, Columns };

    GridModelDesk() {
        grid.Cols(Columns);
        grid.FormatString("行号|<货号    |>数量    |^付清|^日期      ");
        grid.Cols(Columns);
        grid.VsCtrl(Quantity)->iType(flexDTDouble);
        grid.VsCtrl(Paid)->iType(flexDTBoolean);
        grid.VsCtrl(Due)->iType(flexDTDate);
        for (std::int16_t col = Code; col < Columns; ++col) grid.VsCtrl(col)->bIsEditable(true);
        grid.ColFormat(Quantity, "#,##0.00");
        grid.ReDraw(true);
        grid.Rows(grid.FixedRows() + 6);
        for (std::int32_t row = 1; row < grid.Rows(); ++row) {
            grid.SetCell(row, Code, "A" + std::to_string(row), "tag " + std::to_string(row));
            grid.SetCell(row, Quantity, std::to_string(row * 1000));
        }
        grid.AddVsRow.connect([](std::int32_t, bool& consent) { consent = true; });
        grid.DeleteVsRow.connect([](std::int32_t, bool& consent) { consent = true; });
        for (std::int32_t col = Code; col < Columns; ++col) grid.Options(col).sortable(true);
        desk.focusGrid();
        model = std::make_unique<GridModel>(grid);
    }
    void type(std::int32_t row, std::int32_t col, std::string_view text) {
        grid.Grid().Select(row, col);
        desk.type(text).press(Key::Enter);
    }
    QVariant at(int row, int col, int role = Qt::DisplayRole) { return model->index(row, col).data(role); }

    headless::Desk desk;
    kxGrid& grid = desk.place();
    std::unique_ptr<GridModel> model;
};

TEST_F(GridModelDesk, ShowsTheDataCellsAlone) {
    const QAbstractItemModelTester tester(model.get(), QAbstractItemModelTester::FailureReportingMode::Fatal);
    EXPECT_EQ(model->rowCount(), 6);
    EXPECT_EQ(model->columnCount(), 4);
    EXPECT_EQ(at(0, 0).toString(), "A1");
    EXPECT_EQ(at(1, 1).toString(), "2,000.00");
    EXPECT_EQ(at(1, 1, Qt::EditRole).toString(), "2000");
    EXPECT_EQ(at(1, 1, GridModel::ValueRole), QVariant(2000.0));
    EXPECT_EQ(at(2, 0, GridModel::TagRole).toString(), "tag 3");
    EXPECT_EQ(at(0, 2, Qt::CheckStateRole).toInt(), int{Qt::Unchecked});
    EXPECT_EQ(model->headerData(1, Qt::Horizontal).toString().trimmed(), "数量");
    EXPECT_EQ(model->headerData(2, Qt::Vertical).toString(), "3");
    EXPECT_EQ(model->indexAt(3, Quantity), model->index(2, 1));
    EXPECT_FALSE(model->indexAt(0, Quantity).isValid());
    EXPECT_EQ(model->gridRow(model->index(2, 1)), 3);
    EXPECT_EQ(model->gridCol(model->index(2, 1)), Quantity);
}

TEST_F(GridModelDesk, AnEmptyNumberHasNoValueAndADateIsOne) {
    grid.SetCell(1, Quantity, "");
    grid.SetCell(1, Due, "2026-11-23 08:05:09");
    EXPECT_FALSE(at(0, 1, GridModel::ValueRole).isValid());
    EXPECT_EQ(at(0, 3, GridModel::ValueRole).toDateTime(), QDateTime(QDate(2026, 11, 23), QTime(8, 5, 9)));
}

TEST_F(GridModelDesk, ATypedCellIsToldOnceWithWhatFollowsFromIt) {
    grid.AfterEdit.connect([&](std::int32_t row, std::int32_t) { grid.SetCell(row, Due, "2026-11-23"); });
    QSignalSpy changed(model.get(), &QAbstractItemModel::dataChanged);
    type(2, Quantity, "5");
    ASSERT_EQ(changed.count(), 1);
    EXPECT_EQ(changed[0][0].toModelIndex(), model->index(1, 1));
    EXPECT_EQ(changed[0][1].toModelIndex(), model->index(1, 3));
}

TEST_F(GridModelDesk, WhatCodeWritesOutsideOfStepsIsToldWhenTheLoopRunsOrByFlush) {
    QSignalSpy changed(model.get(), &QAbstractItemModel::dataChanged);
    grid.SetCell(1, Code, "x");
    grid.SetCell(2, Code, "y");
    EXPECT_EQ(changed.count(), 0);
    model->flush();
    EXPECT_EQ(changed.count(), 1) << "neighbours at once";
    grid.SetCell(4, Code, "z");
    kit::waitUntil([&] { return changed.count() == 2; });
    EXPECT_EQ(changed.count(), 2);
}

TEST_F(GridModelDesk, HasItsRowsOfBeforeUntilItTells) {
    const QPersistentModelIndex third = model->index(2, 0);
    grid.Grid().RemoveRow(2);
    EXPECT_EQ(model->rowCount(), 6);
    EXPECT_EQ(at(2, 0).toString(), "A3");
    EXPECT_FALSE(at(1, 0).isValid());
    EXPECT_EQ(model->gridRow(model->index(1, 0)), -1);
    EXPECT_EQ(model->indexAt(2, Code), model->index(2, 0));
    model->flush();
    EXPECT_EQ(model->rowCount(), 5);
    EXPECT_EQ(third.row(), 1);
    EXPECT_EQ(third.data().toString(), "A3");
}

TEST_F(GridModelDesk, PersistentIndexesFollowTheirRowsThroughASort) {
    const QAbstractItemModelTester tester(model.get(), QAbstractItemModelTester::FailureReportingMode::Fatal);
    const QPersistentModelIndex first = model->index(0, 0);
    grid.Grid().Select(1, Quantity);
    ASSERT_TRUE(desk.run(Command::SortDown));
    EXPECT_EQ(first.row(), 5);
    EXPECT_EQ(first.data().toString(), "A1");
    EXPECT_EQ(at(0, 0).toString(), "A6");
    desk.run(Command::Undo);
    EXPECT_EQ(first.row(), 0);
}

TEST_F(GridModelDesk, AViewWritesThroughAllChecks) {
    grid.Options(Quantity).largest(100);
    QSignalSpy refused(model.get(), &GridModel::refused);
    EXPECT_TRUE(model->setData(model->index(1, 1), "12*3"));
    EXPECT_EQ(grid.Grid().Text(2, Quantity), "36");
    EXPECT_FALSE(model->setData(model->index(1, 1), "1000"));
    EXPECT_EQ(grid.Grid().Text(2, Quantity), "36");
    ASSERT_EQ(refused.count(), 1);
    EXPECT_FALSE(refused[0][1].toString().isEmpty());
    EXPECT_TRUE(model->setData(model->index(1, 2), Qt::Checked, Qt::CheckStateRole));
    EXPECT_EQ(at(1, 2, Qt::CheckStateRole).toInt(), int{Qt::Checked});
    EXPECT_TRUE(grid.History().Undo());
    EXPECT_EQ(at(1, 2, Qt::CheckStateRole).toInt(), int{Qt::Unchecked});
    EXPECT_TRUE(grid.History().Undo());
    EXPECT_EQ(grid.Grid().Text(2, Quantity), "2000");
}

TEST_F(GridModelDesk, CellsThatTheClerkMayNotChangeCannotBeEditedInAView) {
    EXPECT_TRUE(model->flags(model->index(0, 0)) & Qt::ItemIsEditable);
    EXPECT_TRUE(model->flags(model->index(0, 2)) & Qt::ItemIsUserCheckable);
    grid.VsCtrl(Code)->bIsEditable(false);
    EXPECT_FALSE(model->flags(model->index(0, 0)) & Qt::ItemIsEditable);
    EXPECT_FALSE(model->setData(model->index(0, 0), "x"));
    EXPECT_EQ(grid.Grid().Text(1, Code), "A1");
    grid.Editable(false);
    EXPECT_FALSE(model->flags(model->index(0, 1)) & Qt::ItemIsEditable);
}

TEST_F(GridModelDesk, WhatIsBeingTypedIsCommittedBeforeAViewWrites) {
    grid.Grid().Select(1, Code);
    desk.type("new");
    EXPECT_TRUE(model->setData(model->index(2, 0), "other"));
    EXPECT_EQ(grid.Grid().Text(1, Code), "new");
    EXPECT_EQ(grid.Grid().Text(3, Code), "other");
}

TEST_F(GridModelDesk, ANewSetOfColumnsOrHeadingsIsAReset) {
    const QAbstractItemModelTester tester(model.get(), QAbstractItemModelTester::FailureReportingMode::Fatal);
    QSignalSpy reset(model.get(), &QAbstractItemModel::modelReset);
    grid.Cols(7);
    model->flush();
    EXPECT_EQ(model->columnCount(), 6);
    EXPECT_EQ(reset.count(), 1);
    grid.FixedRows(2);
    model->flush();
    EXPECT_EQ(model->rowCount(), 5);
    EXPECT_EQ(reset.count(), 2);
}

TEST_F(GridModelDesk, ATableViewThroughASortingProxyFollowsEachTypedCell) {
    QSortFilterProxyModel sorted;
    sorted.setSourceModel(model.get());
    sorted.setSortRole(GridModel::ValueRole);
    sorted.setDynamicSortFilter(true);
    sorted.sort(1);
    QTableView view;
    view.setModel(&sorted);
    view.show();
    type(2, Quantity, "99999");
    EXPECT_EQ(sorted.index(5, 0).data().toString(), "A2");
    EXPECT_EQ(sorted.index(5, 1).data().toString(), "99,999.00");
    grid.History().Undo();
    EXPECT_EQ(sorted.index(1, 0).data().toString(), "A2");
}

TEST_F(GridModelDesk, AModelWithoutItsGridHasNoRows) {
    desk.remove(grid);
    EXPECT_EQ(model->rowCount(), 0);
    EXPECT_FALSE(model->setData(model->index(0, 0), "x"));
    model->flush();
    model.reset();
}

TEST_F(GridModelDesk, TheGridMayGoWhileItIsAtWork) {
    QObject::connect(model.get(), &QAbstractItemModel::dataChanged, [&] {
        desk.remove(grid);
        EXPECT_EQ(model->rowCount(), 0);
        EXPECT_FALSE(model->setData(model->index(0, 0), "x"));
    });
    grid.Grid().Select(2, Code);
    desk.type("x");
    grid.ValidTextData();
    model->flush();
    EXPECT_EQ(model->rowCount(), 0);
}

TEST_F(GridModelDesk, WhoeverHearsOfAChangeMayDestroyTheModelOrWriteOn) {
    QObject::connect(model.get(), &QAbstractItemModel::rowsInserted, [&] { model.reset(); });
    {
        const auto step = grid.Step("test");
        grid.Grid().InsertRow(2);
        grid.SetCell(2, Code, "new");
    }
    EXPECT_FALSE(model);
    GridModel second(grid);
    ModelMirror mirror(second);
    bool once = true;
    QObject::connect(&second, &QAbstractItemModel::dataChanged, [&] {
        if (std::exchange(once, false)) grid.Grid().RemoveRow(4), grid.SetCell(1, Quantity, "7");
    });
    type(3, Code, "typed");
    second.flush();
    EXPECT_EQ(mirror.rows, mirror.now());
}

/// Random acts, and a table that follows by signals alone.
class RandomGridModel : public GridModelDesk {
  protected:
    std::int32_t anyRow() {
        return static_cast<std::int32_t>(dice.between(grid.FixedRows(), grid.Rows() - 1));
    }
    std::string anyText() { return std::to_string(dice.between(0, 50)); }
    void write() {
        const auto row = anyRow();
        const auto col = static_cast<std::int32_t>(dice.between(Code, Columns - 1));
        grid.SetCell(row, col, col == Due ? "2026-11-0" + std::to_string(dice.between(1, 9)) : anyText());
    }
    void move() {
        CellGrid& cells = grid.Grid();
        switch (dice.between(0, 4)) {
            case 0:
                return cells.InsertRow(
                    static_cast<std::int32_t>(dice.between(grid.FixedRows(), grid.Rows())));
            case 1:
                if (grid.Rows() > 3) cells.RemoveRow(anyRow());
                return;
            case 2:
                return grid.Rows(grid.FixedRows() + static_cast<std::int32_t>(dice.between(5, 12)));
            case 3: {
                const auto first = anyRow();
                const auto count = static_cast<std::int32_t>(dice.between(1, grid.Rows() - first));
                return cells.MoveRows(
                    first, count,
                    static_cast<std::int32_t>(dice.between(grid.FixedRows(), grid.Rows() - count)));
            }
            default:
                if (dice.oneIn(10)) return grid.Clear();
        }
    }
    void command() {
        constexpr std::array Some{Command::SortUp,    Command::SortDown,     Command::Undo,
                                  Command::Redo,      Command::DuplicateRow, Command::DeleteRows,
                                  Command::InsertRow, Command::MoveRowUp,    Command::MoveRowDown,
                                  Command::Copy,      Command::Paste,        Command::FillDown};
        grid.Grid().Select(anyRow(), static_cast<std::int32_t>(dice.between(Code, Columns - 1)));
        desk.run(Some[static_cast<std::size_t>(dice.between(0, std::ssize(Some) - 1))]);
    }
    void act() {
        switch (dice.between(0, 4)) {
            case 0:
                return type(anyRow(), dice.oneIn(2) ? Code : Quantity, anyText());
            case 1:
                return command();
            case 2:
                return move();
            case 3:
                model->setData(model->index(anyRow() - grid.FixedRows(), dice.oneIn(2)), anyText().c_str());
                return;
            default:
                return write();
        }
    }
    kit::Random dice;
};

TEST_F(RandomGridModel, ATableThatFollowsTheSignalsAgreesAfterEachStep) {
    const QAbstractItemModelTester tester(model.get(), QAbstractItemModelTester::FailureReportingMode::Fatal);
    QSortFilterProxyModel sorted;
    sorted.setSourceModel(model.get());
    sorted.setSortRole(GridModel::ValueRole);
    sorted.sort(1);
    ModelMirror mirror(*model);
    ModelMirror sortedMirror(sorted);
    for (int i = 0; i < 400; ++i) {
        if (dice.oneIn(3)) {
            const auto step = grid.Step("several");
            for (auto n = dice.between(1, 6); n > 0; --n) act();
        } else {
            act();
        }
        model->flush();
        ASSERT_EQ(mirror.rows, mirror.now()) << "act " << i;
        ASSERT_EQ(model->rowCount(), grid.Rows() - grid.FixedRows());
        for (int row = 0; row < model->rowCount(); ++row)
            ASSERT_EQ(model->index(row, 0).data(Qt::EditRole).toString().toStdString(),
                      grid.Grid().Text(row + grid.FixedRows(), Code));
        ASSERT_EQ(sortedMirror.rows, sortedMirror.now()) << "act " << i;
        ASSERT_EQ(sorted.rowCount(), model->rowCount());
        for (int row = 1; row < sorted.rowCount(); ++row) {
            const QVariant one = sorted.index(row - 1, 1).data(GridModel::ValueRole);
            const QVariant other = sorted.index(row, 1).data(GridModel::ValueRole);
            if (one.isValid() && other.isValid()) {
                ASSERT_LE(one.toDouble(), other.toDouble());
            }
        }
    }
    EXPECT_GT(mirror.told, 100);
}
}  // namespace
}  // namespace kxVsGrid::qt::testing
