// The layout of the order's columns is the user's, from run to run.
#include <QAction>
#include <QSettings>

#include "OrderEntry.h"

using namespace kxVsGrid;

namespace {

class OrderColumns : public OrderEntry {
  protected:
    QString file() const { return path("user.ini"); }
    /// One more run of the program by the same user.
    void start() {
        window.reset();
        if (!QFile::exists(databaseFile())) madeDatabase();
        open(databaseFile());
        window->rememberColumns(std::make_unique<QSettings>(file(), QSettings::IniFormat));
    }
    int pixel(std::int32_t twips) const { return twips * window->logicalDpiX() / 1440; }
    /// Drags the right edge of the column's header.
    void dragEdge(OrderColumn::Column col, int pixels) {
        const Rect header = grid().Grid().CellRect(0, col);
        QWidget* view = window->gridWidget().childAt(pixel(header.left) + 5, 5);
        ASSERT_NE(view, nullptr);
        const QPoint edge(pixel(header.left + header.width) - 1, 5);
        QTest::mousePress(view, Qt::LeftButton, Qt::NoModifier, edge);
        QTest::mouseMove(view, edge + QPoint(pixels, 0));
        QTest::mouseRelease(view, Qt::LeftButton, Qt::NoModifier, edge + QPoint(pixels, 0));
    }
    QAction* action(const QString& text) {
        for (QAction* one : window->findChildren<QAction*>())
            if (one->text().startsWith(text)) return one;
        return nullptr;
    }
    void choose(const QString& text) {
        QAction* const chosen = action(text);
        ASSERT_NE(chosen, nullptr) << text.toStdString();
        ASSERT_TRUE(chosen->isEnabled()) << text.toStdString();
        chosen->trigger();
    }
    void at(OrderColumn::Column col) { grid().Grid().Select(1, col); }
};
}  // namespace

TEST_F(OrderColumns, AreRememberedAndResetFromTheMenu) {
    start();
    const std::int32_t designed = grid().ColWidth(OrderColumn::Name);
    EXPECT_EQ(grid().FrozenCols(), 2);
    dragEdge(OrderColumn::Name, 40);
    const std::int32_t dragged = grid().ColWidth(OrderColumn::Name);
    EXPECT_NEAR(dragged, designed + 40 * 1440 / window->logicalDpiX(), 30);
    at(OrderColumn::Slot);
    choose("隐藏列");
    at(OrderColumn::Code);
    choose("冻结到此列");

    start();
    EXPECT_EQ(grid().ColWidth(OrderColumn::Name), dragged);
    EXPECT_TRUE(grid().ColHidden(OrderColumn::Slot));
    EXPECT_EQ(grid().FrozenCols(), 1);
    EXPECT_EQ(window->message(), QString());

    choose("恢复默认布局");
    EXPECT_EQ(grid().ColWidth(OrderColumn::Name), designed);
    EXPECT_FALSE(grid().ColHidden(OrderColumn::Slot));
    EXPECT_EQ(grid().FrozenCols(), 2);

    start();
    EXPECT_EQ(grid().ColWidth(OrderColumn::Name), designed);
    EXPECT_FALSE(grid().ColHidden(OrderColumn::Slot));
    EXPECT_EQ(grid().FrozenCols(), 2);
}

TEST_F(OrderColumns, GiveTheRoomOfAHiddenOneToTheRemark) {
    start();
    window->resize(1900, 720);
    QCoreApplication::processEvents();
    const std::int32_t before = grid().ColWidth(OrderColumn::Remark);
    at(OrderColumn::Slot);
    choose("隐藏列");
    EXPECT_EQ(grid().ColWidth(OrderColumn::Remark), before + grid().ColWidth(OrderColumn::Slot));
    choose("显示隐藏的列");
    EXPECT_EQ(grid().ColWidth(OrderColumn::Remark), before);
}

TEST_F(OrderColumns, AreShownAsDesignedWhereTheFileMakesNoSense) {
    start();
    const std::int32_t designed = grid().ColWidth(OrderColumn::Name);
    window.reset();
    {
        QSettings settings(file(), QSettings::IniFormat);
        settings.beginGroup("columns");
        settings.setValue("ColumnLayout.Width.品名", "wide");
        settings.setValue("ColumnLayout.Width.规格", "Int32 14");
        settings.setValue("ColumnLayout.Hidden.规格", "Text \"perhaps\"");
        settings.setValue("ColumnLayout.Frozen", QStringList({"a", "b"}));
    }
    start();
    EXPECT_EQ(grid().ColWidth(OrderColumn::Name), designed);
    EXPECT_FALSE(grid().ColHidden(OrderColumn::Spec));
    EXPECT_EQ(grid().FrozenCols(), 2);
    window.reset();
    QFile junk(file());
    ASSERT_TRUE(junk.open(QIODevice::WriteOnly));
    junk.write("\xFF\xFE no settings [");
    junk.close();
    start();
    EXPECT_EQ(grid().ColWidth(OrderColumn::Name), designed);
}

TEST_F(OrderColumns, ThatCannotBeKeptAreTold) {
    QFile inTheWay(file());
    ASSERT_TRUE(inTheWay.open(QIODevice::WriteOnly));
    inTheWay.close();
    open();
    window->rememberColumns(std::make_unique<QSettings>(file() + "/user.ini", QSettings::IniFormat));
    at(OrderColumn::Slot);
    choose("隐藏列");
    EXPECT_TRUE(window->message().startsWith("列的布局没有保存:")) << window->message().toStdString();
    EXPECT_TRUE(grid().ColHidden(OrderColumn::Slot));
}

TEST_F(OrderColumns, AreOfferedToTheClerkInMenus) {
    open();
    EXPECT_TRUE(grid().Options().HeaderMenu());
    for (std::int32_t col = OrderColumn::Code; col < OrderColumn::ColumnCount; ++col) {
        EXPECT_TRUE(grid().Options(col).sortable());
        EXPECT_TRUE(grid().Options(col).filterable());
    }
    for (const char* text :
         {"查找…", "替换…", "筛选…", "取消筛选", "冻结到此列", "最适合的列宽", "显示隐藏的列", "列菜单"})
        EXPECT_TRUE(action(text)) << text;
}
