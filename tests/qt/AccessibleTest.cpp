// The grid as screen readers and test tools see it.
#include <QAccessible>

#include "qt/Window.h"

namespace kxVsGrid::qt::testing {
namespace {

QAccessibleInterface& table(Window& w) {
    QAccessibleInterface* found = QAccessible::queryAccessibleInterface(&w.view());
    if (found == nullptr || found->tableInterface() == nullptr)
        throw std::logic_error("the view is no table");
    return *found;
}
}  // namespace

TEST(Accessible, IsATableWithTheHostsName) {
    Window w;
    EXPECT_EQ(table(w).role(), QAccessible::Table);
    EXPECT_EQ(table(w).text(QAccessible::Name), "表格");
    w.widget->setAccessibleName("订单");
    EXPECT_EQ(table(w).text(QAccessible::Name), "订单");
    EXPECT_EQ(table(w).tableInterface()->rowCount(), w.grid().Rows());
    EXPECT_EQ(table(w).tableInterface()->columnCount(), w.grid().Cols());
    EXPECT_EQ(table(w).childCount(), w.grid().Rows() * w.grid().Cols());
}

TEST(Accessible, HasCellsWithTextsRolesAndHeaders) {
    Window w;
    auto* cells = table(w).tableInterface();
    QAccessibleInterface* quantity = cells->cellAt(1, Quantity);
    EXPECT_EQ(quantity->text(QAccessible::Name), "1,234.50");
    EXPECT_EQ(quantity->role(), QAccessible::Cell);
    EXPECT_EQ(quantity->tableCellInterface()->columnHeaderCells().value(0)->text(QAccessible::Name), "数量");
    EXPECT_EQ(quantity->tableCellInterface()->rowHeaderCells().value(0)->text(QAccessible::Name), "1");
    EXPECT_EQ(cells->cellAt(0, Code)->role(), QAccessible::ColumnHeader);
    EXPECT_EQ(cells->cellAt(2, Number)->role(), QAccessible::RowHeader);
    EXPECT_EQ(table(w).indexOfChild(quantity), w.grid().Cols() + Quantity);
    EXPECT_EQ(table(w).child(w.grid().Cols() + Quantity), quantity);
    EXPECT_EQ(cells->cellAt(w.grid().Rows(), 0), nullptr);
}

TEST(Accessible, ShowsBooleanCellsAsCheckBoxes) {
    Window w;
    auto* cells = table(w).tableInterface();
    EXPECT_EQ(cells->cellAt(1, Paid)->role(), QAccessible::CheckBox);
    EXPECT_EQ(cells->cellAt(1, Paid)->text(QAccessible::Name), "已付");
    EXPECT_TRUE(cells->cellAt(1, Paid)->state().checked);
    EXPECT_FALSE(cells->cellAt(2, Paid)->state().checked);
}

TEST(Accessible, TellsWhatIsSelected) {
    Window w;
    w.focusCell(2, Code);
    auto* cells = table(w).tableInterface();
    EXPECT_EQ(cells->selectedCellCount(), 1);
    w.grid().Grid().SelectRange(2, Code, 3, Name);
    EXPECT_EQ(cells->selectedCellCount(), 4);
    EXPECT_EQ(cells->selectedCells(),
              (QList<QAccessibleInterface*>{cells->cellAt(2, Code), cells->cellAt(2, Name),
                                            cells->cellAt(3, Code), cells->cellAt(3, Name)}));
    EXPECT_TRUE(cells->cellAt(3, Name)->state().selected);
    EXPECT_FALSE(cells->cellAt(3, Name)->state().focused);
    EXPECT_TRUE(cells->cellAt(2, Code)->state().focused);
    EXPECT_FALSE(cells->cellAt(1, Name)->state().selected);
}

TEST(Accessible, HandsOutOnlySoManyOfTheSelectedCells) {
    Window w;
    w.grid().Rows(1'000'000);
    w.grid().Grid().SelectAll();
    auto* cells = table(w).tableInterface();
    EXPECT_EQ(cells->selectedCellCount(), 999'999 * (w.grid().Cols() - 1));
    EXPECT_EQ(cells->selectedCells().size(), 1000);
}

TEST(Accessible, TellsTheCurrentCellAndWhatMayBeChanged) {
    Window w;
    w.focusCell(2, Code);
    auto* cells = table(w).tableInterface();
    EXPECT_EQ(table(w).focusChild(), cells->cellAt(2, Code));
    EXPECT_TRUE(cells->cellAt(2, Code)->state().focused);
    EXPECT_FALSE(cells->cellAt(1, Code)->state().focused);
    EXPECT_FALSE(cells->cellAt(1, Code)->state().readOnly);
    EXPECT_TRUE(cells->cellAt(1, Name)->state().readOnly);
    EXPECT_TRUE(cells->cellAt(29, Code)->state().offscreen);
}

TEST(Accessible, FindsCellsByPlace) {
    Window w;
    const QPoint at = w.view().mapToGlobal(w.at(2, Name));
    QAccessibleInterface* found = table(w).childAt(at.x(), at.y());
    ASSERT_NE(found, nullptr);
    EXPECT_EQ(found->text(QAccessible::Name), "矿泉水");
    EXPECT_TRUE(found->rect().contains(at));
}

TEST(Accessible, MovesToACellAsAPressWould) {
    Window w;
    w.focusCell(1, Code);
    w.type("new");
    table(w)
        .tableInterface()
        ->cellAt(2, Quantity)
        ->actionInterface()
        ->doAction(QAccessibleActionInterface::setFocusAction());
    EXPECT_EQ(w.text(1, Code), "new");
    EXPECT_EQ(w.current(), "2,3");
    w.type("1+");
    table(w).tableInterface()->cellAt(3, Code)->actionInterface()->doAction(
        QAccessibleActionInterface::setFocusAction());
    EXPECT_EQ(w.current(), "2,3");
}

TEST(Accessible, CellsThatVanishAreNoLongerValid) {
    Window w;
    QAccessibleInterface* last = table(w).tableInterface()->cellAt(29, Code);
    EXPECT_TRUE(last->isValid());
    w.grid().Rows(10);
    EXPECT_FALSE(last->isValid());
    EXPECT_EQ(last->text(QAccessible::Name), "");
}
}  // namespace kxVsGrid::qt::testing
