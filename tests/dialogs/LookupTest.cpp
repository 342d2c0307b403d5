// The pick-list of a code column: how it opens, what its keys and buttons do, what it returns.
#include "dialogs/HelpTest.h"

namespace kxVsGrid::testing {
namespace {

class Lookup : public HelpTest {
  protected:
    Lookup() { offer(ih通用型, "goods"); }

    static HelpTable goods() {
        HelpTable table("货号");
        table.field("code", "货号").field("name", "品名", 3000).field("initials", "简码", 900);
        table.result("code", "name").search({"code", "name", "initials"});
        table.row({"A001", "签字笔", "qzb"});
        table.row({"A002", "矿泉水", "kqs"});
        table.row({"AB01", " 铅笔 ", "qb"});
        table.row({"B001", "打印纸", "dyz"});
        return table;
    }
    static HelpTable many() {
        HelpTable table("货号");
        table.field("code", "货号").result("code", "code");
        for (int i = 1000; i < 1500; ++i) table.row({std::to_string(i)});
        return table;
    }
    void look(std::string_view text, const LookupScript& script) { help<LookupDialog>(text, script); }
};

TEST_F(Lookup, ShowsEveryRecordUnderTheHeadersOfTheFields) {
    answer(goods());
    look("", [](LookupDialog& d) {
        EXPECT_EQ(d.form().name(), "XT_TybmczFrm");
        EXPECT_EQ(d.grid().FixedRows(), 1);
        EXPECT_EQ(d.grid().Cols(), 3);
        EXPECT_EQ(d.grid().Text(0, 0) + d.grid().Text(0, 1) + d.grid().Text(0, 2), "货号品名简码");
        EXPECT_EQ(rowsOf(d.grid()),
                  (Lines{"A001|签字笔|qzb", "A002|矿泉水|kqs", "AB01| 铅笔 |qb", "B001|打印纸|dyz"}));
        EXPECT_NE(d.grid().Redraw(), 0);
    });
}

TEST_F(Lookup, SearchesForTheTrimmedTextOfTheEditorWhichIsWhollySelected) {
    answer(goods());
    look("  矿泉  ", [](LookupDialog& d) {
        EXPECT_EQ(d.CodeText(), "矿泉");
        EXPECT_EQ(d.control("CodeText").selStart, 0);
        EXPECT_EQ(d.control("CodeText").selLength, 2);
        EXPECT_EQ(d.focused(), "CodeText");
        EXPECT_EQ(d.grid().Row(), 2);
        EXPECT_EQ(d.grid().Col(), 1);
    });
}

TEST_F(Lookup, WithoutATextStaysOnTheHeader) {
    answer(goods());
    look("   ", [](LookupDialog& d) {
        EXPECT_EQ(d.CodeText(), "");
        EXPECT_EQ(d.grid().Row(), 0);
        EXPECT_EQ(d.focused(), "CodeText");
    });
}

TEST_F(Lookup, TakesOverTheHelpCodeAndClearsItInTheRecord) {
    answer(goods());
    HelpExchange::shared().HelpCode = "left over";
    look("", [](LookupDialog&) { EXPECT_EQ(HelpExchange::shared().HelpCode, ""); });
}

TEST_F(Lookup, OkReturnsCodeAndNameOfTheCurrentRow) {
    answer(goods());
    look("x", [](LookupDialog& d) {
        d.CodeText("kq");
        d.Ok();
        EXPECT_FALSE(d.open());
    });
    EXPECT_EQ(inEditor(), (Pair{"A002", "矿泉水"}));
}

TEST_F(Lookup, ReturnsTrimmedTexts) {
    answer(goods());
    look("", [](LookupDialog& d) {
        d.clickRow(3);
        d.Ok();
    });
    EXPECT_EQ(inEditor(), (Pair{"AB01", "铅笔"}));
}

TEST_F(Lookup, ADoubleClickOnARowReturnsIt) {
    answer(goods());
    look("", [](LookupDialog& d) {
        d.doubleClickRow(4);
        EXPECT_FALSE(d.open());
    });
    EXPECT_EQ(inEditor(), (Pair{"B001", "打印纸"}));
}

TEST_F(Lookup, EnterInTheSearchBoxIsOk) {
    answer(goods());
    look("", [](LookupDialog& d) {
        d.type("dy");
        d.press(Key::Enter);
    });
    EXPECT_EQ(inEditor(), (Pair{"B001", "打印纸"}));
}

TEST_F(Lookup, OkOnTheHeaderReturnsNothing) {
    answer(goods());
    look("", [](LookupDialog& d) {
        d.Ok();
        EXPECT_FALSE(d.open());
    });
    EXPECT_EQ(inEditor(), kept(""));
}

TEST_F(Lookup, OkOnTheHeaderReturnsNothingAlsoWhenTheTextFoundNoRow) {
    answer(goods());
    look("nowhere", [](LookupDialog& d) {
        EXPECT_EQ(d.grid().Row(), 0);
        d.Ok();
    });
    EXPECT_EQ(inEditor(), kept("nowhere"));
}

TEST_F(Lookup, OkOnTheRowThatTheTextFoundReturnsItWhenItsNameIsAnother) {
    answer(goods());
    look("A002", [](LookupDialog& d) { d.Ok(); });
    EXPECT_EQ(inEditor(), (Pair{"A002", "矿泉水"}));
    look("矿泉", [](LookupDialog& d) { d.Ok(); });
    EXPECT_EQ(inEditor(), (Pair{"A002", "矿泉水"}));
}

TEST_F(Lookup, OkOnTheRowWhoseNameTheTextWasReturnsNothing) {
    answer(goods());
    look("矿泉水", [](LookupDialog& d) {
        EXPECT_EQ(d.grid().Row(), 2);
        d.Ok();
        EXPECT_FALSE(d.open());
    });
    EXPECT_EQ(inEditor(), kept("矿泉水"));
    look("铅笔", [](LookupDialog& d) {
        d.clickRow(3);
        d.Ok();
    });
    EXPECT_EQ(inEditor(), (Pair{"AB01", "铅笔"})) << "the text, searched with its blanks, found no row";
}

TEST_F(Lookup, OkBackOnThatRowComparesWithTheTextAsItStandsThen) {
    answer(goods());
    look("矿泉水", [](LookupDialog& d) {
        d.clickRow(4);
        d.clickRow(2);
        d.Ok();
    });
    EXPECT_EQ(inEditor(), kept("矿泉水"));
    look("矿泉水", [](LookupDialog& d) {
        d.CodeText("kq");
        d.Ok();
    });
    EXPECT_EQ(inEditor(), (Pair{"A002", "矿泉水"}));
    look("矿", [](LookupDialog& d) {
        d.CodeText("矿泉水");
        d.Ok();
    });
    EXPECT_EQ(inEditor(), kept("矿"));
    look("矿泉水", [](LookupDialog& d) {
        d.CodeText("矿泉水 ");
        d.Ok();
    });
    EXPECT_EQ(inEditor(), (Pair{"A002", "矿泉水"})) << "the box is compared with its blanks";
}

TEST_F(Lookup, OkOnAnotherRowReturnsItAlsoWhenTheTextIsItsName) {
    answer(goods());
    look("矿泉水", [](LookupDialog& d) {
        d.CodeText("打印纸");
        d.Ok();
    });
    EXPECT_EQ(inEditor(), (Pair{"B001", "打印纸"}));
    look("", [](LookupDialog& d) {
        d.CodeText("打印纸");
        d.Ok();
    });
    EXPECT_EQ(inEditor(), (Pair{"B001", "打印纸"}));
}

TEST_F(Lookup, CancelReturnsNothing) {
    answer(goods());
    look("kq", [](LookupDialog& d) {
        d.Cancel();
        EXPECT_FALSE(d.open());
    });
    EXPECT_EQ(inEditor(), kept("kq"));
}

TEST_F(Lookup, EscapeReturnsNothing) {
    answer(goods());
    look("kq", [](LookupDialog& d) {
        d.press(Key::Escape);
        EXPECT_FALSE(d.open());
    });
    EXPECT_EQ(inEditor(), kept("kq"));
}

TEST_F(Lookup, ClosedByItsFrameReturnsNothing) {
    answer(goods());
    look("kq", [](LookupDialog& d) { d.closeByFrame(); });
    EXPECT_EQ(inEditor(), kept("kq"));
    look("kq", [](LookupDialog&) {});
    EXPECT_EQ(inEditor(), kept("kq"));
}

TEST_F(Lookup, ArrowsInTheSearchBoxMoveTheHighlight) {
    answer(goods());
    look("", [](LookupDialog& d) {
        d.press(Key::Down);
        EXPECT_EQ(d.grid().Row(), 1);
        keys(d, {Key::Down, Key::Down});
        EXPECT_EQ(d.grid().Row(), 3);
        d.press(Key::Up);
        EXPECT_EQ(d.grid().Row(), 2);
        EXPECT_EQ(d.focused(), "CodeText");
        EXPECT_EQ(d.CodeText(), "");
        d.press(Key::Enter);
    });
    EXPECT_EQ(inEditor(), (Pair{"A002", "矿泉水"}));
}

TEST_F(Lookup, ArrowsStopAtTheEnds) {
    answer(goods());
    look("B", [](LookupDialog& d) {
        d.press(Key::Down);
        EXPECT_EQ(d.grid().Row(), 4);
        for (int i = 0; i < 10; ++i) d.press(Key::Up);
        EXPECT_EQ(d.grid().Row(), 1);
    });
}

TEST_F(Lookup, PagesMoveTheHighlightByMoreThanARow) {
    answer(many());
    look("1000", [](LookupDialog& d) {
        d.press(Key::PageDown);
        const std::int32_t page = d.grid().Row() - 1;
        EXPECT_GT(page, 2);
        EXPECT_TRUE(d.grid().RowIsVisible(d.grid().Row()));
        keys(d, {Key::PageDown, Key::PageUp});
        EXPECT_EQ(d.grid().Row(), 1 + page);
        EXPECT_EQ(d.focused(), "CodeText");
    });
}

TEST_F(Lookup, TheEditButtonIsHiddenUnlessTheDefinitionAllowsEditing) {
    answer(goods());
    look("", [](LookupDialog& d) {
        EXPECT_FALSE(d.editShown());
        EXPECT_THROW(d.Edit(), std::logic_error);
    });
    EXPECT_EQ(named(heard(), "GetHelpEdit"), Lines{});
    answer(goods().editable());
    look("", [](LookupDialog& d) { EXPECT_TRUE(d.editShown()); });
}

TEST_F(Lookup, TheEditButtonHandsTheHostTheTrimmedComponentAndTheRecords) {
    HelpTable table = goods().editable("  Goods.Editor ");
    answer(table);
    std::string component;
    Variant records;
    grid.GetHelpEdit.connect([&](const std::string& psProgID, Variant& GridData) {
        component = psProgID;
        records = GridData;
    });
    look("", [](LookupDialog& d) {
        d.Edit();
        EXPECT_TRUE(d.open());
        EXPECT_EQ(d.grid().Rows(), 5);
    });
    EXPECT_EQ(component, "Goods.Editor");
    EXPECT_EQ(records, table.GridData());
    EXPECT_EQ(heard(), (Lines{"GetHelpCodeInfo(goods, , , )", "GetHelpEdit(\"Goods.Editor\", table)"}));
}

TEST_F(Lookup, FillsAgainFromTheRecordsThatTheEditLeaves) {
    answer(goods().editable());
    HelpTable edited = goods();
    edited.row({"C001", "订书机", "dsj"});
    grid.GetHelpEdit.connect([&](const std::string&, Variant& GridData) { GridData = edited.GridData(); });
    look("A0", [](LookupDialog& d) {
        d.idle();
        d.Edit();
        EXPECT_EQ(d.grid().Rows(), 6);
        EXPECT_EQ(rowsOf(d.grid()).back(), "C001|订书机|dsj");
        d.CodeText("ds");
        EXPECT_EQ(d.grid().Row(), 5);
        d.idle();
        d.CodeText("dsj");
        EXPECT_EQ(d.grid().Row(), 5);
        d.Ok();
    });
    EXPECT_EQ(inEditor(), (Pair{"C001", "订书机"}));
}

TEST_F(Lookup, AnEditIsToldTheCodeOfTheHighlightedRow) {
    answer(goods().editable());
    Lines told;
    grid.GetHelpEdit.connect(
        [&](const std::string&, Variant&) { told.push_back(HelpExchange::shared().RowCode); });
    look("矿泉", [](LookupDialog& d) {
        d.Edit();
        d.press(Key::Down);
        d.Edit();
    });
    look("", [](LookupDialog& d) { d.Edit(); });
    EXPECT_EQ(told, (Lines{"A002", "AB01", ""})) << "the header is no record";
    EXPECT_EQ(HelpExchange::shared().RowCode, "");
}

TEST_F(Lookup, AnEditLeavesTheRowHighlightedWhoseCodeTheHostLeaves) {
    answer(goods().editable());
    HelpTable edited("货号");
    edited.field("code", "货号").field("name", "品名").row({"A000", "新"}).row({"A001", "签字笔"});
    edited.row({"A002", "纯净水"});
    std::string left;
    grid.GetHelpEdit.connect([&](const std::string&, Variant& GridData) {
        GridData = edited.GridData();
        if (!left.empty()) HelpExchange::shared().RowCode = left;
    });
    look("kq", [](LookupDialog& d) {
        d.Edit();
        EXPECT_EQ(d.grid().Row(), 3) << "the same goods, a row further down";
        d.Ok();
    });
    EXPECT_EQ(inEditor(), (Pair{"A002", "纯净水"}));
    left = "A000";
    look("kq", [](LookupDialog& d) {
        d.Edit();
        d.Ok();
    });
    EXPECT_EQ(inEditor(), (Pair{"A000", "新"}));
}

TEST_F(Lookup, AnEditThatLeavesNoTableChangesNothing) {
    for (const Variant& left : {Variant(), Variant::null()}) {
        answer(goods().editable());
        grid.GetHelpEdit.connect([&](const std::string&, Variant& GridData) { GridData = left; });
        look("kq", [](LookupDialog& d) {
            d.Edit();
            EXPECT_EQ(d.grid().Rows(), 5);
            EXPECT_EQ(d.grid().Row(), 2);
            d.Ok();
        });
        EXPECT_EQ(inEditor(), (Pair{"A002", "矿泉水"}));
    }
}

TEST_F(Lookup, AnEditThatLeavesFewerRecordsLeavesNoneOfTheOldOnes) {
    answer(goods().editable());
    HelpTable fewer("货号");
    fewer.field("code", "货号").field("name", "品名").field("initials", "简码").row({"Z9", "新", "x"});
    grid.GetHelpEdit.connect([&](const std::string&, Variant& GridData) { GridData = fewer.GridData(); });
    look("B001", [](LookupDialog& d) {
        d.idle();
        d.Edit();
        EXPECT_EQ(rowsOf(d.grid()), (Lines{"Z9|新|x"}));
        d.CodeText("A");
        d.CodeText("B001");
        d.idle();
        d.CodeText("dyz");
        d.Ok();
    });
    EXPECT_EQ(inEditor(), kept("B001"));
}

TEST_F(Lookup, AnEditSeesTheTableThatTheEditBeforeLeft) {
    answer(goods().editable());
    std::vector<std::int32_t> seen;
    grid.GetHelpEdit.connect([&](const std::string&, Variant& GridData) {
        seen.push_back(GridData.table()->upper());
        HelpTable fewer("货号");
        fewer.field("code", "货号").row({"Z9"});
        GridData = fewer.GridData();
    });
    look("", [](LookupDialog& d) {
        d.Edit();
        d.Edit();
    });
    EXPECT_EQ(seen, (std::vector<std::int32_t>{4, 1}));
}

TEST_F(Lookup, AnEditThatFailsClosesTheDialogAndLeavesTheCell) {
    answer(goods().editable());
    grid.GetHelpEdit.connect([](const std::string&, Variant&) { throw HostFailure(); });
    openWith("kq");
    desk.onDialog([](LookupDialog& d) { d.Edit(); });
    EXPECT_THROW(desk.press(Key::F2), HostFailure);
    EXPECT_EQ(inEditor(), kept("kq"));
    desk.onDialog([](LookupDialog& d) { d.Ok(); });
    desk.press(Key::F2).press(Key::Enter);
    EXPECT_EQ(text(HelpRow, HelpCol), "A002");
}

TEST_F(Lookup, StartsInTheSizeOfTheColumn) {
    answer(goods());
    column(HelpCol).HelpWidth(8100);
    column(HelpCol).HelpHeight(6400);
    look("", [](LookupDialog& d) {
        EXPECT_EQ(d.form().ScaleWidth(), 8100);
        EXPECT_EQ(d.form().ScaleHeight(), 6400);
    });
    ASSERT_EQ(desk.dialogs().size(), 1u);
    EXPECT_EQ(desk.dialogs()[0].name, "XT_TybmczFrm");
    EXPECT_EQ(desk.dialogs()[0].width, 8100);
    EXPECT_EQ(desk.dialogs()[0].height, 6400);
}

TEST_F(Lookup, KeepsItsProportionsWhenItIsResized) {
    answer(goods());
    look("", [](LookupDialog& d) {
        const Rect list = d.control("CzxsGrid").place;
        const Rect box = d.control("CodeText").place;
        const std::int32_t width = d.form().ScaleWidth();
        const std::int32_t height = d.form().ScaleHeight();
        d.resize(2 * width, 2 * height);
        EXPECT_EQ(d.control("CzxsGrid").place,
                  (Rect{2 * list.left, 2 * list.top, 2 * list.width, 2 * list.height}));
        EXPECT_EQ(d.control("CodeText").place, (Rect{2 * box.left, 2 * box.top, 2 * box.width, box.height}));
        EXPECT_EQ(d.grid().Width(), 2 * list.width) << "the grid inside follows";
        d.resize(width, height);
        EXPECT_EQ(d.control("CzxsGrid").place, list);
        EXPECT_EQ(d.control("CodeText").place, box);
        EXPECT_EQ(d.grid().Height(), list.height);
    });
}

TEST_F(Lookup, CaptionsItsButtons) {
    answer(goods());
    look("", [](LookupDialog& d) {
        EXPECT_EQ(d.form().caption(), "编码帮助");
        EXPECT_EQ(d.control("QdCommand").caption, "确定");
        EXPECT_EQ(d.control("QxCommand").caption, "取消");
        EXPECT_EQ(d.control("Bjcommand").caption, "编辑");
        EXPECT_EQ(d.control("Bjcommand").typeName, "kxButton");
        for (const char* name : {"Label1", "lblmessage"}) EXPECT_EQ(d.control(name).typeName, "Label");
    });
}

TEST_F(Lookup, OverOneRecordWorksLikeAnyOther) {
    HelpTable table("货号");
    table.field("code", "货号").row({"A001"});
    answer(table);
    look("A", [](LookupDialog& d) {
        EXPECT_EQ(rowsOf(d.grid()), (Lines{"A001"}));
        EXPECT_EQ(d.grid().Row(), 1);
        d.Ok();
    });
    EXPECT_EQ(inEditor(), (Pair{"A001", "A001"}));
}
}  // namespace
}  // namespace kxVsGrid::testing
