// The whole window: orders keyed, saved, opened, left.
#include <QDir>
#include <QImage>
#include <QLineEdit>

#include "CustomerBox.h"
#include "OrderEntry.h"

TEST_F(OrderEntry, StartsWithANumberedOrderOfTodayAndTheCustomerField) {
    open();
    EXPECT_EQ(window->header().number(), QString("XS-20261120-001"));
    EXPECT_EQ(window->header().date(), QDate(2026, 11, 20));
    EXPECT_EQ(QApplication::focusWidget()->objectName(), QString("customer"));
    EXPECT_FALSE(window->hasUnsavedWork());
}

TEST_F(OrderEntry, LeavesNoStripBesideTheColumnsWhenTheWindowGrows) {
    open();
    window->resize(800, 400);
    QCoreApplication::processEvents();
    EXPECT_TRUE(grid().Grid().VerticalBarShown());
    window->resize(1600, 1000);
    QCoreApplication::processEvents();
    EXPECT_FALSE(grid().Grid().VerticalBarShown());
    EXPECT_LE(grid().Grid().Width() - grid().Grid().TotalWidth(), 60);
    EXPECT_FALSE(grid().Grid().HorizontalBarShown());
}

TEST_F(OrderEntry, ShowsTheNumberWholeInASmallWindow) {
    open();
    play({"type K0017", "key Enter"});
    window->resize(640, 400);
    QCoreApplication::processEvents();
    EXPECT_EQ(window->width(), 640);
    const auto* number = window->findChild<QLineEdit*>("number");
    EXPECT_GT(number->width(), number->fontMetrics().horizontalAdvance(number->text()) + 8);
    EXPECT_GT(window->findChild<CustomerBox*>("customer")->width(), 110);
}

TEST_F(OrderEntry, ShowsDatesWholeInALargerFont) {
    open();
    window->resize(1600, 1000);
    QFont font = window->font();
    font.setPointSizeF(11);
    window->setFont(font);
    QCoreApplication::processEvents();
    const QFontMetricsF metrics(window->gridWidget().font());
    for (const auto& [col, text] :
         {std::pair{OrderColumn::Delivery, "2026-11-27"}, std::pair{OrderColumn::Slot, "2026-11-27 上午"},
          std::pair{OrderColumn::Entered, "2026-11-27 09:30:00"}})
        EXPECT_GE(grid().ColWidth(col) / 15 - 6, metrics.horizontalAdvance(text));
    EXPECT_FALSE(grid().Grid().HorizontalBarShown());
}

TEST_F(OrderEntry, TakesAnOrderByKeyboardAlone) {
    open();
    typeOrder();
    const Order order = window->onScreen();
    EXPECT_EQ(order.customer, 2);
    ASSERT_EQ(order.lines.size(), 1u);
    EXPECT_EQ(order.lines[0].code, QString("100001"));
    EXPECT_FALSE(order.lines[0].name.isEmpty());
    EXPECT_EQ(order.lines[0].amount, 9000);
    EXPECT_EQ(order.lines[0].delivery, QDate(2026, 11, 27));
    EXPECT_TRUE(window->hasUnsavedWork());
    EXPECT_TRUE(window->isWindowModified());
}

TEST_F(OrderEntry, SavesAndOpensTheSameOrder) {
    open();
    typeOrder();
    play({"key Ctrl+S"});
    EXPECT_TRUE(answers.problems.isEmpty()) << answers.problems.join('\n').toStdString();
    EXPECT_FALSE(window->hasUnsavedWork());
    const Order saved = window->onScreen();
    EXPECT_NE(saved.id, 0);
    play({"key Ctrl+N"});
    EXPECT_EQ(window->header().number(), QString("XS-20261120-002"));
    EXPECT_TRUE(window->onScreen().lines.empty());
    play({"key Ctrl+O"});
    EXPECT_TRUE(window->onScreen() == saved);
    EXPECT_EQ(cell(1, OrderColumn::Amount), QString("90.00"));
    EXPECT_TRUE(answers.asked.isEmpty());
}

TEST_F(OrderEntry, SavesWhatIsStillBeingTyped) {
    open();
    typeOrder();
    play({"key F7", "key Left", "type 五金仓", "key Ctrl+S"});
    EXPECT_EQ(window->onScreen().lines.at(0).warehouse, QString("五金仓"));
    EXPECT_FALSE(window->hasUnsavedWork());
}

TEST_F(OrderEntry, DoesNotSaveAnInputThatIsRefused) {
    open();
    typeOrder();
    grid().Grid().Select(1, OrderColumn::Quantity);
    play({"key F7", "type abc", "key Ctrl+S"});
    EXPECT_EQ(window->onScreen().id, 0);
    EXPECT_TRUE(window->message().contains("没有保存")) << window->message().toStdString();
}

TEST_F(OrderEntry, AsksForWhatIsMissingBeforeItSaves) {
    open();
    EXPECT_FALSE(window->save());
    EXPECT_TRUE(answers.problems.value(0).contains("客户"));
    play({"type K0002", "key Enter"});
    EXPECT_FALSE(window->save());
    EXPECT_TRUE(answers.problems.value(1).contains("明细"));
}

TEST_F(OrderEntry, ClosingWithUnsavedWorkAsksAndStays) {
    open();
    typeOrder();
    answers.leave = Questions::Leave::Stay;
    EXPECT_FALSE(window->close());
    EXPECT_EQ(answers.asked.size(), 1);
    EXPECT_TRUE(window->isVisible());
    EXPECT_EQ(window->onScreen().lines.size(), 1u);
}

TEST_F(OrderEntry, ClosingCanSaveFirst) {
    open();
    typeOrder();
    answers.leave = Questions::Leave::Save;
    EXPECT_TRUE(window->close());
    Database database(databaseFile());
    EXPECT_EQ(OrderStore(database).list({}, 10).size(), 1u);
}

TEST_F(OrderEntry, ClosingCanDiscard) {
    open();
    typeOrder();
    answers.leave = Questions::Leave::Discard;
    EXPECT_TRUE(window->close());
    Database database(databaseFile());
    EXPECT_TRUE(OrderStore(database).list({}, 10).empty());
}

TEST_F(OrderEntry, ClosingWithoutChangesAsksNothing) {
    open();
    EXPECT_TRUE(window->close());
    EXPECT_TRUE(answers.asked.isEmpty());
}

TEST_F(OrderEntry, AChangedHeadIsUnsavedWorkToo) {
    open();
    window->header().findChild<QLineEdit*>("number")->setText("A-1");
    EXPECT_TRUE(window->hasUnsavedWork());
    EXPECT_FALSE(window->newOrder());
    EXPECT_EQ(window->header().number(), QString("A-1"));
}

TEST_F(OrderEntry, ADatabaseThatCannotBeOpenedIsReportedAndTheScreenStaysUsable) {
    const QString file = path("folder.sqlite");
    ASSERT_TRUE(QDir().mkpath(file));
    open(file);
    ASSERT_EQ(answers.problems.size(), 1);
    EXPECT_TRUE(answers.problems[0].contains(file)) << answers.problems[0].toStdString();
    EXPECT_TRUE(answers.problems[0].contains("无法打开数据库文件")) << answers.problems[0].toStdString();
    play({"key F7", "type 100001", "key Enter", "type 3", "key Tab", "type 2", "key Tab", "type 主仓库",
          "key Enter"});
    EXPECT_EQ(cell(1, OrderColumn::Amount), QString("6.00"));
    EXPECT_FALSE(window->save());
    EXPECT_EQ(answers.problems.size(), 2);
    EXPECT_EQ(cell(1, OrderColumn::Amount), QString("6.00"));

    // The obstacle goes: the same order can be completed and saved.
    ASSERT_TRUE(QDir().rmdir(file));
    EXPECT_FALSE(window->save());  // connects; the customer is still missing
    window->header().findChild<CustomerBox*>("customer")->setCustomerId(1);
    window->header().findChild<QLineEdit*>("number")->setText("A-1");
    EXPECT_TRUE(window->save()) << answers.problems.join('\n').toStdString();
    EXPECT_FALSE(window->hasUnsavedWork());
}

TEST_F(OrderEntry, AFailedSaveLosesNothingOnTheScreen) {
    open();
    typeOrder();
    Database other(databaseFile());
    other.run(
        "test",
        "CREATE TRIGGER full BEFORE INSERT ON order_line BEGIN SELECT RAISE(ABORT, 'disk is full'); END");
    const Order before = window->onScreen();
    play({"key Ctrl+S"});
    ASSERT_EQ(answers.problems.size(), 1);
    EXPECT_TRUE(answers.problems[0].contains(databaseFile()));
    EXPECT_TRUE(answers.problems[0].contains("disk is full"));
    EXPECT_TRUE(window->onScreen() == before);
    EXPECT_TRUE(window->hasUnsavedWork());
    EXPECT_EQ(cell(1, OrderColumn::Quantity), QString("36"));
    EXPECT_EQ(value(other, "SELECT COUNT(*) FROM sales_order").toInt(), 0);
}

TEST_F(OrderEntry, AnOrderThatSomebodyElseChangedCanBeSavedAsANewOne) {
    open();
    typeOrder();
    ASSERT_TRUE(window->save());
    Database database(databaseFile());
    OrderStore store(database);
    Order there = *store.load(window->onScreen().id);
    there.lines.clear();
    store.save(there);
    play({"key Left", "type 五金仓", "key Enter"});
    EXPECT_FALSE(window->save());
    EXPECT_TRUE(window->hasUnsavedWork());
    EXPECT_EQ(store.load(there.id)->lines.size(), 0u);
    answers.agrees = true;
    EXPECT_TRUE(window->save());
    EXPECT_EQ(window->header().number(), QString("XS-20261120-002"));
    EXPECT_EQ(store.list({}, 10).size(), 2u);
    EXPECT_EQ(store.load(window->onScreen().id)->lines.at(0).warehouse, QString("五金仓"));
}

TEST_F(OrderEntry, ADatabaseFileThatWasRemovedIsMadeAnewAndTheOrderIsKept) {
    open();
    typeOrder();
    ASSERT_TRUE(QFile::remove(databaseFile()));
    EXPECT_TRUE(window->save()) << answers.problems.join('\n').toStdString();
    Database database(databaseFile());
    EXPECT_EQ(OrderStore(database).list({}, 10).front().total, 9000);
}

TEST_F(OrderEntry, DeletingAnOrderAsksFirst) {
    open();
    typeOrder();
    ASSERT_TRUE(window->save());
    Database database(databaseFile());
    play({"key Ctrl+Shift+D"});
    EXPECT_EQ(answers.asked.size(), 1);
    EXPECT_EQ(OrderStore(database).list({}, 10).size(), 1u);
    answers.agrees = true;
    play({"key Ctrl+Shift+D"});
    EXPECT_TRUE(OrderStore(database).list({}, 10).empty());
    EXPECT_TRUE(window->onScreen().lines.empty());
    EXPECT_EQ(window->onScreen().id, 0);
}

TEST_F(OrderEntry, ANumberThatTheClerkDidNotTouchFollowsTheDate) {
    open();
    play({"key Shift+Tab", "key Up"});  // the year, month or day that the field steps
    const QDate date = window->header().date();
    ASSERT_NE(date, QDate(2026, 11, 20));
    EXPECT_EQ(window->header().number(), "XS-" + date.toString("yyyyMMdd") + "-001");
    EXPECT_EQ(cell(1, OrderColumn::Delivery), date.addDays(7).toString(Qt::ISODate));
}

TEST_F(OrderEntry, TabLeadsFromTheCustomerIntoTheGrid) {
    open();
    play({"type K0002", "key Tab", "type 100001", "key Tab"});
    EXPECT_EQ(cell(1, OrderColumn::Code), QString("100001"));
}

TEST_F(OrderEntry, ACustomerIsFoundByItsInitials) {
    open();
    Database database(databaseFile());
    const Customer wanted = Catalogue(database).customers().at(41);
    play({"type " + wanted.pinyin, "key Tab"});
    EXPECT_EQ(window->onScreen().customer, wanted.id);
}

TEST_F(OrderEntry, AWholeRowIsVisibleAtTheFirstSize) {
    open();
    EXPECT_EQ(window->size(), QSize(1264, 720));
    EXPECT_FALSE(grid().Grid().HorizontalBarShown());
}

TEST_F(OrderEntry, SavesAPictureOfTheWindow) {
    open();
    const QString file = path("picture.png");
    play({"picture " + file});
    EXPECT_EQ(QImage(file).size(), QSize(1264, 720));
}

TEST_F(OrderEntry, AnUnknownCodeIsRefusedBesideItCorrectedAndSaved) {
    open();
    play({"type K0002", "key Enter", "type 999999", "key Enter", "type 100001", "key Enter", "type 4",
          "key Tab", "key Tab", "type 主仓库", "key Enter", "key Ctrl+S"});
    EXPECT_TRUE(answers.problems.isEmpty()) << answers.problems.join('\n').toStdString();
    EXPECT_EQ(window->onScreen().lines.at(0).code, QString("100001"));
    EXPECT_FALSE(window->hasUnsavedWork());
}

TEST_F(OrderEntry, SavingLeadsToTheFirstFaultyCellAndNamesRowAndColumn) {
    open();
    typeOrder();
    play({"key F7", "key Ctrl+S"});
    ASSERT_FALSE(window->hasUnsavedWork());
    play({"key Down", "key Home", "type 100002", "key Enter", "type 0", "key Enter", "key Ctrl+S"});
    EXPECT_TRUE(window->hasUnsavedWork());
    EXPECT_EQ(window->message(), QString("第 2 行的数量不能为零,订单没有保存"));
    EXPECT_EQ(grid().Row(), 2);
    EXPECT_EQ(grid().Col(), OrderColumn::Quantity);
    EXPECT_TRUE(grid().IsActive());
    EXPECT_FALSE(grid().editorView().visible);
    play({"type 3", "key Enter", "key Ctrl+S"});
    EXPECT_FALSE(window->hasUnsavedWork()) << window->message().toStdString();
    Database database(databaseFile());
    EXPECT_EQ(value(database, "SELECT quantity_milli FROM order_line WHERE line_no = 2").toInt(), 3000);
}

TEST_F(OrderEntry, ARefusedTextIsNotSavedAndNotToldTwice) {
    open();
    typeOrder();
    play({"key F7", "type 2011-02-30", "key Enter", "key Enter", "key Ctrl+S"});
    EXPECT_EQ(window->onScreen().id, 0);
    EXPECT_TRUE(window->message().contains("没有保存")) << window->message().toStdString();
    EXPECT_TRUE(grid().editorView().visible);
    EXPECT_EQ(grid().Text(), "2011-02-30");
}

TEST_F(OrderEntry, ACustomerThatNobodyKnowsIsRefusedBySaving) {
    open();
    typeOrder();
    window->header().findChild<CustomerBox*>("customer")->setText("无此客户");
    EXPECT_FALSE(window->save());
    EXPECT_EQ(answers.problems.value(0), QString("没有这个客户,请重新选择"));
    EXPECT_EQ(QApplication::focusWidget()->objectName(), QString("customer"));
}

TEST_F(OrderEntry, SavesHalfDayAndTimeOfEntry) {
    open();
    typeOrder();
    play({"key F7", "type 2026/12/5", "key Tab", "type 2026-12-5 下午", "key Enter", "key Ctrl+S"});
    Database database(databaseFile());
    EXPECT_EQ(value(database, "SELECT delivery_slot FROM order_line").toString(), QString("2026-12-05 下午"));
    EXPECT_EQ(value(database, "SELECT entered_at FROM order_line").toString(),
              QString("2026-11-20 09:30:00"));
}
