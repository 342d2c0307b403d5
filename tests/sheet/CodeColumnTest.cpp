// What a clerk types into a column of codes, and what follows from it, whichever way the code comes.
#include "kxVsGrid/Draft.h"
#include "sheet/CodeSheet.h"

namespace kxVsGrid::testing {
namespace {

using CodeColumnTest = CodeSheet;

TEST_F(CodeColumnTest, TakesOtherMembersFromACodeThatIsTyped) {
    load(table());
    type(1, Code, "1001");
    EXPECT_EQ(shown(1), "1001 六角螺栓 3.5");
    EXPECT_EQ(grid.Grid().Data(1, Code), "六角螺栓");
    EXPECT_EQ(followed, 1);
    EXPECT_FALSE(desk.editor().visible && desk.editor().text == "1001");
    undo();
    EXPECT_EQ(shown(1), "  ");
    EXPECT_FALSE(grid.History().CanUndo());
    redo();
    EXPECT_EQ(shown(1), "1001 六角螺栓 3.5");
    EXPECT_EQ(followed, 1);
}

TEST_F(CodeColumnTest, WritesTheCodeAsItsSourceDoes) {
    load(table());
    type(1, Code, "　１００２ ");
    EXPECT_EQ(shown(1), "1002 无缝钢管 20");
}

TEST_F(CodeColumnTest, RefusesAnUnknownCodeWithItsOwnWords) {
    loadClearing(table());
    at(1, Code);
    desk.type("9").press(Key::Enter);
    EXPECT_TRUE(desk.editor().visible);
    EXPECT_EQ(desk.editor().text, "9");
    ASSERT_EQ(desk.tips().size(), 1u);
    EXPECT_EQ(desk.tips()[0], "商品目录中没有这个货号");
    desk.press(Key::Escape);
    EXPECT_EQ(text(1, Code), "");
}

TEST_F(CodeColumnTest, SaysOfAnUnknownCodeThatThereIsNone) {
    load(table());
    grid.Options().Refusals(GridOptions::RefusalStyle::Box);
    type(1, Code, "9");
    ASSERT_EQ(desk.messages().size(), 1u);
    EXPECT_EQ(desk.messages()[0].text, "没有这个货号");
}

TEST_F(CodeColumnTest, KeepsOtherMembersOfACodeThatIsCleared) {
    load(table(), {line("1001", "六角螺栓", "9")});
    empty(1, Code);
    EXPECT_EQ(shown(1), " 六角螺栓 9");
    EXPECT_EQ(grid.Grid().Data(1, Code), "");
    EXPECT_EQ(fault(), "");
    type(1, Code, "1001");
    EXPECT_EQ(shown(1), "1001 六角螺栓 3.5");
}

TEST_F(CodeColumnTest, ClearsOtherMembersWhereTheHostSaysSo) {
    loadClearing(table(), {line("1001", "六角螺栓", "9")});
    empty(1, Code);
    EXPECT_EQ(shown(1), "  9");
    undo();
    EXPECT_EQ(shown(1), "1001 六角螺栓 9");
}

TEST_F(CodeColumnTest, FollowsNothingForTheSameCodeTypedAgain) {
    load(table(), {line("1001", "六角螺栓", "9")});
    type(1, Code, " 1001");
    type(1, Quantity, "5");
    EXPECT_EQ(shown(1), "1001 六角螺栓 9");
    EXPECT_EQ(followed, 0);
}

TEST_F(CodeColumnTest, TakesASuggestionByInitials) {
    load(table());
    at(1, Code);
    desk.type("wf");
    EXPECT_EQ(desk.suggestions().texts, (std::vector<std::string>{"1002"}));
    EXPECT_EQ(desk.suggestions().notes, (std::vector<std::string>{"无缝钢管"}));
    desk.press(Key::Enter);
    EXPECT_EQ(shown(1), "1002 无缝钢管 20");
}

TEST_F(CodeColumnTest, TakesTheChoiceOfItsHelp) {
    load(table().field("规格", &Goods::size, 900));
    at(1, Code);
    std::vector<std::string> seen;
    desk.onDialog([&](headless::LookupDialog& dialog) {
        CellGrid& list = dialog.grid();
        for (std::int32_t col = 0; col < list.Cols(); ++col)
            if (!list.ColHidden(col) && !list.Text(0, col).empty())
                seen.push_back(list.Text(0, col) + "=" + list.Text(1, col));
        dialog.CodeText("ljlm");
        dialog.Ok();
    });
    desk.press(Key::F2);
    EXPECT_EQ(seen, (std::vector<std::string>{"货号=1001", "名称=六角螺栓", "规格=M8"}));
    EXPECT_EQ(desk.editor().text, "1003");
    EXPECT_EQ(followed, 0);
    desk.press(Key::Enter);
    EXPECT_EQ(shown(1), "1003 六角螺母 1.25");
    EXPECT_EQ(followed, 1);
}

TEST_F(CodeColumnTest, KeepsAPriceThatIsPastedWithItsCode) {
    load(table());
    paste(1, Code, "1001\t别名\t7\n１００２\t钢管\t8\n");
    EXPECT_EQ(shown(1), "1001 别名 7");
    EXPECT_EQ(shown(2), "1002 钢管 8");
    EXPECT_EQ(followed, 2);
    paste(1, Code, "1003\n1003\n");
    EXPECT_EQ(shown(1), "1003 六角螺母 1.25");
    EXPECT_EQ(shown(2), "1003 六角螺母 1.25");
    undo();
    EXPECT_EQ(shown(2), "1002 钢管 8");
}

TEST_F(CodeColumnTest, RefusesUnknownCodesOfAPastedBlock) {
    load(table());
    paste(1, Code, "1001\n7777\n");
    EXPECT_EQ(shown(1), "1001 六角螺栓 3.5");
    EXPECT_EQ(text(2, Code), "");
    EXPECT_EQ(problem(2, Code), "没有这个货号");
}

TEST_F(CodeColumnTest, FollowsAFilledColumn) {
    load(table(), {line("1001", "a", "1"), line("1002", "b", "2"), line("1003", "c", "3")});
    fillColumn(1, Code);
    EXPECT_EQ(shown(1), "1001 a 1");
    EXPECT_EQ(shown(2), "1001 六角螺栓 3.5");
    EXPECT_EQ(shown(3), "1001 六角螺栓 3.5");
    EXPECT_EQ(followed, 2);
    undo();
    EXPECT_EQ(shown(3), "1003 c 3");
}

TEST_F(CodeColumnTest, FollowsAFillDown) {
    load(table(), {line("1001", "a", "1"), line("1002", "b", "2")});
    at(2, Code);
    EXPECT_TRUE(desk.run(Command::FillDown));
    EXPECT_EQ(shown(2), "1001 六角螺栓 3.5");
}

TEST_F(CodeColumnTest, FollowsAReplacement) {
    load(table(), {line("1001", "a", "1"), line("1002", "b", "2")});
    at(1, Code);
    grid.Find().Rule({.text = "1002", .wholeCell = true, .thisColumn = true});
    EXPECT_EQ(grid.Find().ReplaceAll("1003").written, 1);
    EXPECT_EQ(shown(1), "1001 a 1");
    EXPECT_EQ(shown(2), "1003 六角螺母 1.25");
}

TEST_F(CodeColumnTest, FollowsACodeThatIsWrittenInAStep) {
    load(table(), {line("1001", "a", "1")});
    {
        auto step = grid.Step("换货");
        grid.SetCell(1, Code, "１００２");
    }
    EXPECT_EQ(shown(1), "1002 无缝钢管 20");
    sheet.edit(1, [](GoodsLine& line) { line.code = "1003"; });
    EXPECT_EQ(shown(1), "1003 六角螺母 1.25");
}

TEST_F(CodeColumnTest, KeepsWhatAHostPutsBesideACode) {
    load(table(), {line("1001", "a", "1")});
    sheet.put(1, line("1002", "b", "7"));
    EXPECT_EQ(shown(1), "1002 b 7");
    const auto rows = sheet.append(std::vector<GoodsLine>{line("1003", "", "0"), line("1003", "c", "8")});
    EXPECT_EQ(shown(rows[0]), "1003 六角螺母 1.25");
    EXPECT_EQ(shown(rows[1]), "1003 c 8");
}

TEST_F(CodeColumnTest, CopiesALineWithItsChangedPrice) {
    load(table(), {line("1001", "a", "9")});
    at(1, Code);
    ASSERT_TRUE(desk.run(Command::DuplicateRow));
    EXPECT_EQ(followed, 0);
    int copies = 0;
    for (std::int32_t row = 1; row < grid.Rows(); ++row) copies += shown(row) == "1001 a 9" ? 1 : 0;
    EXPECT_EQ(copies, 2);
    type(2, Quantity, "6");
    EXPECT_EQ(followed, 0);
    type(2, Code, "1002");
    EXPECT_EQ(shown(2), "1002 无缝钢管 20");
}

TEST_F(CodeColumnTest, ClearsNothingForACopyThatItsHostDoesNotKeep) {
    int cleared = 0;
    sheet.code("code", "货号", &GoodsLine::code, table()).cleared([&](GoodsLine&) { ++cleared; });
    finish({line("1001", "a", "9")});
    grid.AfterAddRow.connect([](bool& keeps, std::int32_t, bool, std::int32_t) { keeps = false; });
    at(1, Code);
    desk.run(Command::DuplicateRow);
    EXPECT_EQ(cleared, 0);
    EXPECT_EQ(sheet.records().size(), 1u);
}

TEST_F(CodeColumnTest, LooksNothingUpForLinesThatAreLoadedMovedOrPutBack) {
    load(asking(), {line("1002", "b", "2"), line("1001", "a", "1")});
    at(1, Code);
    ASSERT_TRUE(desk.run(Command::SortUp));
    EXPECT_EQ(shown(1), "1001 a 1");
    ASSERT_TRUE(desk.run(Command::DeleteRows));
    undo();
    undo();
    EXPECT_EQ(shown(2), "1001 a 1");
    type(2, Quantity, "5");
    EXPECT_EQ(asked, std::vector<std::string>{});
}

TEST_F(CodeColumnTest, KeepsWhatFollowedWhenItIsUndoneAndChangedAfterwards) {
    load(table(), {line("1001", "a", "1")});
    type(1, Code, "1002");
    undo();
    EXPECT_EQ(shown(1), "1001 a 1");
    type(1, Quantity, "5");
    EXPECT_EQ(shown(1), "1001 a 1");
    undo();
    redo();
    type(1, Code, "1002");
    EXPECT_EQ(shown(1), "1002 无缝钢管 20");
}

TEST_F(CodeColumnTest, FollowsACodeOnceMoreThatAStepHasTakenBack) {
    load(table(), {line("1001", "a", "1")});
    {
        auto step = grid.Step("换货");
        sheet.edit(1, [](GoodsLine& line) { line.code = "1002"; });
        EXPECT_EQ(shown(1), "1002 无缝钢管 20");
        ASSERT_TRUE(step.takeBack());
    }
    EXPECT_EQ(shown(1), "1001 a 1");
    type(1, Quantity, "5");
    EXPECT_EQ(shown(1), "1001 a 1");
    type(1, Code, "1002");
    EXPECT_EQ(shown(1), "1002 无缝钢管 20");
}

TEST_F(CodeColumnTest, AsksOnceForACommitAndOnceForEachCodeOfABlock) {
    load(asking());
    type(1, Code, "1001");
    EXPECT_EQ(asked, (std::vector<std::string>{"1001"}));
    asked.clear();
    paste(2, Code, "1002\n1003\n1002\n");
    EXPECT_EQ(asked, (std::vector<std::string>{"1002", "1003"}));
    EXPECT_EQ(shown(4), "1002 无缝钢管 20");
}

TEST_F(CodeColumnTest, RoundsWhatFollowsToTheDecimalsOfItsColumn) {
    load(Codes<Goods>({{"1", "a", "", "", Decimal("1.005")}}, &Goods::code));
    type(1, Code, "1");
    EXPECT_EQ(text(1, Price), "1.01");
    grid.Step("换货").close();
    {
        auto step = grid.Step("换货");
        grid.SetCell(2, Code, "1");
    }
    EXPECT_EQ(text(2, Price), "1.01");
}

TEST_F(CodeColumnTest, LeavesWhatCodeWritesOutsideOfStepsAsItIs) {
    load(asking(), {line("1001", "a", "1")});
    grid.SetCell(1, Code, "1002");
    grid.SetCell(2, Code, "1003");
    type(1, Quantity, "5");
    type(2, Quantity, "5");
    EXPECT_EQ(shown(1), "1002 a 1");
    EXPECT_EQ(shown(2), "1003  ");
    EXPECT_EQ(asked, std::vector<std::string>{});
}

TEST_F(CodeColumnTest, KeepsAChangedPriceThatComesBackFromADraft) {
    load(table(), {line("1001", "a", "1")});
    std::string kept;
    Draft draft(grid.Grid(), [&kept](std::string_view bytes) {
        kept += bytes;
        return true;
    });
    draft.begin("order", "1");
    while (draft.writeSlice()) {
    }
    type(2, Code, "1002");
    type(2, Price, "19");
    draft.flush();
    draft.end();
    sheet.load(std::vector<GoodsLine>{line("1001", "a", "1")});
    EXPECT_EQ(grid.Recover(kept, true).refusal, "");
    type(2, Quantity, "5");
    EXPECT_EQ(shown(2), "1002 无缝钢管 19");
    EXPECT_EQ(fault(), "");
}

TEST_F(CodeColumnTest, FollowsAPresetCodeOnceItsLineIsInUse) {
    sheet.code("code", "货号", &GoodsLine::code, table())
        .preset("1002")
        .found([](GoodsLine& line, const Goods& goods) { line.name = goods.name; });
    finish({});
    at(2, Name);
    at(2, Quantity);
    EXPECT_EQ(text(2, Code), "1002");
    EXPECT_EQ(text(2, Name), "");
    desk.type("5").press(Key::Enter);
    EXPECT_EQ(text(2, Name), "无缝钢管");
}

// --- What cannot be found

TEST_F(CodeColumnTest, MarksAnUnknownCodeThatCameUnchecked) {
    load(table(), {line("1001", "a", "1"), line("1002", "b", "2")});
    EXPECT_EQ(fault(), "");
    {
        auto step = grid.Step("换货");
        grid.SetCell(2, Code, "7777");
    }
    EXPECT_EQ(problem(2, Code), "没有这个货号");
    EXPECT_EQ(fault(), "第 2 行的货号：没有这个货号");
    EXPECT_EQ(shown(2), "7777 b 2");
    undo();
    EXPECT_EQ(problem(2, Code), "");
    redo();
    EXPECT_EQ(problem(2, Code), "没有这个货号");
    type(2, Code, "1003");
    EXPECT_EQ(problem(2, Code), "");
    EXPECT_EQ(shown(2), "1003 六角螺母 1.25");
}

TEST_F(CodeColumnTest, LooksEachDifferentCodeUpOnceForFaults) {
    load(asking(),
         {line("1001", "a", "1"), line("7777", "b", "2"), line("7777", "c", "3"), line("1001", "d", "4")});
    EXPECT_EQ(asked, std::vector<std::string>{});
    const std::vector<Fault> faults = sheet.faults();
    ASSERT_EQ(faults.size(), 2u);
    EXPECT_EQ(faults[1].text(), "第 3 行的货号：没有这个货号");
    EXPECT_EQ(asked, (std::vector<std::string>{"1001", "7777"}));
    EXPECT_EQ(shown(1), "1001 a 1");
}

TEST_F(CodeColumnTest, TakesWhatIsTypedWhileItsSourceIsOutOfReach) {
    load(asking(), {line("1001", "a", "1")});
    down = true;
    type(1, Code, "1002");
    EXPECT_EQ(asked.size(), 1u);
    EXPECT_EQ(shown(1), "1002 a 1");
    EXPECT_EQ(problem(1, Code), "数据库连接中断");
    EXPECT_EQ(fault(), "第 1 行的货号：数据库连接中断");
    down = false;
    type(1, Quantity, "5");
    EXPECT_EQ(shown(1), "1002 无缝钢管 20");
    EXPECT_EQ(problem(1, Code), "");
    EXPECT_EQ(fault(), "");
}

TEST_F(CodeColumnTest, MarksACodeAnewThatIsTypedAgainAndStillOutOfReach) {
    load(asking(), {line("1001", "a", "1")});
    down = true;
    type(1, Code, "1002");
    type(1, Code, "1002");
    EXPECT_EQ(problem(1, Code), "数据库连接中断");
    down = false;
    type(1, Code, "1002");
    EXPECT_EQ(shown(1), "1002 无缝钢管 20");
    EXPECT_EQ(problem(1, Code), "");
}

TEST_F(CodeColumnTest, LooksAgainWhenFaultsAreAskedFor) {
    load(asking(), {line("1001", "a", "1")});
    down = true;
    type(1, Code, "1002");
    paste(2, Code, "1003\n7777\n");
    EXPECT_EQ(sheet.faults().size(), 3u);
    down = false;
    EXPECT_EQ(fault(), "第 3 行的货号：没有这个货号");
    EXPECT_EQ(shown(1), "1002 无缝钢管 20");
    EXPECT_EQ(shown(2), "1003 六角螺母 1.25");
    EXPECT_EQ(problem(1, Code), "");
    EXPECT_EQ(problem(3, Code), "没有这个货号");
    EXPECT_EQ(grid.History().UndoName(), "补查编码");
}

TEST_F(CodeColumnTest, KeepsWhatIsTypedOrPastedWhileItsSourceIsOutOfReach) {
    load(asking(), {line("1001", "a", "9")});
    down = true;
    type(1, Code, "1002");
    type(1, Price, "19");
    paste(2, Code, "1003\t螺母\t2\n");
    down = false;
    EXPECT_EQ(fault(), "");
    EXPECT_EQ(shown(1), "1002 无缝钢管 19");
    EXPECT_EQ(shown(2), "1003 螺母 2");
}

TEST_F(CodeColumnTest, KeepsAChangedPriceWhenTheOldCodeComesBackAfterAFailure) {
    load(asking(), {line("1001", "a", "9")});
    down = true;
    type(1, Code, "1002");
    type(1, Code, "1001");
    down = false;
    EXPECT_EQ(fault(), "");
    EXPECT_EQ(shown(1), "1001 a 9");
    EXPECT_EQ(problem(1, Code), "");
}

TEST_F(CodeColumnTest, UndoesWhatCouldNotBeFoundWithoutAskingForWhatStandsThen) {
    load(asking(), {line("1001", "a", "9")});
    down = true;
    type(1, Code, "1002");
    asked.clear();
    undo();
    EXPECT_EQ(asked, std::vector<std::string>{});
    EXPECT_EQ(problem(1, Code), "");
}

TEST_F(CodeColumnTest, FollowsOnceMoreWhenUndoHasTakenAwayWhatFollowed) {
    load(asking(), {line("1001", "a", "9")});
    down = true;
    type(1, Code, "1002");
    down = false;
    type(1, Quantity, "5");
    EXPECT_EQ(shown(1), "1002 无缝钢管 20");
    undo();
    EXPECT_EQ(shown(1), "1002 a 9");
    EXPECT_NE(problem(1, Code), "");
    redo();
    EXPECT_EQ(problem(1, Code), "");
    type(1, Price, "19");
    EXPECT_EQ(shown(1), "1002 无缝钢管 19");
    undo();
    undo();
    EXPECT_EQ(fault(), "");
    EXPECT_EQ(shown(1), "1002 无缝钢管 20");
}

TEST_F(CodeColumnTest, StaysWholeWhenAListenerTakesTheLineAway) {
    load(table(), {line("1001", "a", "9"), line("1001", "b", "8")});
    grid.CellChanged.connect([&](std::int32_t row, std::int32_t col) {
        if (col == Name && text(row, Name) == "无缝钢管") grid.Grid().RemoveRow(row);
    });
    type(1, Code, "1002");
    EXPECT_EQ(shown(1), "1001 b 8");
    {
        auto step = grid.Step("换货");
        grid.SetCell(1, Code, "1002");
    }
    EXPECT_EQ(sheet.records().size(), 0u);
}

TEST_F(CodeColumnTest, StaysWholeWhenItsSourceDestroysTheSheet) {
    std::optional<Sheet<GoodsLine>> gone;
    kxGrid& other = desk.place();
    gone.emplace(other);
    const auto codes = Codes<Goods>::asking(
        [&](std::string_view) -> std::optional<Goods> {
            gone.reset();
            return someGoods()[0];
        },
        &Goods::code);
    gone->code("code", "货号", &GoodsLine::code, codes).found([](GoodsLine&, const Goods&) {});
    gone->load(std::vector<GoodsLine>{});
    desk.focusGrid();
    other.Grid().Select(1, 1);
    desk.type("1").press(Key::Enter);
    EXPECT_FALSE(gone.has_value());
    EXPECT_EQ(other.Grid().Text(1, 1), "1001");
}

TEST_F(CodeColumnTest, SaysWhyNothingCouldFollow) {
    sheet.code("code", "货号", &GoodsLine::code, table()).found([](GoodsLine&, const Goods&) {
        throw std::runtime_error("没有价格");
    });
    finish({});
    type(1, Code, "1001");
    EXPECT_EQ(text(1, Code), "1001");
    EXPECT_EQ(problem(1, Code), "没有价格");
    EXPECT_EQ(fault(), "第 1 行的货号：没有价格");
}

TEST_F(CodeColumnTest, SeesTheRecordsThatReplaceOthers) {
    Codes<Goods> goods = table();
    load(goods, {line("1001", "a", "1")});
    goods.replace({{"2001", "新品", "xp", "", Decimal(5)}});
    at(2, Code);
    desk.type("xp");
    EXPECT_EQ(desk.suggestions().texts, (std::vector<std::string>{"2001"}));
    desk.press(Key::Enter);
    EXPECT_EQ(shown(2), "2001 新品 5");
    EXPECT_EQ(fault(), "第 1 行的货号：没有这个货号");
}

TEST_F(CodeColumnTest, RefusesWhatCannotBeChosenWithTheReason) {
    load(table().selectable([](const Goods& goods) { return goods.code != "1002"; }, "已停用"));
    at(1, Code);
    desk.type("100");
    EXPECT_EQ(desk.suggestions().texts, (std::vector<std::string>{"1001", "1003"}));
    desk.type("2").press(Key::Enter);
    EXPECT_EQ(desk.tips().back(), "已停用");
    desk.select(0, 9).type("7").press(Key::Enter);
    EXPECT_EQ(desk.tips().back(), "没有这个货号");
    desk.press(Key::Escape);
    {
        auto step = grid.Step("换货");
        grid.SetCell(1, Code, "1002");
    }
    EXPECT_EQ(fault(), "第 1 行的货号：已停用");
    EXPECT_EQ(followed, 0);
}

// --- Beside others

TEST_F(CodeColumnTest, LeavesTheChecksAndHelpsOfOtherColumnsToTheirHost) {
    load(table());
    std::vector<std::string> bases;
    grid.TxtValidBmS.connect([&](const std::string& basis, const std::string&, const std::string&,
                                 const std::string& typed, std::string& code, std::string& name) {
        bases.push_back(basis);
        if (basis != "host") return;
        code = "h" + typed;
        name = "of the host";
    });
    std::string helped;
    grid.GetHelpCodeInfo.connect([&](const Variant& basis, Variant& code, Variant&, Variant&) {
        helped = basis.toText() + (code.isArray() ? " answered" : "");
    });
    const auto own = grid.VsCtrl(Name);
    own->i有效性判断(1);
    own->i字段有效性判断类型(ij编码型);
    own->s有效性判断基础("host");
    own->b是否提供帮助(true);
    own->sHelp_Code("host");
    type(1, Name, "1001");
    EXPECT_EQ(text(1, Name), "h1001");
    EXPECT_EQ(text(1, Code), "");
    at(1, Name);
    desk.press(Key::F2).press(Key::Escape);
    EXPECT_EQ(helped, "host");
    type(1, Code, "1001");
    EXPECT_EQ(shown(1), "1001 六角螺栓 3.5");
    EXPECT_EQ(bases.size(), 2u);
}

struct Posting {
    int account = 0;
    std::string title;
    std::string customer;
};

TEST(CodeColumn, IsOfNumbersTooAndDescribedInAnyOrder) {
    struct Account {
        int number = 0;
        std::string name;
    };
    headless::Desk desk;
    kxGrid& grid = desk.place();
    Sheet<Posting> sheet(grid);
    const auto accounts =
        Codes<Account>({{1001, "库存现金"}, {1002, "银行存款"}}, &Account::number).name(&Account::name);
    sheet.code("account", "科目", &Posting::account, accounts)
        .width(1500)
        .found([](Posting& posting, const Account& account) { posting.title = account.name; })
        .required();
    sheet.text("title", "科目名称", &Posting::title).readOnly();
    sheet.load(std::vector<Posting>{});
    desk.focusGrid();
    grid.Grid().Select(1, 1);
    desk.type("１００２").press(Key::Enter);
    EXPECT_EQ(sheet.record(1).account, 1002);
    EXPECT_EQ(sheet.record(1).title, "银行存款");
}

TEST(CodeColumn, FollowsACodeThatFollowsFromAnotherOne) {
    struct Customer {
        std::string code;
        int account = 0;
    };
    struct Account {
        int number = 0;
        std::string name;
    };
    headless::Desk desk;
    kxGrid& grid = desk.place();
    Sheet<Posting> sheet(grid);
    sheet
        .code("account", "科目", &Posting::account,
              Codes<Account>({{1001, "库存现金"}, {1002, "银行存款"}}, &Account::number))
        .found([](Posting& posting, const Account& account) { posting.title = account.name; });
    sheet.text("title", "科目名称", &Posting::title);
    sheet.code("customer", "客户", &Posting::customer, Codes<Customer>({{"K1", 1002}}, &Customer::code))
        .found([](Posting& posting, const Customer& customer) { posting.account = customer.account; });
    sheet.load(std::vector<Posting>{});
    desk.focusGrid();
    grid.Grid().Select(1, 3);
    desk.type("K1").press(Key::Enter);
    EXPECT_EQ(sheet.record(1).account, 1002);
    EXPECT_EQ(sheet.record(1).title, "银行存款");
}
}  // namespace
}  // namespace kxVsGrid::testing
