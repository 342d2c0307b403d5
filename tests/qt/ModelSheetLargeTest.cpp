// Models that are asked for no more than is looked at; read-only ones; those that say no.
#include <QAbstractTableModel>
#include <QSignalSpy>
#include <QSortFilterProxyModel>
#include <QTableView>

#include "ModelSheets.h"
#include "kxVsGrid/qt/kxGridWidget.h"

namespace kxVsGrid::qt::testing {
namespace {

/// Counts what it is asked for.
class CountingModel : public QAbstractTableModel {
  public:
    explicit CountingModel(int rows, bool editable = true) : rows_(rows), editable_(editable) {}
    int rowCount(const QModelIndex& parent = {}) const override { return parent.isValid() ? 0 : rows_; }
    int columnCount(const QModelIndex& parent = {}) const override { return parent.isValid() ? 0 : 3; }
    QVariant data(const QModelIndex& index, int role) const override {
        if (role != Qt::EditRole && role != Qt::DisplayRole) return {};
        ++asked;
        if (index.column() == 0 && written.contains(index.row())) return written[index.row()];
        if (index.column() == 0) return QString("row %1").arg(index.row());
        return index.column() == 1 ? QVariant(index.row()) : QVariant(index.row() % 7);
    }
    Qt::ItemFlags flags(const QModelIndex& index) const override {
        const bool may = editable_ && index.column() == 0;
        return QAbstractTableModel::flags(index) | (may ? Qt::ItemIsEditable : Qt::NoItemFlags);
    }
    bool setData(const QModelIndex& index, const QVariant& value, int role) override {
        if (role != Qt::EditRole || index.column() != 0 || value.toString() == "no") return false;
        written[index.row()] = value.toString().trimmed().toUpper();
        Q_EMIT dataChanged(index, index);
        return true;
    }

    mutable qint64 asked = 0;
    QHash<int, QString> written;

  private:
    int rows_;
    bool editable_;
};

class LargeSheet : public SheetDesk {
  protected:
    static constexpr int Rows = 1'000'000;
    void open() { sheet = std::make_unique<ModelSheet>(grid, model); }
    ~LargeSheet() override { sheet.reset(); }
    CountingModel model{Rows};
};

TEST_F(LargeSheet, AsksForNoMoreThanIsSeen) {
    open();
    EXPECT_EQ(grid.Rows(), Rows + 2);
    EXPECT_EQ(text(1, 1), "row 0");
    EXPECT_FALSE(sheet->whole());
    EXPECT_LT(model.asked, 1000);
    grid.Grid().TopRow(500'000);
    EXPECT_EQ(text(500'000, 1), "row 499999");
    EXPECT_EQ(text(400'000, 1), "");
    grid.Grid().Select(800'000, 1);
    EXPECT_EQ(text(800'000, 1), "row 799999");
    EXPECT_LT(model.asked, 2000);
}

TEST_F(LargeSheet, ARowThatNobodyHasSeenCanBeWritten) {
    open();
    EXPECT_EQ(grid.Enter(700'000, 1, "entered"), "");
    EXPECT_EQ(model.written[699'999], "ENTERED");
    EXPECT_EQ(text(700'000, 1), "ENTERED");
    EXPECT_TRUE(grid.History().Undo());
    EXPECT_EQ(text(700'000, 1), "ROW 699999");
    EXPECT_LT(model.asked, 2000);
}

TEST_F(LargeSheet, WhatIsSelectedIsFetchedFirst) {
    open();
    grid.Grid().SelectRange(1000, 1, 1200, 2);
    EXPECT_EQ(text(1100, 1), "row 1099");
    EXPECT_LT(model.asked, 3000);
    grid.Grid().Select(2000, 1);
    desk.clipboard("a\nb\nc\n");
    ASSERT_TRUE(desk.run(Command::Paste));
    EXPECT_EQ(model.written[2001], "C");
}

TEST_F(SheetDesk, AllComesInIdleTimeAndIsAskedForOnce) {
    constexpr int Many = 100'000;
    CountingModel model(Many);
    sheet = std::make_unique<ModelSheet>(grid, model);
    EXPECT_FALSE(grid.Options(1).sortable());
    ASSERT_TRUE(kit::waitUntil([&] { return sheet->whole(); }));
    EXPECT_EQ(text(Many, 1), "row 99999");
    EXPECT_LT(model.asked, 3 * Many + 1000);
    EXPECT_TRUE(grid.Options(1).sortable());
    sheet.reset();
}

TEST(ModelSheetSearch, ASearchLooksThroughAllOfIt) {
    headless::Desk desk;
    kxGrid& grid = desk.place();
    CountingModel model(20'000);
    ModelSheet sheet(grid, model);
    grid.Find().Rule({.text = "row 19999"});
    EXPECT_TRUE(sheet.whole());
    EXPECT_TRUE(grid.Find().Next());
    EXPECT_EQ(grid.Row(), 20'000);
}

TEST(ModelSheetTotals, ATotalWaitsUntilAllIsThere) {
    headless::Desk desk;
    kxGrid& grid = desk.place();
    CountingModel model(5'000);
    ModelSheet sheet(grid, model);
    sheet.column(1).total();
    EXPECT_EQ(grid.ReadSum(2), "");
    sheet.fetchAll();
    EXPECT_EQ(grid.ReadSum(2), "12497500");
}

TEST_F(SheetDesk, AReadOnlyModelHasNoSpareRowAndNoCellThatCanBeTypedInto) {
    CountingModel model(3, false);
    show(model);
    EXPECT_EQ(grid.Rows(), 4);
    EXPECT_FALSE(grid.cellEditable(1, 1));
    grid.Grid().Select(3, 1);
    desk.type("x").press(Key::Enter);
    EXPECT_EQ(text(3, 1), "row 2");
    desk.run(Command::DeleteRows);
    EXPECT_EQ(grid.Rows(), 4);
    sheet.reset();
    tester.reset();
}

TEST_F(SheetDesk, CellsThatTheFlagsLockAreLockedAndAModelsOwnWayWithAValueIsShown) {
    CountingModel model(3);
    show(model);
    EXPECT_TRUE(grid.cellEditable(1, 1));
    EXPECT_FALSE(grid.cellEditable(1, 2));
    type(2, 1, "lower");
    EXPECT_EQ(text(2, 1), "LOWER");
    type(2, 1, "no");
    EXPECT_EQ(text(2, 1), "LOWER");
    EXPECT_EQ(markOf(2, 1), "没有保存：数据源没有接受。");
    type(4, 1, "new");
    grid.Grid().Select(1, 1);
    EXPECT_EQ(text(4, 1), "new") << "it takes no rows, and nothing that was typed is lost";
    EXPECT_NE(markOf(4, 1), "");
    EXPECT_EQ(refusals.size(), 2U);
    sheet->mayInsert(false);
    EXPECT_FALSE(grid.cellEditable(4, 1));
    grid.Grid().Select(1, 1);
    desk.run(Command::DeleteRows);
    EXPECT_EQ(text(1, 1), "row 0") << "nor does it give any away";
    sheet.reset();
    tester.reset();
}

TEST_F(SheetDesk, AProxyThatSortsAndFiltersIsAModelLikeAnother) {
    const auto source = standardGoods(6);
    QSortFilterProxyModel proxy;
    proxy.setSourceModel(source.get());
    proxy.setFilterKeyColumn(0);
    proxy.sort(1, Qt::DescendingOrder);
    show(proxy);
    EXPECT_EQ(column(1), "A6|A5|A4|A3|A2|A1|");
    type(1, 2, "15");
    EXPECT_EQ(column(1), "A5|A4|A3|A2|A6|A1|");
    EXPECT_EQ(source->index(5, 1).data().toInt(), 15);
    proxy.setFilterFixedString("A1");
    EXPECT_EQ(column(1), "A1|");
    proxy.setFilterFixedString("");
    EXPECT_EQ(column(1), "A5|A4|A3|A2|A6|A1|");
    grid.History().Undo();
    type(grid.Rows() - 1, 1, "N");
    type(grid.Rows() - 2, 2, "35");
    EXPECT_TRUE(sheet->submit());
    EXPECT_EQ(source->rowCount(), 7);
    EXPECT_EQ(differenceOf(*sheet, proxy, grid), "");
    sheet.reset();
    tester.reset();
}

TEST_F(SheetDesk, ColumnsComeGoAndMove) {
    const auto model = standardGoods(3);
    show(*model);
    sheet->column("quantity").caption("数量").decimals(2);
    type(4, 1, "typed");
    model->insertColumn(1);
    EXPECT_EQ(grid.Cols(), 5);
    EXPECT_EQ(grid.Grid().Text(0, 3), "数量");
    EXPECT_EQ(grid.ColFormat(3), "#,##0.00");
    EXPECT_EQ(text(2, 3), "20");
    EXPECT_EQ(text(4, 1), "typed");
    model->removeColumn(0);
    EXPECT_EQ(grid.Cols(), 4);
    EXPECT_EQ(grid.ColFormat(2), "#,##0.00");
    EXPECT_EQ(differenceOf(*sheet, *model, grid).find("quantity"), std::string::npos);
    EXPECT_EQ(text(2, 2), "20");
}

TEST_F(SheetDesk, AnOpenEditorKeepsItsTextWhileTheModelChanges) {
    const auto model = standardGoods(4);
    show(*model);
    grid.Grid().Select(3, 1);
    desk.type("typing");
    model->setData(model->index(2, 0), "other");
    model->insertRow(0);
    model->removeRow(2);
    EXPECT_EQ(desk.editor().text, "typing");
    desk.press(Key::Enter);
    EXPECT_EQ(columnOf(*model, 0), "|A1|typing|A4");
}

TEST_F(SheetDesk, AListenerOfTheGridWhoThrowsKeepsNothingFromBeingShownAndNothingReachesTheModel) {
    const auto model = standardGoods(4);
    show(*model);
    grid.CellChanged.connect([](std::int32_t, std::int32_t) { throw std::runtime_error("listener"); });
    EXPECT_NO_THROW(model->insertRow(1, {new QStandardItem("new"), new QStandardItem("5")}));
    EXPECT_NO_THROW(model->setData(model->index(0, 0), "B1"));
    EXPECT_NO_THROW(model->sort(0, Qt::DescendingOrder));
    EXPECT_EQ(column(1), "new|B1|A4|A3|A2|");
    EXPECT_EQ(column(2), "5|10|40|30|20|");
}

TEST_F(SheetDesk, EmptyRowsDoNotStayBetweenOthers) {
    const auto model = standardGoods(4);
    show(*model);
    grid.Grid().Select(2, 1);
    ASSERT_TRUE(desk.run(Command::InsertRow));
    ASSERT_TRUE(desk.run(Command::AppendRow));
    grid.Grid().Select(2, 1);
    ASSERT_TRUE(desk.run(Command::DuplicateRow));
    EXPECT_TRUE(sheet->submit());
    EXPECT_EQ(column(1), "A1|A2|A3|A4|A2|");
    EXPECT_EQ(columnOf(*model, 0), "A1|A2|A3|A4|A2");
}

TEST_F(SheetDesk, GridModelAndSheetMayGoInAnyOrderAlsoWhileTheyAreTold) {
    auto model = standardGoods(4);
    show(*model);
    tester.reset();
    EXPECT_THROW(ModelSheet(grid, *model), GridError);
    sheet.reset();
    show(*model);
    tester.reset();
    QObject::connect(model.get(), &QAbstractItemModel::dataChanged, [&] { sheet.reset(); });
    type(1, 1, "x");
    EXPECT_FALSE(sheet);
    model = standardGoods(4);
    show(*model);
    tester.reset();
    QObject::connect(model.get(), &QAbstractItemModel::dataChanged, [&] { desk.remove(grid); });
    type(1, 1, "x");
    model->setData(model->index(2, 0), "y");
    EXPECT_FALSE(sheet->submit());
}

TEST_F(SheetDesk, AModelThatGoesLeavesWhatIsShown) {
    auto model = standardGoods(4);
    show(*model);
    tester.reset();
    model.reset();
    EXPECT_EQ(text(2, 1), "A2");
    EXPECT_FALSE(grid.cellEditable(2, 1));
    type(2, 1, "x");
    EXPECT_EQ(text(2, 1), "A2");
}

TEST_F(SheetDesk, TwoGridsAndAViewShareAModel) {
    const auto model = standardGoods(4);
    show(*model);
    kxGridWidget widget;
    ModelSheet second(widget.grid(), *model);
    QTableView view;
    view.setModel(model.get());
    type(2, 1, "typed");
    EXPECT_EQ(widget.grid().Grid().Text(2, 1), "typed");
    type(5, 1, "new");
    grid.Grid().Select(1, 1);
    EXPECT_EQ(widget.grid().Grid().Text(5, 1), "new");
    grid.Grid().Select(1, 1);
    desk.run(Command::DeleteRows);
    EXPECT_EQ(widget.grid().Grid().Text(1, 1), "typed");
    EXPECT_EQ(differenceOf(second, *model, widget.grid()), differenceOf(*sheet, *model, grid));
}
}  // namespace
}  // namespace kxVsGrid::qt::testing
