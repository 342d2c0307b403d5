#include "WarehouseList.h"

#include <QApplication>
#include <QListWidget>
#include <QScreen>
#include <memory>

#include "Scratch.h"
#include "Typing.h"

namespace {
class Warehouses : public testing::Test {
  protected:
    void open(const QString& typed, const QPoint& corner = {100, 100}) {
        list = std::make_unique<WarehouseList>(
            std::vector<CodeAndName>{{"C01", "主仓库"}, {"C02", "五金仓"}, {"D01", "钢材仓"}}, typed);
        list->place(corner);
        list->show();
        QApplication::setActiveWindow(list.get());
    }
    QListWidget* rows() { return list->findChild<QListWidget*>(); }
    void press(Qt::Key key) { QTest::keyClick(list->focusWidget(), key); }
    QString chosen() {
        const auto one = list->chosen();
        return one ? one->code + one->name : QString();
    }

    std::unique_ptr<WarehouseList> list;
};
}  // namespace

TEST_F(Warehouses, EnterTakesTheOneThatTheCellNames) {
    open("五金仓");
    press(Qt::Key_Return);
    EXPECT_FALSE(list->isVisible());
    EXPECT_EQ(chosen(), QString("C02五金仓"));
}

TEST_F(Warehouses, BeginsOnTheBeginningOfANameOrCode) {
    for (const auto& [typed, row] : {std::pair{"钢", 2}, {"d0", 2}, {"c02", 1}, {"", 0}, {"无此仓", 0}}) {
        open(typed);
        EXPECT_EQ(rows()->currentRow(), row) << typed;
    }
}

TEST_F(Warehouses, ArrowsMoveThroughTheList) {
    open("");
    press(Qt::Key_Down);
    press(Qt::Key_Down);
    press(Qt::Key_Up);
    press(Qt::Key_Enter);
    EXPECT_EQ(chosen(), QString("C02五金仓"));
}

TEST_F(Warehouses, TypingACodeGoesThere) {
    open("");
    typeInto(list->focusWidget(), "D");
    press(Qt::Key_Return);
    EXPECT_EQ(chosen(), QString("D01钢材仓"));
}

TEST_F(Warehouses, AClickTakesARow) {
    open("");
    QTest::mouseClick(rows()->viewport(), Qt::LeftButton, {},
                      rows()->visualItemRect(rows()->item(1)).center());
    EXPECT_FALSE(list->isVisible());
    EXPECT_EQ(chosen(), QString("C02五金仓"));
}

TEST_F(Warehouses, EscTakesNothing) {
    open("五金仓");
    press(Qt::Key_Escape);
    EXPECT_FALSE(list->isVisible());
    EXPECT_EQ(chosen(), QString());
}

TEST_F(Warehouses, ShowsAllRowsWithoutScrolling) {
    open("");
    EXPECT_TRUE(rows()->viewport()->rect().contains(rows()->visualItemRect(rows()->item(2))));
}

TEST_F(Warehouses, StandsAtItsCornerButWhollyOnTheScreen) {
    open("", {120, 90});
    EXPECT_EQ(list->pos(), QPoint(120, 90));
    const QRect screen = QApplication::primaryScreen()->availableGeometry();
    open("", screen.bottomRight() - QPoint(5, 5));
    EXPECT_TRUE(screen.contains(list->geometry()));
}
