// What is keyed and not saved outlives the program. A desk that goes without its windows being closed leaves behind
// what a crash does.
#include <QDir>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

#include "OrderDesk.h"
#include "OrderEntry.h"
#include "RecoveryBar.h"

namespace {
class OrderDraftTest : public Scratch {
  protected:
    OrderDraftTest() { madeDatabase(); }

    QString folder() const { return path("drafts"); }
    OrderDesk::Services services() {
        return {databaseFile(), [] { return QDateTime(QDate(2026, 11, 20), QTime(9, 30)); }, folder(), {}};
    }
    void start() { start(services()); }
    void start(const OrderDesk::Services& services) {
        desk = std::make_unique<OrderDesk>(services, answers);
        QApplication::setActiveWindow(&desk->first());
        desk->start();
        QCoreApplication::processEvents();
    }
    void crash() { desk.reset(); }
    void restart() {
        crash();
        start();
    }

    OrderWindow& window(std::size_t index = 0) { return *desk->windows().at(index); }
    std::size_t windows() const { return desk->windows().size(); }
    static kxVsGrid::kxGrid& gridOf(OrderWindow& window) { return window.gridWidget().grid(); }
    kxVsGrid::kxGrid& grid() { return gridOf(window()); }
    static RecoveryBar& barOf(OrderWindow& window) { return *window.findChild<RecoveryBar*>("recovery"); }
    bool nothingRecovered() { return windows() == 1 && barOf(window()).isHidden() && window().untouched(); }

    void play(OrderWindow& window, const QStringList& script) {
        QApplication::setActiveWindow(&window);
        KeyPlayer player(window, script);
        bool done = false;
        QObject::connect(&player, &KeyPlayer::finished, &player, [&](const QString& error) {
            EXPECT_TRUE(error.isEmpty()) << error.toStdString();
            done = true;
        });
        player.start();
        EXPECT_TRUE(kxVsGrid::kit::waitUntil([&] { return done; }));
    }
    void play(const QStringList& script) { play(window(), script); }
    void typeOrder() {
        play({"type K0002", "key Enter", "type 100001", "key Enter", "type 12*3", "key Enter", "type 100002",
              "key Enter", "type 2", "key Enter"});
    }
    // One that the database has; stays on the screen.
    Order saveOrder() {
        typeOrder();
        play({"key Ctrl+S"});
        return window().onScreen();
    }
    void changeFirstQuantity(const QString& quantity) {
        grid().Grid().Select(1, OrderColumn::Quantity);
        play({"key F7", "type " + quantity, "key Enter"});
    }

    // What another clerk does meanwhile.
    std::optional<Order> stored(qint64 id) {
        Database database(databaseFile());
        database.open();
        return OrderStore(database).load(id);
    }
    void saveElsewhere(Order order, Thousandths quantity) {
        Database database(databaseFile());
        database.open();
        order.lines.at(0).quantity = quantity;
        order.lines.at(0).amount = amountOf(quantity, *order.lines.at(0).price);
        OrderStore(database).save(order);
    }
    std::size_t ordersStored() {
        Database database(databaseFile());
        database.open();
        return OrderStore(database).list({}, 10).size();
    }

    QStringList draftFiles() const { return QDir(folder()).entryList({"*.draft"}, QDir::Files); }
    // The program ends right behind what `act` has done, and the draft knows nothing of it.
    void behindTheDraft(const std::function<void()>& act) {
        const QStringList files = draftFiles();
        ASSERT_EQ(files.size(), 1);
        ASSERT_TRUE(QFile::copy(folder() + '/' + files[0], path("aside")));
        act();
        crash();
        QDir(folder()).removeRecursively();
        QDir().mkpath(folder());
        ASSERT_TRUE(QFile::rename(path("aside"), folder() + '/' + files[0]));
        start();
    }

    PreparedAnswers answers;
    std::unique_ptr<OrderDesk> desk;
};
}  // namespace

TEST_F(OrderDraftTest, BringsANewOrderBackAsItWas) {
    start();
    typeOrder();
    play({"type 100003", "key Enter", "key Ctrl+Z"});
    const Order before = window().onScreen();
    restart();
    EXPECT_EQ(windows(), 1u);
    EXPECT_TRUE(window().onScreen() == before);
    EXPECT_EQ(before.lines.size(), 2u);
    EXPECT_TRUE(window().hasUnsavedWork());
    EXPECT_EQ(window().total(), QString::fromStdString(moneyText(before.total())));
    EXPECT_FALSE(grid().History().CanUndo());
    const QString told = barOf(window()).text();
    EXPECT_FALSE(barOf(window()).isHidden());
    EXPECT_TRUE(told.startsWith("已恢复 ")) << told.toStdString();
    EXPECT_TRUE(told.contains(" 未保存的订单 XS-20261120-001,共 ")) << told.toStdString();
    EXPECT_TRUE(answers.problems.isEmpty() && answers.asked.isEmpty());
}

TEST_F(OrderDraftTest, IsKeyedOnAndSavedLikeAnyOrder) {
    start();
    typeOrder();
    restart();
    play({"type 100003", "key Enter", "type 5", "key Enter", "key Ctrl+S"});
    EXPECT_EQ(window().onScreen().lines.size(), 3u);
    EXPECT_FALSE(window().hasUnsavedWork());
    EXPECT_TRUE(barOf(window()).isHidden());
    EXPECT_TRUE(*stored(window().onScreen().id) == window().onScreen());
    restart();
    EXPECT_TRUE(nothingRecovered());
    EXPECT_EQ(ordersStored(), 1u);
}

TEST_F(OrderDraftTest, SavesTheChangedLinesAloneOfAnOrderThatNobodyTouched) {
    start();
    saveOrder();
    changeFirstQuantity("7");
    const Order before = window().onScreen();
    restart();
    EXPECT_TRUE(window().onScreen() == before);
    EXPECT_TRUE(window().hasUnsavedWork());
    Database database(databaseFile());
    database.open();
    watchLines(database);
    EXPECT_TRUE(window().save());
    EXPECT_EQ(linesWritten(database), QStringList{"changed 100001 7000"});
    EXPECT_TRUE(*stored(before.id) == window().onScreen());
}

TEST_F(OrderDraftTest, BringsTheHeadBack) {
    start();
    play({"type K0007", "key Enter"});
    window().findChild<QLineEdit*>("number")->setText("A-17");
    const Order before = window().onScreen();
    restart();
    EXPECT_TRUE(window().onScreen() == before);
    EXPECT_EQ(before.number, QString("A-17"));
    EXPECT_EQ(before.customer, 7);
    EXPECT_TRUE(window().hasUnsavedWork());
}

TEST_F(OrderDraftTest, BringsACustomerBackThatIsNotClearYet) {
    start();
    play({"type K00"});
    restart();
    EXPECT_TRUE(window().header().customerUnclear());
    EXPECT_EQ(window().findChild<QLineEdit*>("customer")->text(), QString("K00"));
    play({"type 05", "key Enter"});
    EXPECT_EQ(window().findChild<QLineEdit*>("customer")->text().left(5), QString("K0005"))
        << "it is typed on";
}

TEST_F(OrderDraftTest, SaysBeforeGivingUpThatWhatWasKeyedSinceGoesToo) {
    start();
    typeOrder();
    restart();
    barOf(window()).findChild<QPushButton*>("giveUp")->click();
    play({"type 100003", "key Enter"});
    barOf(window()).findChild<QPushButton*>("giveUp")->click();
    ASSERT_EQ(answers.asked.size(), 2);
    EXPECT_FALSE(answers.asked[0].contains("连同"));
    EXPECT_TRUE(answers.asked[1].contains("连同恢复之后录入的内容"));
}

TEST_F(OrderDraftTest, IsStillThereAfterASecondCrash) {
    start();
    typeOrder();
    restart();
    play({"type 100003", "key Enter", "type 5", "key Enter"});
    const Order before = window().onScreen();
    restart();
    EXPECT_TRUE(window().onScreen() == before);
    EXPECT_EQ(before.lines.size(), 3u);
    restart();
    EXPECT_TRUE(window().onScreen() == before);
}

TEST_F(OrderDraftTest, SavesASavedOrderOnceAfterTwoCrashes) {
    start();
    const Order saved = saveOrder();
    changeFirstQuantity("7");
    restart();
    play({"type 100003", "key Enter", "type 5", "key Enter"});
    restart();
    EXPECT_TRUE(window().save());
    const Order now = *stored(saved.id);
    EXPECT_TRUE(now == window().onScreen());
    ASSERT_EQ(now.lines.size(), 3u);
    EXPECT_EQ(now.lines[0].quantity, 7'000);
    EXPECT_EQ(now.lines[1].code, QString("100002"));
    EXPECT_EQ(ordersStored(), 1u);
}

TEST_F(OrderDraftTest, KeepsItsDraftsWhileTheDatabaseCannotBeRead) {
    start();
    typeOrder();
    const Order before = window().onScreen();
    crash();
    ASSERT_TRUE(QFile::rename(databaseFile(), path("away")));
    ASSERT_TRUE(QDir().mkdir(databaseFile()));
    start();
    EXPECT_EQ(windows(), 1u);
    EXPECT_EQ(answers.problems.size(), 1);
    EXPECT_TRUE(window().message().contains("草稿")) << window().message().toStdString();
    crash();
    ASSERT_TRUE(QDir().rmdir(databaseFile()) && QFile::rename(path("away"), databaseFile()));
    start();
    EXPECT_TRUE(window().onScreen() == before);
}

TEST_F(OrderDraftTest, OffersNothingWhereNothingWasKeyed) {
    start();
    restart();
    EXPECT_TRUE(nothingRecovered());
    play({"key F7", "key Down", "key Down"});  // rows get their presets
    restart();
    EXPECT_TRUE(nothingRecovered());
    restart();
    EXPECT_TRUE(nothingRecovered());
}

TEST_F(OrderDraftTest, OffersNothingThatWasSavedGivenUpOrApproved) {
    start();
    const Order saved = saveOrder();
    restart();
    EXPECT_TRUE(nothingRecovered());
    typeOrder();
    answers.agrees = true;
    play({"key Ctrl+Shift+D"});
    restart();
    EXPECT_TRUE(nothingRecovered());
    typeOrder();
    answers.leave = Questions::Leave::Discard;
    EXPECT_TRUE(window().close());
    EXPECT_TRUE(draftFiles().isEmpty());
    restart();
    EXPECT_TRUE(nothingRecovered());
    EXPECT_TRUE(window().openOrder(saved.id));
    EXPECT_TRUE(window().approveOrder());
    EXPECT_TRUE(draftFiles().isEmpty());
}

TEST_F(OrderDraftTest, OffersNothingThatWasSavedRightBeforeTheEnd) {
    start();
    typeOrder();
    behindTheDraft([&] { EXPECT_TRUE(window().save()); });
    EXPECT_TRUE(nothingRecovered());
    EXPECT_EQ(ordersStored(), 1u);
    const auto saved = stored(1);
    ASSERT_TRUE(saved);
    EXPECT_TRUE(window().openOrder(saved->id));
    changeFirstQuantity("8");
    behindTheDraft([&] { EXPECT_TRUE(window().save()); });
    EXPECT_TRUE(nothingRecovered());
}

TEST_F(OrderDraftTest, BringsBackTheOrderThatSavedLinesWereMovedInto) {
    start();
    const Order saved = saveOrder();
    grid().Grid().Select(2, OrderColumn::Code);
    play({"key F7", "key Alt+Up"});
    EXPECT_TRUE(window().hasUnsavedWork());
    restart();
    EXPECT_FALSE(barOf(window()).isHidden());
    EXPECT_EQ(window().onScreen().lines.at(0).code, saved.lines.at(1).code);
    EXPECT_TRUE(window().hasUnsavedWork());
    play({"key Ctrl+S"});
    EXPECT_EQ(stored(saved.id)->lines.at(0).code, saved.lines.at(1).code);
    EXPECT_EQ(stored(saved.id)->lines.at(0).id, saved.lines.at(1).id);
}

TEST_F(OrderDraftTest, ShowsAnOrderThatSomebodySavedMeanwhileBesideTheDraft) {
    start();
    const Order saved = saveOrder();
    changeFirstQuantity("7");
    crash();
    saveElsewhere(saved, 99'000);
    start();
    ASSERT_EQ(windows(), 2u);
    EXPECT_EQ(window(0).onScreen().id, saved.id);
    EXPECT_EQ(window(0).onScreen().lines.at(0).quantity, 99'000);
    EXPECT_FALSE(window(0).hasUnsavedWork());
    OrderWindow& draft = window(1);
    EXPECT_TRUE(draft.windowTitle().contains("草稿 XS-20261120-001 保存冲突"))
        << draft.windowTitle().toStdString();
    EXPECT_EQ(draft.onScreen().lines.at(0).quantity, 7'000);
    EXPECT_EQ(draft.onScreen().id, 0);
    EXPECT_LT(window(0).x(), draft.x());
    EXPECT_TRUE(barOf(draft).text().contains("另存为新订单 XS-20261120-002"))
        << barOf(draft).text().toStdString();
}

TEST_F(OrderDraftTest, SavesADraftInConflictAsAnotherOrder) {
    start();
    const Order saved = saveOrder();
    changeFirstQuantity("7");
    crash();
    saveElsewhere(saved, 99'000);
    start();
    restart();  // still one in conflict
    ASSERT_EQ(windows(), 2u);
    EXPECT_TRUE(window(1).windowTitle().contains("草稿 XS-20261120-001 保存冲突"));
    EXPECT_TRUE(window(1).save());
    const Order other = window(1).onScreen();
    EXPECT_NE(other.id, saved.id);
    EXPECT_EQ(other.number, QString("XS-20261120-002"));
    EXPECT_FALSE(window(1).windowTitle().contains("草稿"));
    EXPECT_TRUE(barOf(window(1)).isHidden());
    EXPECT_EQ(stored(other.id)->lines.at(0).quantity, 7'000);
    EXPECT_EQ(stored(saved.id)->lines.at(0).quantity, 99'000);
    EXPECT_EQ(ordersStored(), 2u);
}

TEST_F(OrderDraftTest, GivingUpADraftInConflictClosesItsWindow) {
    start();
    const Order saved = saveOrder();
    changeFirstQuantity("7");
    crash();
    saveElsewhere(saved, 99'000);
    start();
    ASSERT_EQ(windows(), 2u);
    barOf(window(1)).findChild<QPushButton*>("giveUp")->click();
    EXPECT_TRUE(window(1).isVisible()) << "the clerk has said no";
    answers.agrees = true;
    barOf(window(1)).findChild<QPushButton*>("giveUp")->click();
    EXPECT_FALSE(window(1).isVisible());
    EXPECT_TRUE(window(0).isVisible());
    restart();
    EXPECT_TRUE(nothingRecovered());
    EXPECT_EQ(stored(saved.id)->lines.at(0).quantity, 99'000);
}

TEST_F(OrderDraftTest, KeepsTheLinesOfAnOrderThatWasDeletedMeanwhile) {
    start();
    const Order saved = saveOrder();
    changeFirstQuantity("7");
    crash();
    {
        Database database(databaseFile());
        database.open();
        OrderStore(database).remove(saved);
    }
    start();
    ASSERT_EQ(windows(), 1u);
    EXPECT_EQ(window().onScreen().lines.at(0).quantity, 7'000);
    EXPECT_EQ(window().onScreen().id, 0);
    EXPECT_TRUE(barOf(window()).text().contains("已被删除"));
    EXPECT_TRUE(window().save());
    EXPECT_EQ(ordersStored(), 1u);
}

TEST_F(OrderDraftTest, OpensEachDraftInAWindowOfItsOwn) {
    start();
    typeOrder();
    const Order one = window().onScreen();
    auto first = std::move(desk);
    start();  // another program
    EXPECT_TRUE(nothingRecovered()) << "the first one has it in use";
    play({"type K0007", "key Enter", "type 100009", "key Enter"});
    const Order other = window().onScreen();
    first.reset();
    restart();
    ASSERT_EQ(windows(), 2u);
    const bool inOrder = window(0).onScreen() == other;
    EXPECT_TRUE(window(inOrder ? 0 : 1).onScreen() == other);
    EXPECT_TRUE(window(inOrder ? 1 : 0).onScreen() == one);
    for (const std::size_t index : {0u, 1u}) {
        EXPECT_TRUE(window(index).isVisible());
        EXPECT_FALSE(barOf(window(index)).isHidden());
    }
    changeFirstQuantity("3");
    EXPECT_TRUE(window(0).save());
    EXPECT_TRUE(window(1).header().number() == "XS-20261120-001");
    if (window(1).onScreen().lines.at(0).quantity) {
        EXPECT_TRUE(window(1).save());
        EXPECT_EQ(window(1).header().number(), QString("XS-20261120-002"));
    }
}

TEST_F(OrderDraftTest, GivenUpANewOrderIsEmptyAndASavedOneAsItWasSaved) {
    answers.agrees = true;
    start();
    typeOrder();
    restart();
    barOf(window()).findChild<QPushButton*>("giveUp")->click();
    EXPECT_TRUE(nothingRecovered());
    const Order saved = saveOrder();
    changeFirstQuantity("7");
    restart();
    barOf(window()).findChild<QPushButton*>("giveUp")->click();
    EXPECT_TRUE(window().onScreen() == saved);
    EXPECT_FALSE(window().hasUnsavedWork());
    EXPECT_TRUE(barOf(window()).isHidden());
    restart();
    EXPECT_TRUE(nothingRecovered());
}

TEST_F(OrderDraftTest, GoingOnHidesTheBarAndGoesBehindTheLastLine) {
    start();
    typeOrder();
    restart();
    barOf(window()).findChild<QPushButton*>("goOn")->click();
    EXPECT_TRUE(barOf(window()).isHidden());
    EXPECT_EQ(grid().Row(), 3);
    EXPECT_EQ(grid().Col(), OrderColumn::Code);
    EXPECT_TRUE(window().gridWidget().hasFocus());
    EXPECT_FALSE(grid().History().CanUndo());
}

TEST_F(OrderDraftTest, GivesTheLineBehindTheLastOneItsPresets) {
    start();
    saveOrder();
    restart();
    EXPECT_TRUE(window().openOrder(1));
    changeFirstQuantity("7");
    restart();
    EXPECT_FALSE(grid().History().CanUndo());
    play({"type 100003", "key Enter", "type 4", "key Enter"});
    const OrderLine line = window().onScreen().lines.back();
    EXPECT_EQ(line.code, QString("100003"));
    EXPECT_EQ(line.warehouse, QString("主仓库"));
    EXPECT_EQ(line.delivery, QDate(2026, 11, 27));
    EXPECT_EQ(line.slot, QString("2026-11-27 上午"));
    EXPECT_TRUE(window().save());
}

TEST_F(OrderDraftTest, OpensTheEditorAgainWithWhatStoodInItForLong) {
    start();
    typeOrder();
    play({"type 1000"});
    ASSERT_TRUE(kxVsGrid::kit::waitUntil([&] {
        QFile file(folder() + '/' + draftFiles().value(0));
        return file.open(QIODevice::ReadOnly) && file.readAll().contains("\"text\":\"1000\"");
    }));
    restart();
    EXPECT_TRUE(grid().editorView().visible);
    EXPECT_EQ(grid().editorView().text, "1000");
    EXPECT_EQ(grid().Row(), 3);
    QTest::mouseClick(barOf(window()).findChild<QPushButton*>("goOn"), Qt::LeftButton);
    EXPECT_EQ(grid().editorView().text, "1000") << "it stays open";
    play({"type 03", "key Enter", "type 4", "key Enter"});
    EXPECT_EQ(window().onScreen().lines.size(), 3u);
    EXPECT_EQ(window().onScreen().lines.back().code, QString("100003"));
}

TEST_F(OrderDraftTest, LeavesTheDraftsOfAnotherDatabaseAlone) {
    start();
    typeOrder();
    const Order before = window().onScreen();
    crash();
    OrderDesk::Services other = services();
    other.database = path("other.sqlite");
    start(other);
    EXPECT_TRUE(nothingRecovered());
    restart();
    EXPECT_TRUE(window().onScreen() == before);
}

TEST_F(OrderDraftTest, SaysOnceThatADraftCannotBeWrittenAndGoesOn) {
    QFile inTheWay(folder());
    ASSERT_TRUE(inTheWay.open(QIODevice::WriteOnly));
    start();
    EXPECT_TRUE(kxVsGrid::kit::waitUntil([&] { return window().message().contains("草稿"); }));
    typeOrder();
    EXPECT_FALSE(window().message().contains("草稿")) << window().message().toStdString();
    EXPECT_EQ(window().onScreen().lines.size(), 2u);
    inTheWay.remove();
    EXPECT_TRUE(kxVsGrid::kit::waitUntil([&] { return window().message().contains("草稿又"); }));
    const Order before = window().onScreen();
    restart();
    EXPECT_TRUE(window().onScreen() == before);
}

TEST_F(OrderDraftTest, SaysThatAFileIsNoDraftAndKeepsIt) {
    QDir().mkpath(folder());
    QFile file(folder() + "/x.draft");
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write("nonsense");
    file.close();
    start();
    EXPECT_TRUE(nothingRecovered());
    EXPECT_TRUE(window().message().contains("草稿没有恢复")) << window().message().toStdString();
    EXPECT_TRUE(file.exists());
}

TEST_F(OrderDraftTest, KeepsNoneWithoutAFolder) {
    OrderDesk::Services none = services();
    none.drafts.clear();
    start(none);
    typeOrder();
    EXPECT_FALSE(QDir(folder()).exists());
}
