// Lines that are loaded, read, typed and written.
#include <stdexcept>

#include "sheet/OrderSheet.h"

namespace kxVsGrid::testing {
namespace {

TEST_F(OrderSheet, ShowsWhatIsLoadedAndReadsTheSame) {
    const std::vector<OrderLine> lines = loaded();
    EXPECT_EQ(sheet.records(), lines);
    EXPECT_EQ(text(0, Quantity), "数量");
    EXPECT_EQ(text(1, Code), "A1");
    EXPECT_EQ(text(1, Amount), "3");
    EXPECT_EQ(grid.Grid().DisplayText(1, Amount), "3.00");
    EXPECT_EQ(text(2, Quantity), "");
    EXPECT_EQ(text(3, Quantity), "0");
    EXPECT_EQ(grid.ReadSum(Amount), "3.00");
    EXPECT_FALSE(sheet.modified());
    EXPECT_TRUE(sheet.changes().empty());
    EXPECT_FALSE(grid.History().CanUndo());
}

TEST_F(OrderSheet, ComputesWhatFollowsFromWhatIsTyped) {
    loaded();
    type(2, Quantity, "2.5");
    EXPECT_EQ(text(2, Amount), "10");
    EXPECT_TRUE(sheet.modified());
    const auto changes = sheet.changes();
    ASSERT_EQ(changes.changed.size(), 1u);
    EXPECT_EQ(changes.changed[0].before.quantity, std::nullopt);
    EXPECT_EQ(changes.changed[0].after.quantity, number("2.5"));
    EXPECT_EQ(changes.changed[0].after.id, 12);
    grid.History().Undo();
    EXPECT_EQ(text(2, Amount), "");
    EXPECT_FALSE(sheet.modified());
}

TEST_F(OrderSheet, RoundsWhatIsTypedToItsDecimals) {
    loaded();
    type(1, Price, "1.005");
    EXPECT_EQ(text(1, Price), "1.01");
    EXPECT_EQ(sheet.record(1).amount, number("2.02"));
}

TEST_F(OrderSheet, TellsOnceAStepThatItIsModified) {
    loaded();
    std::vector<bool> told;
    sheet.onModified([&](bool modified) { told.push_back(modified); });
    type(1, Price, "7");
    type(1, Price, "8");
    type(1, Price, "1.50");
    EXPECT_EQ(told, (std::vector<bool>{true, false}));
}

TEST_F(OrderSheet, TakesWhatWasHandedOutAsSavedAndKeepsWhatWasTypedSince) {
    loaded();
    type(1, Price, "7");
    type(4, Code, "new");
    auto changes = sheet.changes();
    ASSERT_EQ(changes.added.size(), 1u);
    EXPECT_THROW(sheet.accept(changes), GridError);
    changes.added[0].record.id = 14;
    EXPECT_THROW(sheet.accept(changes), GridError);  // the version
    changes.changed[0].after.version = 2;
    type(1, Price, "9");
    sheet.accept(changes);
    EXPECT_TRUE(sheet.modified());
    changes = sheet.changes();
    EXPECT_TRUE(changes.added.empty());
    ASSERT_EQ(changes.changed.size(), 1u);
    EXPECT_EQ(changes.changed[0].before.price, 7);
    EXPECT_EQ(changes.changed[0].after.price, 9);
    EXPECT_EQ(changes.changed[0].after.version, 2);
    EXPECT_EQ(sheet.record(4).id, 14);
}

TEST_F(OrderSheet, SavesARemovedLineThatComesBackAsANewOne) {
    loaded();
    grid.Grid().Select(2, Code);
    EXPECT_TRUE(desk.run(Command::DeleteRows));
    auto changes = sheet.changes();
    ASSERT_EQ(changes.removed.size(), 1u);
    EXPECT_EQ(changes.removed[0].before.id, 12);
    sheet.accept(changes);
    EXPECT_FALSE(sheet.modified());
    grid.History().Undo();
    EXPECT_TRUE(sheet.modified());
    changes = sheet.changes();
    ASSERT_EQ(changes.added.size(), 1u);
    EXPECT_EQ(changes.added[0].record.id, 0);
    EXPECT_EQ(changes.added[0].record.code, "B2");
}

TEST_F(OrderSheet, IsAsItWasWhenARangeThrowsOrProgressEndsTheLoad) {
    const std::vector<OrderLine> lines = loaded();
    type(1, Price, "7");
    EXPECT_FALSE(
        sheet.load(std::vector<OrderLine>(10000), [](std::size_t done, std::size_t) { return done < 5000; }));
    EXPECT_EQ(text(1, Price), "7");
    EXPECT_TRUE(sheet.modified());
    grid.History().Undo();
    EXPECT_EQ(sheet.records(), lines);
}

TEST_F(OrderSheet, IsTheOnlyOneOnItsGrid) {
    EXPECT_THROW(Sheet<OrderLine>{grid}, GridError);
}

TEST_F(OrderSheet, RefusesATypedTextThatBreaksARuleAndFindsTheOthers) {
    sheet.rule(
        "quantity", [](const OrderLine& line) { return line.quantity != Decimal(0); }, "数量不能为零");
    loaded();
    grid.Options().Refusals(GridOptions::RefusalStyle::Beside);
    grid.Grid().Select(1, Quantity);
    desk.type("0").press(Key::Enter);
    EXPECT_TRUE(desk.editor().visible);
    desk.press(Key::Escape);
    EXPECT_EQ(text(1, Quantity), "2");
    const auto fault = sheet.firstFault();
    ASSERT_TRUE(fault.has_value());
    EXPECT_EQ(fault->text(), "第 3 行的数量：数量不能为零");
}

TEST_F(OrderSheet, DoesNotRoundWhatWasLoadedWhenSomethingElseOfItsRowIsWritten) {
    OrderLine agreed = line(11, "A1", "2", "1");
    agreed.price = number("3.3333");
    sheet.load(std::vector<OrderLine>{agreed, line(12, "B2", "1", "1")});
    {
        ChangeStep step = grid.Step("写");
        grid.SetCell(1, Quantity, "3");
        grid.SetCell(2, Price, "1.005");
        step.close();
    }
    EXPECT_EQ(sheet.record(1).price, number("3.3333"));
    EXPECT_EQ(sheet.record(2).price, number("1.01"));
}

TEST_F(OrderSheet, AppendsBehindALoadedLineThatTheClerkHasEmptied) {
    sheet.inUse([](const OrderLine& line) { return !line.code.empty(); });
    loaded();
    sheet.edit(3, [](OrderLine& line) { line.code.clear(); });
    const std::vector<std::int32_t> rows = sheet.append(std::vector<OrderLine>{line(0, "D4", "1", "1")});
    ASSERT_EQ(rows, (std::vector<std::int32_t>{4}));
    const auto changes = sheet.changes();
    ASSERT_EQ(changes.added.size(), 1u);
    EXPECT_EQ(changes.added[0].record.id, 0);
    ASSERT_EQ(changes.removed.size(), 1u);
    EXPECT_EQ(changes.removed[0].before.id, 13);
}

TEST_F(OrderSheet, KeepsEveryDigitThatIsTyped) {
    loaded();
    type(1, Price, "123456789012345.67");
    EXPECT_EQ(text(1, Price), "123456789012345.67");
    EXPECT_EQ(sheet.record(1).amount, number("246913578024691.34"));
    grid.SetCell(1, Quantity, "0");
    EXPECT_EQ(text(1, Quantity), "0");
}
}  // namespace
}  // namespace kxVsGrid::testing
