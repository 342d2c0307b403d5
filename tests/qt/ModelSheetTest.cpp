// A Qt model in a grid: what is shown, and what goes back.
#include <QSignalSpy>
#include <QSortFilterProxyModel>
#include <QTableView>

#include "ModelSheets.h"
#include "kxVsGrid/qt/GridModel.h"

namespace kxVsGrid::qt::testing {
namespace {

class StandardSheet : public SheetDesk {
  protected:
    enum Column : std::int32_t { Number, Code, Quantity, Paid };
    explicit StandardSheet(int rows = 4) : model(standardGoods(rows)) { show(*model); }
    QVariant held(int row, int column) { return model->index(row, column).data(Qt::EditRole); }
    std::unique_ptr<QStandardItemModel> model;
};

TEST_F(StandardSheet, ShowsTheModelAndOneRowMore) {
    EXPECT_EQ(column(Code), "A1|A2|A3|A4|");
    EXPECT_EQ(column(Quantity), "10|20|30|40|");
    EXPECT_EQ(column(Paid), "1|0|1|0|");
    EXPECT_EQ(grid.Grid().Text(0, Quantity), "quantity");
    EXPECT_EQ(grid.Grid().ColDataType(Quantity), flexDTDouble);
    EXPECT_EQ(grid.Grid().ColDataType(Paid), flexDTBoolean);
    EXPECT_TRUE(sheet->whole());
    EXPECT_EQ(sheet->indexAt(2, Quantity), model->index(1, 1));
    EXPECT_EQ(sheet->gridRow(model->index(3, 0)), 4);
    EXPECT_FALSE(sheet->indexAt(5, Code).isValid());
    EXPECT_FALSE(grid.History().CanUndo());
}

TEST_F(StandardSheet, ATypedCellIsTheModelsInTheTypeOfTheColumn) {
    type(2, Quantity, "3*5");
    EXPECT_EQ(held(1, 1), QVariant(15));
    EXPECT_EQ(held(1, 1).metaType().id(), int{QMetaType::Int});
    type(2, Quantity, "");
    EXPECT_FALSE(held(1, 1).isValid());
    grid.Grid().Select(2, Paid);
    desk.type(" ");
    EXPECT_EQ(held(1, 2), QVariant(true));
    grid.History().Undo();
    grid.History().Undo();
    EXPECT_EQ(held(1, 1), QVariant(15));
    grid.History().Undo();
    EXPECT_EQ(held(1, 1), QVariant(20));
    grid.History().Redo();
    EXPECT_EQ(held(1, 1), QVariant(15));
}

TEST_F(StandardSheet, WhatTheModelHearsIsShownAndIsNoStep) {
    model->setData(model->index(1, 0), "B2");
    EXPECT_EQ(text(2, Code), "B2");
    model->insertRow(1);
    model->setData(model->index(1, 0), "new");
    EXPECT_EQ(column(Code), "A1|new|B2|A3|A4|");
    model->removeRows(0, 2);
    EXPECT_EQ(column(Code), "B2|A3|A4|");
    model->sort(1, Qt::DescendingOrder);
    EXPECT_EQ(column(Code), "A4|A3|B2|");
    model->setHorizontalHeaderLabels({"x", "y", "z"});
    EXPECT_EQ(grid.Grid().Text(0, Code), "x");
    EXPECT_FALSE(grid.History().CanUndo());
}

TEST_F(StandardSheet, ANewRowBecomesTheModelsWholeWhenItIsLeft) {
    type(5, Code, "N");
    EXPECT_EQ(model->rowCount(), 4);
    EXPECT_TRUE(sheet->hasUnsent());
    type(5, Quantity, "7");
    QSignalSpy inserted(model.get(), &QAbstractItemModel::rowsInserted);
    grid.Grid().Select(1, Code);
    EXPECT_EQ(inserted.count(), 1);
    EXPECT_EQ(columnOf(*model, 0), "A1|A2|A3|A4|N");
    EXPECT_EQ(held(4, 1), QVariant(7));
    EXPECT_FALSE(sheet->hasUnsent());
    EXPECT_EQ(column(Code), "A1|A2|A3|A4|N|");
}

TEST_F(StandardSheet, UndoingAllOfANewRowTakesItFromTheModel) {
    type(5, Code, "N");
    grid.Grid().Select(1, Code);
    ASSERT_EQ(model->rowCount(), 5);
    grid.History().Undo();
    EXPECT_EQ(columnOf(*model, 0), "A1|A2|A3|A4");
    EXPECT_EQ(sheet->gridRow(model->index(3, 0)), 4);
    grid.History().Redo();
    EXPECT_TRUE(sheet->submit());
    EXPECT_EQ(columnOf(*model, 0), "A1|A2|A3|A4|N");
}

TEST_F(StandardSheet, ADeletedRowGoesAndUndoBringsItAgain) {
    grid.Grid().Select(2, Code);
    ASSERT_TRUE(desk.run(Command::DeleteRows));
    EXPECT_EQ(columnOf(*model, 0), "A1|A3|A4");
    grid.History().Undo();
    EXPECT_EQ(columnOf(*model, 0), "A1|A2|A3|A4");
    EXPECT_EQ(columnOf(*model, 1), "10|20|30|40");
    grid.History().Redo();
    EXPECT_EQ(columnOf(*model, 0), "A1|A3|A4");
}

TEST_F(StandardSheet, AGridThatBecomesEditableLaterHasItsRowToKeyOnIn) {
    sheet.reset();
    grid.Editable(false);
    show(*model);
    EXPECT_EQ(column(Code), "A1|A2|A3|A4|");
    desk.run(Command::AppendRow);
    EXPECT_EQ(column(Code), "A1|A2|A3|A4|");
    grid.Editable(true);
    type(5, Code, "N");
    EXPECT_TRUE(sheet->submit());
    EXPECT_EQ(columnOf(*model, 0), "A1|A2|A3|A4|N");
}

TEST_F(StandardSheet, APastedBlockBecomesRowsAtOnce) {
    grid.Grid().Select(5, Code);
    desk.clipboard("P1\t1\nP2\t2\nP3\t3\n");
    ASSERT_TRUE(desk.run(Command::Paste));
    EXPECT_EQ(columnOf(*model, 0), "A1|A2|A3|A4|P1|P2|P3");
    grid.History().Undo();
    EXPECT_EQ(columnOf(*model, 0), "A1|A2|A3|A4");
}
}  // namespace
}  // namespace kxVsGrid::qt::testing
