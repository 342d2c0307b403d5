// The whole window, driven by keys, with a clerk whose answers are prepared.
#pragma once

#include <QApplication>
#include <QTest>

#include "KeyPlayer.h"
#include "OrderColumn.h"
#include "OrderGrid.h"
#include "OrderHeader.h"
#include "OrderWindow.h"
#include "Scratch.h"
#include "kit/WhenOpen.h"
#include "kxVsGrid/qt/kxGridWidget.h"

class PreparedAnswers : public Questions {
  public:
    Leave unsavedWork(QWidget*, const QString& what) override {
        asked << what;
        return leave;
    }
    bool confirm(QWidget*, const QString& text, const QString&) override {
        asked << text;
        return agrees;
    }
    void problem(QWidget*, const QString& text) override { problems << text; }
    void information(QWidget*, const QString&, const QString& text) override { told << text; }
    std::optional<qint64> chooseOrder(QWidget*, const OrderStore& store) override {
        const std::vector<OrderSummary> orders = store.list(wanted, 10);
        if (orders.empty()) return std::nullopt;
        return orders.front().id;
    }

    QStringList asked;
    QStringList problems;
    QStringList told;
    Leave leave = Leave::Stay;
    bool agrees = false;
    QString wanted;
};

class OrderEntry : public Scratch {
  protected:
    void open(const QString& file) {
        window = std::make_unique<OrderWindow>(file, answers,
                                               [] { return QDateTime(QDate(2026, 11, 20), QTime(9, 30)); });
        window->show();
        QApplication::setActiveWindow(window.get());
        window->start();
        QCoreApplication::processEvents();
    }
    void open() { open(madeDatabase()); }

    kxVsGrid::kxGrid& grid() { return window->gridWidget().grid(); }
    QString cell(int row, OrderColumn::Column col) {
        return QString::fromStdString(grid().Grid().DisplayText(row, col));
    }

    // To whoever has the keyboard, as the key script of the program does it.
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

    // A whole order by keyboard alone.
    void typeOrder() {
        play({"type K0002", "key Enter", "type 100001", "key Enter", "type 12*3", "key Tab", "type 2.5",
              "key Tab", "type 主仓库", "key Tab"});
    }

    PreparedAnswers answers;
    std::unique_ptr<OrderWindow> window;
};
