// Blocks of cells on an order: lines that are pasted, marks on what keeps it from being saved, lines that change
// places, rows that are deleted together.
#include "OrderSheet.h"

using kxVsGrid::CellMark;
using kxVsGrid::Command;

namespace {
class OrderBlocks : public OrderSheet {
  protected:
    /// As if copied in a spreadsheet, at a cell.
    void paste(int row, OrderColumn::Column col, std::string_view text) {
        at(row, col);
        desk.clipboard(text);
        EXPECT_TRUE(desk.run(Command::Paste));
    }
    QString problemAt(int row, OrderColumn::Column col) {
        const CellMark* const mark = control.Mark(row, col);
        return mark && mark->kind == CellMark::Kind::Problem ? QString::fromStdString(mark->text) : QString();
    }
    QStringList codes() {
        QStringList result;
        for (const OrderLine& line : grid.lines()) result << line.code;
        return result;
    }
    /// As the database would answer.
    void save() {
        std::vector<OrderLine> lines = grid.lines();
        qint64 id = 0;
        for (OrderLine& line : lines) line.id = ++id;
        grid.markSaved(lines);
    }
    void selectRows(int first, int last) {
        at(first, OrderColumn::Code);
        control.Grid().SelectRows(first, last);
    }
    void runAndSettle(Command command) {
        desk.run(command);
        QCoreApplication::processEvents();
    }
};
}  // namespace

TEST_F(OrderBlocks, PastedLinesGetTheirGoodsAmountsPresetsAndTimesAndTheRowsThatTheyNeed) {
    grid.presetWarehouse("五金仓");
    std::string text;
    for (int i = 0; i < 20; ++i) text += "100001\t\t\t\t" + std::to_string(i + 1) + "\n";
    paste(1, OrderColumn::Code, text);
    const std::vector<OrderLine> lines = grid.lines();
    ASSERT_EQ(lines.size(), 20u);
    for (std::size_t i = 0; i < lines.size(); ++i) {
        EXPECT_EQ(lines[i].name, QString("六角螺栓")) << i;
        EXPECT_EQ(lines[i].quantity, static_cast<Thousandths>(i + 1) * 1000) << i;
        EXPECT_EQ(lines[i].amount, static_cast<Cents>(i + 1) * 333) << i;
        EXPECT_EQ(lines[i].entered, now) << i;
    }
    for (std::size_t i = 1; i < lines.size(); ++i) {
        EXPECT_EQ(lines[i].warehouse, QString("五金仓")) << i;
        EXPECT_EQ(lines[i].slot, QString("2026-11-27 上午")) << i;
    }
    EXPECT_TRUE(desk.messages().empty());
    while (desk.run(Command::Undo)) {
    }
    EXPECT_TRUE(grid.lines().empty());
}

TEST_F(OrderBlocks, PresetsThatAreCutOrClearedFromSeveralRowsStayAway) {
    grid.presetWarehouse("五金仓");
    paste(1, OrderColumn::Code, "100001\t\t\t\t1\n100001\t\t\t\t2\n100001\t\t\t\t3");
    for (const Command command : {Command::Cut, Command::ClearCells}) {
        ASSERT_EQ(cell(2, OrderColumn::Warehouse), "五金仓");
        ASSERT_EQ(cell(3, OrderColumn::Slot), "2026-11-27 上午");
        at(1, OrderColumn::Warehouse);
        control.Grid().SelectRange(1, OrderColumn::Warehouse, 3, OrderColumn::Slot);
        EXPECT_TRUE(desk.run(command));
        for (int row = 1; row <= 3; ++row)
            for (const auto col : {OrderColumn::Warehouse, OrderColumn::Delivery, OrderColumn::Slot})
                EXPECT_EQ(cell(row, col), "") << row << ' ' << col;
        EXPECT_TRUE(desk.run(Command::Undo));
    }
}

TEST_F(OrderBlocks, AnAmountComesBackWithTheQuantityThatARefusedExpressionHadEmptied) {
    enterLine(1, "100001");
    ASSERT_EQ(cell(1, OrderColumn::Amount), "16.65");
    at(1, OrderColumn::Quantity);
    desk.type("abc").press(Key::Enter);
    EXPECT_EQ(cell(1, OrderColumn::Amount), "");
    desk.press(Key::Escape);
    EXPECT_EQ(cell(1, OrderColumn::Quantity), "5");
    EXPECT_EQ(cell(1, OrderColumn::Amount), "16.65");
    EXPECT_EQ(control.Grid_Sum().DisplayText(0, OrderColumn::Amount), "16.65");
}

TEST_F(OrderBlocks, AnUnknownCodeOfAPastedBlockIsMarkedAndTheOthersAreTaken) {
    paste(1, OrderColumn::Code, "100001\n4711\n100002");
    EXPECT_EQ(codes(), (QStringList{"100001", "100002"}));
    EXPECT_EQ(problemAt(2, OrderColumn::Code), QString("商品目录中没有这个货号,请更正。"));
    EXPECT_TRUE(desk.messages().empty());
    EXPECT_TRUE(desk.run(Command::NextProblem));
    EXPECT_EQ(control.Row(), 2);
    desk.type("100002").press(Key::Enter);
    EXPECT_EQ(problemAt(2, OrderColumn::Code), QString());
}

TEST_F(OrderBlocks, APastedPriceBelowZeroIsRefusedAndAQuantityBelowZeroIsAReturn) {
    enterLine(1, "100001");
    paste(1, OrderColumn::Quantity, "-2\t-1");
    EXPECT_EQ(cell(1, OrderColumn::Quantity), "-2");
    EXPECT_EQ(cell(1, OrderColumn::Price), "3.33");
    EXPECT_EQ(problemAt(1, OrderColumn::Price), QString("不能小于 0。"));
}

TEST_F(OrderBlocks, EveryCellThatKeepsTheOrderFromBeingSavedIsMarked) {
    enter(1, OrderColumn::Code, "100001");
    enter(2, OrderColumn::Quantity, "5");
    enter(3, OrderColumn::Code, "100002");
    EXPECT_TRUE(grid.commit());
    EXPECT_NE(problem(), QString());
    EXPECT_EQ(grid.markProblems(), 5) << desk.ascii();
    EXPECT_EQ(problemAt(1, OrderColumn::Quantity), QString("数量不能为零"));
    EXPECT_EQ(problemAt(1, OrderColumn::Warehouse), QString("仓库不能为空"));
    EXPECT_EQ(problemAt(2, OrderColumn::Code), QString("货号没有填写:没有货号的行要有备注,否则请删除这一行"));
    EXPECT_EQ(problemAt(3, OrderColumn::Quantity), QString("数量不能为零"));
    EXPECT_EQ(problemAt(2, OrderColumn::Quantity), QString());
    EXPECT_FALSE(grid.unsaved().none());
    EXPECT_TRUE(control.CanRun(Command::NextProblem));
}

TEST_F(OrderBlocks, AMarkGoesWithTheCommitThatMendsItsCellAndStaysOverOneThatDoesNot) {
    enter(1, OrderColumn::Code, "100001");
    grid.markProblems();
    enter(1, OrderColumn::Quantity, "3-3");
    EXPECT_EQ(problemAt(1, OrderColumn::Quantity), QString("数量不能为零"));
    enter(1, OrderColumn::Quantity, "3");
    EXPECT_EQ(problemAt(1, OrderColumn::Quantity), QString());
    enter(1, OrderColumn::Warehouse, "主仓库");
    EXPECT_EQ(grid.markProblems(), 0);
    EXPECT_FALSE(control.CanRun(Command::NextProblem));
}

TEST_F(OrderBlocks, AMarkGoesWhenAnotherCellOfItsLineHasMadeItRight) {
    enter(2, OrderColumn::Quantity, "5");
    EXPECT_EQ(grid.markProblems(), 1);
    EXPECT_NE(problemAt(2, OrderColumn::Code), QString());
    enter(2, OrderColumn::Remark, "另行通知");
    EXPECT_EQ(problemAt(2, OrderColumn::Code), QString()) << "a note now";
    enter(3, OrderColumn::Code, "100001");
    grid.markProblems();
    EXPECT_NE(problemAt(3, OrderColumn::Quantity), QString());
    at(3, OrderColumn::Code);
    desk.run(Command::ClearCells);
    EXPECT_EQ(problemAt(3, OrderColumn::Quantity), QString()) << "no line any more";
}

TEST_F(OrderBlocks, AWarehouseThatTheLineWillGetIsNotMarked) {
    enterLine(1, "100001");
    grid.presetWarehouse("五金仓");
    control.SetCell(2, OrderColumn::Code, "100002");
    at(1, OrderColumn::Remark);
    EXPECT_TRUE(grid.commit());
    EXPECT_EQ(grid.markProblems(), 1);
    EXPECT_EQ(problemAt(2, OrderColumn::Warehouse), QString());
    EXPECT_EQ(problemAt(2, OrderColumn::Quantity), QString("数量不能为零"));
}

TEST_F(OrderBlocks, MarksAreGoneInTheNextOrder) {
    enter(1, OrderColumn::Code, "100001");
    EXPECT_GT(grid.markProblems(), 0);
    grid.clear(QDate(2026, 11, 27));
    EXPECT_FALSE(control.CanRun(Command::NextProblem));
    enterLine(1, "100001");
    EXPECT_EQ(grid.markProblems(), 0);
}

TEST_F(OrderBlocks, LinesThatHaveChangedPlacesAreUnsavedUntilTheyAreBack) {
    enterLine(1, "100001");
    enterLine(2, "100002");
    save();
    ASSERT_TRUE(grid.unsaved().none());
    const ChangesOf changed(control);
    at(2, OrderColumn::Code);
    EXPECT_TRUE(desk.run(Command::MoveRowUp));
    EXPECT_EQ(codes(), (QStringList{"100002", "100001"}));
    EXPECT_TRUE(grid.unsaved().moved);
    EXPECT_FALSE(changed.isEmpty());
    EXPECT_EQ(grid.lines()[0].id, 2);
    EXPECT_TRUE(desk.run(Command::Undo));
    EXPECT_TRUE(grid.unsaved().none());
    at(1, OrderColumn::Code);
    EXPECT_TRUE(desk.run(Command::MoveRowDown));
    EXPECT_TRUE(grid.unsaved().moved);
    save();
    EXPECT_TRUE(grid.unsaved().none());
}

TEST_F(OrderBlocks, ALineThatMovedPastRowsThatSayNothingIsNoChange) {
    enterLine(1, "100001");
    enterLine(2, "100002");
    save();
    at(2, OrderColumn::Code);
    EXPECT_TRUE(desk.run(Command::MoveRowDown));
    EXPECT_EQ(cell(3, OrderColumn::Code), "100002");
    EXPECT_TRUE(grid.unsaved().none());
}

TEST_F(OrderBlocks, SeveralRowsAreDeletedAfterOneQuestionWhateverAskedForIt) {
    QStringList asked;
    bool agrees = false;
    grid.mayDelete([&](const QString& what) {
        asked << what;
        return agrees;
    });
    for (int row = 1; row <= 5; ++row) enterLine(row, "100001");
    enter(5, OrderColumn::Remark, "留下");
    selectRows(1, 4);
    runAndSettle(Command::DeleteRows);
    EXPECT_EQ(asked, QStringList("选中的 4 行"));
    EXPECT_EQ(grid.lines().size(), 5u);
    agrees = true;
    for (const bool byDelete : {false, true}) {
        selectRows(1, 4);
        asked.clear();
        if (byDelete) desk.press(Key::Delete);
        byDelete ? QCoreApplication::processEvents() : runAndSettle(Command::DeleteRows);
        EXPECT_EQ(asked, QStringList("选中的 4 行"));
        ASSERT_EQ(grid.lines().size(), 1u) << desk.ascii();
        EXPECT_EQ(grid.lines()[0].remark, QString("留下"));
        EXPECT_TRUE(desk.run(Command::Undo));
        EXPECT_EQ(grid.lines().size(), 5u) << "one step";
    }
}

TEST_F(OrderBlocks, RowsThatSayNothingAreDeletedUnaskedAndCountedWhereOthersGoWithThem) {
    QStringList asked;
    grid.mayDelete([&](const QString& what) {
        asked << what;
        return true;
    });
    enterLine(1, "100001");
    const int rows = control.Rows();
    selectRows(3, 5);
    runAndSettle(Command::DeleteRows);
    EXPECT_TRUE(asked.isEmpty());
    EXPECT_EQ(control.Rows(), rows - 3);
    selectRows(1, 3);
    runAndSettle(Command::DeleteRows);
    EXPECT_EQ(asked, QStringList("选中的 3 行(其中 1 行有内容)"));
    EXPECT_EQ(control.Rows(), rows - 6);
}

TEST_F(OrderBlocks, OneSelectedRowIsNamedInTheQuestion) {
    QStringList asked;
    grid.mayDelete([&](const QString& what) {
        asked << what;
        return false;
    });
    enterLine(1, "100001");
    selectRows(1, 1);
    runAndSettle(Command::DeleteRows);
    EXPECT_EQ(asked, QStringList("第 1 行 100001 六角螺栓"));
}
