// What an order's grid takes back and brings back: each act with all that followed from it; and what is to be
// saved then.
#include "OrderSheet.h"
#include "kit/Random.h"

using kxVsGrid::Command;

namespace {
class OrderUndo : public OrderSheet {
  protected:
    /// All texts and tags, what the lines show of themselves, and the totals.
    std::string sheet() {
        std::string all;
        for (int row = control.FixedRows(); row < control.Rows(); ++row) {
            for (int col = 0; col < control.Cols(); ++col)
                all += control.Grid().Text(row, col) + '{' + control.Grid().Data(row, col) + "}|";
            all += control.Grid().CellForeColor(row, OrderColumn::Code).has_value() ? "red\n" : "\n";
        }
        for (const auto col : {OrderColumn::Quantity, OrderColumn::Amount})
            all += control.ReadSum(col) + '\n';
        return all;
    }

    std::vector<std::string> undoAll() {
        std::vector<std::string> names;
        while (control.CanRun(Command::Undo)) {
            names.push_back(control.History().UndoName());
            EXPECT_TRUE(desk.run(Command::Undo));
        }
        return names;
    }
    void redoAll() {
        while (control.CanRun(Command::Redo)) EXPECT_TRUE(desk.run(Command::Redo));
    }

    /// One act, taken back and brought back.
    template <class Act>
    void expectOneStep(Act act) {
        const std::string before = sheet();
        const std::string last = control.History().UndoName();
        act();
        const std::string after = sheet();
        EXPECT_NE(before, after);
        EXPECT_TRUE(desk.run(Command::Undo));
        EXPECT_EQ(sheet(), before);
        EXPECT_EQ(control.History().UndoName(), last);
        EXPECT_TRUE(desk.run(Command::Redo));
        EXPECT_EQ(sheet(), after);
    }

    void choose(int row, OrderColumn::Column col, const char* caption, const char* under = nullptr) {
        desk.onPopup([=](kxVsGrid::headless::PoppedMenu& menu) {
            under ? menu.choose(caption, under) : menu.choose(caption);
        });
        desk.rightClick(row, col);
    }

    void write(int row, OrderColumn::Column col, const char* text) {
        auto step = control.Step("导入");
        control.SetCell(row, col, text);
        step.close();
    }

    OrderLine saved(qint64 id, const char* code, Thousandths quantity) {
        OrderLine line;
        line.id = id;
        line.code = code;
        const Goods goods = *find(line.code);
        line.name = goods.name;
        line.spec = goods.spec;
        line.unit = goods.unit;
        line.quantity = quantity;
        line.price = goods.price;
        line.amount = amountOf(quantity, goods.price);
        line.warehouse = "主仓库";
        line.delivery = QDate(2026, 11, 27);
        line.slot = "2026-11-27 上午";
        line.entered = now;
        return line;
    }
    void showThree() {
        grid.show({saved(11, "100001", 1000), saved(12, "100002", 2000), saved(13, "100001", 3000)},
                  QDate(2026, 11, 27));
    }
    static std::vector<qint64> ids(std::initializer_list<qint64> all) { return all; }
};
}  // namespace

TEST_F(OrderUndo, TakesBackACodeWithAllThatItBrought) {
    at(1, OrderColumn::Code);
    expectOneStep([&] { desk.type("100001").press(Key::Enter); });
    EXPECT_EQ(cell(1, OrderColumn::Name), "六角螺栓");
    EXPECT_EQ(cell(1, OrderColumn::Entered), "2026-11-20 09:30:00");
}

TEST_F(OrderUndo, TakesBackAQuantityWithItsAmountAndTheTotals) {
    enter(1, OrderColumn::Code, "100001");
    enter(1, OrderColumn::Quantity, "2");
    at(1, OrderColumn::Quantity);
    expectOneStep([&] { desk.type("1000").press(Key::Tab); });
    EXPECT_EQ(control.ReadSum(OrderColumn::Amount), "3,330.00");
    desk.run(Command::Undo);
    EXPECT_EQ(control.ReadSum(OrderColumn::Amount), "6.66");
    EXPECT_EQ(cell(1, OrderColumn::Amount), "6.66");
}

TEST_F(OrderUndo, TakesBackADeliveryDateWithItsHalfDay) {
    at(1, OrderColumn::Delivery);
    expectOneStep([&] { desk.type("2026/12/5").press(Key::Tab); });
    EXPECT_EQ(cell(1, OrderColumn::Slot), "2026-12-05 上午");
}

TEST_F(OrderUndo, TakesBackAFillWithAmountsAndHalfDays) {
    enterLine(1, "100001");
    enterLine(2, "100002");
    enterLine(3, "100001");
    at(1, OrderColumn::Quantity);
    expectOneStep([&] { choose(1, OrderColumn::Price, "填充列", "复制单元格(&C)"); });
    EXPECT_EQ(cell(2, OrderColumn::Amount), "16.65");
    expectOneStep([&] { choose(1, OrderColumn::Code, "填充列", "复制单元格(&C)"); });
    EXPECT_EQ(cell(2, OrderColumn::Name), "六角螺栓");
    expectOneStep([&] { choose(1, OrderColumn::Delivery, "填充列", "以天数填充(&D)"); });
    EXPECT_EQ(cell(3, OrderColumn::Slot), "2026-11-29 上午");
}

TEST_F(OrderUndo, LeavesNothingOfAFillOfACellThatFollowsFromOthers) {
    enterLine(1, "100001");
    enterLine(2, "100002");
    at(1, OrderColumn::Quantity);
    const std::string before = sheet();
    choose(1, OrderColumn::Amount, "填充列", "复制单元格(&C)");
    EXPECT_EQ(sheet(), before) << "the amount is that of its own line, at once";
}

TEST_F(OrderUndo, TakesBackRowsThatWereCopiedAddedAndDeleted) {
    enterLine(1, "100001");
    enterLine(2, "100002");
    at(1, OrderColumn::Quantity);
    now = now.addSecs(3600);
    expectOneStep([&] { choose(1, OrderColumn::Code, "复制插入行"); });
    EXPECT_EQ(cell(1, OrderColumn::Entered), "2026-11-20 10:30:00");
    expectOneStep([&] { choose(1, OrderColumn::Code, "插入行"); });
    expectOneStep([&] { choose(2, OrderColumn::Code, "删除行"); });
}

TEST_F(OrderUndo, MarksUnknownCodesAsTheyAreThen) {
    enterLine(1, "100001");
    expectOneStep([&] { write(1, OrderColumn::Code, "999"); });
    EXPECT_TRUE(control.Grid().CellForeColor(1, OrderColumn::Code).has_value());
    expectOneStep([&] { choose(1, OrderColumn::Code, "删除行"); });
    desk.run(Command::Undo);
    EXPECT_TRUE(control.Grid().CellForeColor(1, OrderColumn::Code).has_value());
    desk.run(Command::Undo);
    EXPECT_FALSE(control.Grid().CellForeColor(1, OrderColumn::Code).has_value());
}

TEST_F(OrderUndo, SaysThatTheLinesMayBeDifferent) {
    enterLine(1, "100001");
    const ChangesOf changed(control);
    desk.run(Command::Undo);
    EXPECT_GT(changed.count(), 0);
}

TEST_F(OrderUndo, KnowsNothingOfLoadingNorOfWhatWasBefore) {
    enterLine(1, "100001");
    showThree();
    EXPECT_FALSE(control.CanRun(Command::Undo));
    desk.press(Key::Right);
    EXPECT_FALSE(control.CanRun(Command::Undo)) << control.History().UndoName();
    enterLine(4, "100001");
    grid.clear(QDate(2026, 11, 27));
    EXPECT_FALSE(control.CanRun(Command::Undo) || control.CanRun(Command::Redo));
}

TEST_F(OrderUndo, DoesNothingToAClosedOrder) {
    enterLine(1, "100001");
    grid.setReadOnly(true);
    const std::string before = sheet();
    EXPECT_FALSE(control.CanRun(Command::Undo));
    EXPECT_FALSE(desk.run(Command::Undo));
    desk.press('Z', kxVsGrid::CtrlKey);
    EXPECT_EQ(sheet(), before);
}

TEST_F(OrderUndo, IsNotDisturbedByTheOrderDateNorByChecksNorBySaving) {
    enter(1, OrderColumn::Code, "100001");
    desk.run(Command::Undo);
    grid.presetDelivery(QDate(2026, 12, 24));
    EXPECT_EQ(cell(1, OrderColumn::Delivery), "2026-12-24");
    EXPECT_TRUE(grid.commit());
    EXPECT_EQ(problem(), QString());
    grid.markSaved(grid.lines());
    ASSERT_TRUE(control.CanRun(Command::Redo));
    desk.run(Command::Redo);
    EXPECT_EQ(cell(1, OrderColumn::Name), "六角螺栓");
    EXPECT_EQ(cell(1, OrderColumn::Delivery), "2026-12-24");
}

TEST_F(OrderUndo, TakesBackWhateverAClerkDoes) {
    for (std::uint32_t turn = 0; turn < 12; ++turn) {
        kxVsGrid::kit::Random random(20261120, turn);
        grid.clear(QDate(2026, 11, 27));
        const std::string empty = sheet();
        for (int act = 0; act < 25; ++act) {
            const int row = static_cast<int>(random.between(1, 5));
            switch (random.between(0, 7)) {
                case 0:
                case 1:
                    enter(row, OrderColumn::Code, random.between(0, 1) ? "100001" : "100002");
                    break;
                case 2:
                    enter(row, OrderColumn::Quantity, std::to_string(random.between(1, 2000)) + ".5");
                    break;
                case 3:
                    enter(row, OrderColumn::Delivery, "2026-12-" + std::to_string(random.between(1, 28)));
                    break;
                case 4:
                    choose(row, OrderColumn::Quantity, "填充列", "复制单元格(&C)");
                    break;
                case 5:
                    choose(row, OrderColumn::Delivery, "填充列", "复制单元格(&C)");
                    break;
                case 6:
                    choose(row, OrderColumn::Code, random.between(0, 1) ? "复制插入行" : "插入行");
                    break;
                default:
                    choose(row, OrderColumn::Code, "删除行");
            }
        }
        const std::string done = sheet();
        undoAll();
        EXPECT_EQ(sheet(), empty);
        EXPECT_TRUE(grid.unsaved().none());
        redoAll();
        EXPECT_EQ(sheet(), done);
    }
}

// --- What is to be saved.

TEST_F(OrderUndo, LeavesNothingToBeSaved) {
    enterLine(2, "100001");
    EXPECT_TRUE(grid.unsaved().added);
    undoAll();
    EXPECT_TRUE(grid.unsaved().none());
    redoAll();
    EXPECT_TRUE(grid.unsaved().added);
}

TEST_F(OrderUndo, AndTypingTheOldTextAgainLeaveALineAsItWasSaved) {
    showThree();
    enter(2, OrderColumn::Quantity, "9");
    EXPECT_EQ(grid.unsaved().changed, ids({12}));
    enter(2, OrderColumn::Quantity, "2");
    EXPECT_TRUE(grid.unsaved().none());
    enter(2, OrderColumn::Code, "100002");
    EXPECT_TRUE(grid.unsaved().none()) << "a code confirmed again is a tag at most";
}

TEST_F(OrderUndo, TellsLinesThatWereChangedAddedAndRemoved) {
    showThree();
    enter(1, OrderColumn::Remark, "加急");
    choose(2, OrderColumn::Code, "删除行");
    choose(2, OrderColumn::Code, "复制插入行");
    const LineChanges changes = grid.unsaved();
    EXPECT_FALSE(changes.unknown);
    EXPECT_TRUE(changes.added);
    EXPECT_EQ(changes.changed, ids({11}));
    EXPECT_EQ(changes.removed, ids({12}));
    std::vector<qint64> shown;
    for (const OrderLine& line : grid.lines()) shown.push_back(line.id);
    EXPECT_EQ(shown, ids({11, 0, 13}));
}

TEST_F(OrderUndo, BringsALineBackUnderItsIdUntilItsRemovalIsSaved) {
    showThree();
    choose(2, OrderColumn::Code, "删除行");
    desk.run(Command::Undo);
    EXPECT_TRUE(grid.unsaved().none());
    desk.run(Command::Redo);
    grid.markSaved(grid.lines());
    EXPECT_TRUE(grid.unsaved().none());
    desk.run(Command::Undo);
    const LineChanges changes = grid.unsaved();
    EXPECT_TRUE(changes.added);
    EXPECT_TRUE(changes.changed.empty() && changes.removed.empty());
    EXPECT_EQ(grid.lines().at(1).id, 0);
}

TEST_F(OrderUndo, OfALineThatWasSavedRemovesIt) {
    showThree();
    enter(4, OrderColumn::Remark, "运费另计");
    std::vector<OrderLine> lines = grid.lines();
    lines.back().id = 14;
    grid.markSaved(lines);
    undoAll();
    EXPECT_EQ(grid.unsaved().removed, ids({14}));
    EXPECT_FALSE(grid.unsaved().added);
}

TEST_F(OrderUndo, CountsALineWithoutContentsAsRemovedAndPresetTextsAsNothing) {
    grid.show({saved(11, "100001", 1000)}, QDate(2026, 11, 27));
    for (const int row : {3, 4}) at(row, OrderColumn::Code);
    EXPECT_NE(cell(3, OrderColumn::Delivery), "");
    EXPECT_TRUE(grid.unsaved().none());
    for (const auto col : {OrderColumn::Code, OrderColumn::Unit, OrderColumn::Quantity, OrderColumn::Price}) {
        at(1, col);
        desk.type("1").press(Key::Back).press(Key::Enter);
    }
    EXPECT_EQ(grid.lines().size(), 0u) << desk.ascii();
    EXPECT_EQ(grid.unsaved().removed, ids({11}));
}

TEST_F(OrderUndo, CannotTellWhatIsToBeSavedWhenColumnsHaveGone) {
    showThree();
    control.Cols(control.Cols() + 1);
    control.Cols(control.Cols() - 1);
    EXPECT_TRUE(grid.unsaved().unknown);
    EXPECT_FALSE(grid.unsaved().none());
    grid.markSaved(grid.lines());
    EXPECT_TRUE(grid.unsaved().none());
}
