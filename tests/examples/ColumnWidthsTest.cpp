// The widths of the order's columns are the user's, from run to run.
#include "ColumnWidths.h"

#include <QAction>
#include <QMenuBar>

#include "OrderEntry.h"
#include "kxVsGrid/headless/Desk.h"

using namespace kxVsGrid;

namespace {

class ColumnWidthsTest : public Scratch {
  protected:
    /// One run of a program whose grid has these columns, each designed 1000 twips wide.
    struct Run {
        Run(const QString& file, const std::vector<std::string>& names) : grid(desk.place()) {
            grid.Cols(static_cast<std::int32_t>(names.size()));
            for (std::int32_t col = 0; col < grid.Cols(); ++col) {
                grid.VsCtrl(static_cast<std::int16_t>(col))->sName(names[static_cast<std::size_t>(col)]);
                grid.ColWidth(col, 1000);
            }
            widths =
                std::make_unique<ColumnWidths>(grid, std::make_unique<QSettings>(file, QSettings::IniFormat),
                                               [this](const QString& why) { failures << why; });
        }
        std::vector<std::int32_t> all() const {
            std::vector<std::int32_t> result;
            for (std::int32_t col = 0; col < grid.Cols(); ++col) result.push_back(grid.ColWidth(col));
            return result;
        }

        headless::Desk desk;
        kxGrid& grid;
        QStringList failures;
        std::unique_ptr<ColumnWidths> widths;
    };
    using Widths = std::vector<std::int32_t>;

    QString file() const { return path("user.ini"); }
    void put(const QByteArray& content) {
        QFile opened(file());
        ASSERT_TRUE(opened.open(QIODevice::WriteOnly));
        opened.write(content);
    }
};
}  // namespace

TEST_F(ColumnWidthsTest, AreKeptFromRunToRun) {
    Run(file(), {"行号", "货号", "数量"}).desk.dragColumn(1, 2345);
    Run again(file(), {"行号", "货号", "数量"});
    EXPECT_EQ(again.all(), (Widths{1000, 2345, 1000}));
    EXPECT_EQ(again.grid.Grid_Sum().ColWidth(1), 2345);
    EXPECT_EQ(again.failures, QStringList());
}

TEST_F(ColumnWidthsTest, FollowTheNamesOfTheColumns) {
    Run first(file(), {"行号", "货号", "数量"});
    first.desk.dragColumn(1, 2000);
    first.desk.dragColumn(2, 3000);
    EXPECT_EQ(Run(file(), {"行号", "数量", "规格"}).all(), (Widths{1000, 3000, 1000}));
    EXPECT_EQ(Run(file(), {"数量", "货号"}).all(), (Widths{3000, 2000})) << "a column that was gone is back";
}

TEST_F(ColumnWidthsTest, ThatAreTheDesignedOnesAreNotKept) {
    Run run(file(), {"行号", "货号"});
    run.desk.dragColumn(1, 2000);
    run.desk.dragColumn(1, 1000);
    EXPECT_EQ(QSettings(file(), QSettings::IniFormat).allKeys(), QStringList());
}

TEST_F(ColumnWidthsTest, ThatMakeNoSenseAreIgnored) {
    put("[columnWidths]\na=Int32 -5\nb=Int32 0\nc=Int32 2000000000\nd=wide\ne=700\nf=\"Text \\\"800\\\"\"\n"
        "g=\"a, b\"\nh=@Invalid()\ni=Int32 14\n");
    EXPECT_EQ(Run(file(), {"a", "b", "c", "d", "e", "f", "g", "h", "i"}).all(),
              (Widths{1000, 1000, 1000, 1000, 1000, 800, 1000, 1000, 1000}));
    put("\xFF\xFE no settings [");
    EXPECT_EQ(Run(file(), {"a", "b"}).all(), (Widths{1000, 1000}));
}

TEST_F(ColumnWidthsTest, AreTheDesignedOnesAfterAReset) {
    Run run(file(), {"行号", "货号"});
    run.desk.dragColumn(1, 2000);
    run.widths->reset();
    EXPECT_EQ(run.all(), (Widths{1000, 1000}));
    EXPECT_EQ(run.grid.Grid_Sum().ColWidth(1), 1000);
    EXPECT_EQ(Run(file(), {"行号", "货号"}).all(), (Widths{1000, 1000}));
}

TEST_F(ColumnWidthsTest, ThatCannotBeKeptAreTold) {
    put("in the way");
    const QString place = file() + "/user.ini";
    Run run(place, {"行号", "货号"});
    run.desk.dragColumn(1, 2000);
    ASSERT_EQ(run.failures.size(), 1);
    EXPECT_TRUE(run.failures[0].startsWith(place)) << run.failures[0].toStdString();
    EXPECT_EQ(run.all(), (Widths{1000, 2000}));
}

TEST_F(OrderEntry, RemembersDraggedColumnsAndResetsThemFromItsMenu) {
    const QString file = path("user.ini");
    const QString database = madeDatabase();
    const auto remembering = [&] {
        open(database);
        window->rememberColumns(std::make_unique<QSettings>(file, QSettings::IniFormat));
    };
    remembering();
    const std::int32_t designed = grid().ColWidth(OrderGrid::Name);
    const Rect header = grid().Grid().CellRect(0, OrderGrid::Name);
    const auto pixel = [&](std::int32_t twips) { return twips * window->logicalDpiX() / 1440; };
    QWidget* view = window->gridWidget().childAt(pixel(header.left) + 5, 5);
    ASSERT_NE(view, nullptr);
    const QPoint edge(pixel(header.left + header.width) - 1, 5);
    QTest::mousePress(view, Qt::LeftButton, Qt::NoModifier, edge);
    QTest::mouseMove(view, edge + QPoint(40, 0));
    QTest::mouseRelease(view, Qt::LeftButton, Qt::NoModifier, edge + QPoint(40, 0));
    const std::int32_t dragged = grid().ColWidth(OrderGrid::Name);
    EXPECT_NEAR(dragged, designed + 40 * 1440 / window->logicalDpiX(), 30);

    window.reset();
    remembering();
    EXPECT_EQ(grid().ColWidth(OrderGrid::Name), dragged);
    QAction* reset = nullptr;
    for (QAction* action : window->findChildren<QAction*>())
        if (action->text().startsWith("恢复列宽")) reset = action;
    ASSERT_NE(reset, nullptr);
    reset->trigger();
    EXPECT_EQ(grid().ColWidth(OrderGrid::Name), designed);
}
