// The help of the order's columns in the real window, by keys alone.
#include <QApplication>
#include <QLineEdit>
#include <QTest>
#include <QTimer>

#include "KeyPlayer.h"
#include "OrderColumn.h"
#include "OrderGrid.h"
#include "OrderWindow.h"
#include "Scratch.h"
#include "kit/WhenOpen.h"
#include "kxVsGrid/qt/kxGridWidget.h"

namespace {
class OrderHelpWindow : public Scratch {
  protected:
    void SetUp() override {
        window = std::make_unique<OrderWindow>(madeDatabase(), questions,
                                               [] { return QDateTime(QDate(2026, 11, 20), QTime(9, 30)); });
        window->show();
        QApplication::setActiveWindow(window.get());
        window->start();
        QCoreApplication::processEvents();
        play({"type K0002", "key Enter"});
    }

    void play(const QStringList& script) {
        KeyPlayer player(*window, script);
        bool done = false;
        QObject::connect(&player, &KeyPlayer::finished, &player, [&](const QString& error) {
            EXPECT_TRUE(error.isEmpty()) << error.toStdString();
            done = true;
        });
        player.start();
        EXPECT_TRUE(kxVsGrid::kit::waitUntil([&] { return done; }));
    }
    QString cell(int row, OrderColumn::Column col) {
        return QString::fromStdString(window->gridWidget().grid().Grid().DisplayText(row, col));
    }
    std::string typed() { return window->gridWidget().grid().Text(); }

    Questions questions;
    std::unique_ptr<OrderWindow> window;
};
}  // namespace

TEST_F(OrderHelpWindow, AGoodIsChosenByItsInitials) {
    play({"key Space", "key F2", "type wfgg", "key Enter", "key Enter"});
    EXPECT_EQ(cell(1, OrderColumn::Name), QString("无缝钢管"));
    EXPECT_FALSE(cell(1, OrderColumn::Price).isEmpty());
}

TEST_F(OrderHelpWindow, NewGoodsGoIntoTheListAndIntoTheOrder) {
    play({"key Space",     "key F2",        "key Tab",       "key Tab",   "key Space",  // the edit button
          "type A-1",      "key Tab",       "type 黄铜球阀", "key Tab",   "key Tab",
          "key Tab",       "type 台",       "key Tab",       "type 12.5", "key Enter",  // stored
          "key Shift+Tab", "key Shift+Tab", "type A-1",      "key Enter", "key Enter"});
    EXPECT_EQ(cell(1, OrderColumn::Code), QString("A-1"));
    EXPECT_EQ(cell(1, OrderColumn::Name), QString("黄铜球阀"));
    EXPECT_EQ(cell(1, OrderColumn::Unit), QString("台"));
    EXPECT_EQ(cell(1, OrderColumn::Price), QString("12.50"));
}

TEST_F(OrderHelpWindow, AColumnWithoutHelpSaysSoAndKeepsWhatIsBeingTyped) {
    play({"key End", "key Left", "type 送", "key F2"});
    EXPECT_FALSE(QApplication::activeModalWidget());
    EXPECT_EQ(typed(), "送");
    EXPECT_TRUE(window->message().contains("没有帮助")) << window->message().toStdString();
}

TEST_F(OrderHelpWindow, AUnitComesFromTheList) {
    play(
        {"type 100001", "key Enter", "key Left", "key Space", "key F2", "type 百", "key Enter", "key Enter"});
    EXPECT_EQ(cell(1, OrderColumn::Unit), QString("百个"));
}

TEST_F(OrderHelpWindow, ADateComesFromTheCalendar) {
    window->gridWidget().grid().Grid().Select(1, OrderColumn::Delivery);
    play({"key Space", "key F2", "key Right", "key Enter", "key Enter"});
    EXPECT_EQ(cell(1, OrderColumn::Delivery), QString("2026-11-28"));
}

TEST_F(OrderHelpWindow, AWarehouseComesFromTheListAtItsCell) {
    window->gridWidget().grid().Grid().Select(1, OrderColumn::Warehouse);
    window->move(-300, 0);  // so that there is room on the screen below and beside the cell
    QPoint corner;
    QPoint under;
    QTimer probe;
    QObject::connect(&probe, &QTimer::timeout, [&] {
        const QWidget* list = QApplication::activeModalWidget();
        if (list == nullptr) return;
        corner = list->pos();
        const QLineEdit* editor = window->gridWidget().findChild<QLineEdit*>();
        under = editor->mapToGlobal(QPoint(0, editor->height()));
    });
    probe.start(10);
    play({"key Space", "key F2", "wait 50", "key Down", "key Enter", "key Enter"});
    EXPECT_FALSE(corner.isNull());
    EXPECT_LE((corner - under).manhattanLength(), 4);
    EXPECT_EQ(cell(1, OrderColumn::Warehouse), QString("五金仓"));
}
