// Help from the editor: what opens it, what the host is asked, what is refused, what is written back, and who
// has the keyboard afterwards.
#include "dialogs/HelpTest.h"

#include "dialogs/Definitions.h"

namespace kxVsGrid::testing {
namespace {

const char* const NoCode = "当前的帮助编码返回错误，或找不到当前的帮助编码";
const char* const NoDefinition = "当前的帮助编码网络参数错误，或找不到当前的网格";

class Help : public HelpTest {
  protected:
    Help() { offer(ih通用型, "goods"); }

    static HelpTable goods() {
        HelpTable table("货号");
        table.field("code", "货号").field("name", "品名").result("code", "name").search({"code"});
        return table.row({"A001", "签字笔"}).row({"A002", "矿泉水"});
    }
    /// Opens the editor with a text, asks for help and takes the record of this code.
    void take(std::string_view text, const char* code) {
        help<LookupDialog>(text, [&](LookupDialog& d) {
            d.CodeText(code);
            d.Ok();
        });
    }
    /// The boxes of a help for which the host answers so; no dialog comes.
    std::vector<MessageBox> refusal(const Variant& code, const Variant& info, const Variant& data) {
        answer(code, info, data);
        openWith("typed");
        desk.press(Key::F2);
        EXPECT_TRUE(desk.dialogs().empty());
        EXPECT_EQ(inEditor(), kept("typed"));
        EXPECT_EQ(desk.focusOwner(), FocusPlace::Editor);
        return desk.messages();
    }
    Lines asked() { return named(heard(), "GetHelpCodeInfo"); }
    Rect cellOnScreen() const {
        const Rect cell = grid.Grid().CellRect(grid.Row(), grid.Col());
        const Rect inside = grid.gridRect();
        return {headless::Desk::ScreenLeft + inside.left + cell.left,
                headless::Desk::ScreenTop + inside.top + cell.top, cell.width, cell.height};
    }
};

/// The log writes the help code as it is, a variant's text.
Lines asksFor(const char* code) {
    return {"GetHelpCodeInfo(" + std::string(code) + ", , , )"};
}

TEST_F(Help, SelectsWhatWasChosenSoThatTypingReplacesIt) {
    answer(goods());
    take("A001", "A002");
    EXPECT_EQ(desk.editor().selStart, 0U);
    EXPECT_EQ(desk.editor().selLength, 4U);
    desk.type("5");
    EXPECT_EQ(desk.editor().text, "5");
}

// --- Opening.

TEST_F(Help, F2OnAClosedCellOpensTheEditorAndTheHelp) {
    answer(goods());
    fill(HelpRow, HelpCol, "A001");
    at(HelpRow, HelpCol);
    desk.onDialog([](LookupDialog& d) {
        d.CodeText("A002");
        d.Ok();
    });
    desk.press(Key::F2);
    EXPECT_EQ(heard(), opens() + asksFor("goods"));
    EXPECT_EQ(inEditor(), (Pair{"A002", "矿泉水"}));
    EXPECT_EQ(desk.focusOwner(), FocusPlace::Editor);
    EXPECT_EQ(text(HelpRow, HelpCol), "A001") << "chosen, not committed";
}

TEST_F(Help, F2OnAClosedCellOpensTheEditorAloneWhereTheColumnOffersNoHelp) {
    answer(goods());
    column(HelpCol).b是否提供帮助(false);
    fill(HelpRow, HelpCol, "A001");
    at(HelpRow, HelpCol);
    desk.press(Key::F2);
    EXPECT_EQ(heard(), opens());
    EXPECT_TRUE(desk.dialogs().empty());
    ASSERT_TRUE(open());
    EXPECT_EQ(desk.editor().selLength, 4u);
    EXPECT_EQ(desk.focusOwner(), FocusPlace::Editor);
}

TEST_F(Help, F2OnAClosedCellOfTheLastRowAsksForAnotherRowFirst) {
    answer(goods());
    consentToRows();
    at(grid.Rows() - 1, HelpCol);
    desk.press(Key::F2);
    EXPECT_EQ(grid.Rows(), 7);
    EXPECT_EQ(named(heard(), "AddVsRow"), asksForRow(5, false));
    EXPECT_EQ(desk.dialogs().size(), 1u);
    desk.press(Key::F2);
    EXPECT_EQ(named(heard(), "AddVsRow"), Lines{}) << "the editor is open";
}

TEST_F(Help, F2OnAClosedCellThatMayNotBeEditedDoesNothing) {
    answer(goods());
    readOnly(HelpCol);
    const std::function<void()> closings[] = {
        [&] { at(HelpRow, HelpCol); },
        [&] { column(HelpCol).bIsEditable(true), grid.Editable(false), at(HelpRow, HelpCol); },
        [&] { grid.Editable(true), grid.Grid().Select(0, HelpCol), log.clear(); }};
    for (const auto& close : closings) {
        close();
        desk.press(Key::F2);
        EXPECT_EQ(heard(), Lines{});
        EXPECT_TRUE(desk.dialogs().empty());
        EXPECT_FALSE(open());
        EXPECT_EQ(desk.focusOwner(), FocusPlace::Grid);
        EXPECT_EQ(boxes(), std::vector<MessageBox>{});
    }
}

TEST_F(Help, F2OnACheckBoxTurnsItOverAsOtherKeysDo) {
    typed(HelpCol, flexDTBoolean);
    at(HelpRow, HelpCol);
    desk.press(Key::F2);
    EXPECT_EQ(text(HelpRow, HelpCol), "-1");
    EXPECT_FALSE(open());
    EXPECT_TRUE(desk.dialogs().empty());
}

TEST_F(Help, F2OnAClosedCellBearsAHostThatGoesElsewhereMeanwhile) {
    answer(goods());
    at(HelpRow, HelpCol);
    grid.BeforeTextEdit.connect([&] { readOnly(HelpCol); });
    desk.press(Key::F2);
    EXPECT_FALSE(open());
    EXPECT_TRUE(desk.dialogs().empty());
}

TEST_F(Help, F2OnAClosedCellBearsAHostThatDestroysTheControl) {
    answer(goods());
    at(HelpRow, HelpCol);
    grid.BeforeTextEdit.connect([&] { desk.remove(grid); });
    desk.press(Key::F2);
    desk.place();  // for the look at a failed test
}

TEST_F(Help, F2InTheEditorAsksTheHostForTheTrimmedHelpCode) {
    answer(goods());
    column(HelpCol).sHelp_Code("  goods ");
    openWith("A");
    desk.press(Key::F2);
    EXPECT_EQ(heard(), asksFor("goods"));
    ASSERT_EQ(desk.dialogs().size(), 1u);
    EXPECT_EQ(desk.dialogs()[0].name, "XT_TybmczFrm");
}

TEST_F(Help, F2WorksHoweverTheEditorWasOpened) {
    answer(goods());
    const std::function<void()> ways[] = {[&] { desk.type("q"); }, [&] { desk.press(Key::Space); },
                                          [&] { desk.press(Key::Back); },
                                          [&] { desk.doubleClick(HelpRow, HelpCol); }};
    std::size_t shown = 0;
    for (const auto& way : ways) {
        at(HelpRow, HelpCol);
        way();
        ASSERT_TRUE(open());
        desk.press(Key::F2);
        EXPECT_EQ(desk.dialogs().size(), ++shown);
        desk.press(Key::Escape);
    }
}

TEST_F(Help, F2DoesNotLookAtShift) {
    answer(goods());
    for (const std::int16_t shift : {ShiftKey, CtrlKey, AltKey}) {
        openWith("A");
        desk.press(Key::F2, shift);
        EXPECT_EQ(desk.dialogs().size(), 1u) << shift;
    }
}

TEST_F(Help, F2RunsHelpAlsoWhereTheColumnDoesNotOfferIt) {
    answer(goods());
    column(HelpCol).b是否提供帮助(false);
    openWith("A");
    EXPECT_FALSE(desk.editor().helpButton);
    desk.press(Key::F2);
    EXPECT_EQ(desk.dialogs().size(), 1u);
}

TEST_F(Help, F2RunsHelpInEditorsOfSeveralLines) {
    column(HelpCol).b是否编辑多行(true);
    answer(goods());
    take("first\nsecond", "A002");
    EXPECT_EQ(inEditor(), (Pair{"A002", "矿泉水"}));
}

TEST_F(Help, TheHelpButtonOpensItToo) {
    answer(goods());
    openWith("A001");
    EXPECT_TRUE(desk.editor().helpButton);
    desk.onDialog([](LookupDialog& d) { d.Ok(); });
    desk.pressHelpButton();
    EXPECT_EQ(asked(), asksFor("goods"));
    EXPECT_EQ(inEditor(), (Pair{"A001", "签字笔"}));
    EXPECT_EQ(desk.focusOwner(), FocusPlace::Editor);
}

TEST_F(Help, TheHelpIsThatOfTheCurrentColumn) {
    column(3).sHelp_Code("units");
    openAt(1, 3);
    desk.press(Key::F2);
    EXPECT_EQ(heard(), asksFor("units"));
    desk.press(Key::Escape);
    openAt(1, 4);
    desk.press(Key::F2);
    EXPECT_EQ(heard(), asksFor("")) << "a column that says nothing offers a code list";
}

TEST_F(Help, OpensNearTheCellInTheSizeOfTheColumn) {
    answer(goods());
    column(HelpCol).HelpWidth(7000);
    column(HelpCol).HelpHeight(6000);
    openWith("A");
    desk.press(Key::F2);
    EXPECT_EQ(desk.dialogs(),
              (std::vector<headless::ShownDialog>{{"XT_TybmczFrm", 7000, 6000, cellOnScreen()}}));
}

TEST_F(Help, DialogsNeverStartSmallerThanHalfTheirOwnSize) {
    answer(goods());
    openWith("A");
    desk.press(Key::F2);
    const headless::ShownDialog own = desk.dialogs()[0];
    column(HelpCol).HelpWidth(1);
    openWith("A");
    desk.press(Key::F2);
    EXPECT_EQ(desk.dialogs()[0].width, own.width / 2);
    EXPECT_EQ(desk.dialogs()[0].height, own.height);
    column(HelpCol).HelpWidth(-5);
    column(HelpCol).HelpHeight(1);
    openWith("A");
    desk.press(Key::F2);
    EXPECT_EQ(desk.dialogs()[0].height, own.height / 2);
}

// --- The kinds.

TEST_F(Help, EachKindOpensItsDialog) {
    answer(goods());
    const std::pair<int, Lines> kinds[] = {{0, {"XT_TybmczFrm"}}, {1, {"XT_calendar"}}, {2, {}},
                                           {3, {"XT_Const"}},     {4, {"XT_calendar"}}, {5, {"XT_calendar"}}};
    for (const auto& [kind, names] : kinds) {
        offer(static_cast<gEmHelpType>(kind), "a;1|b;2");
        openWith("x");
        desk.press(Key::F2);
        Lines shown;
        for (const auto& dialog : desk.dialogs()) shown.push_back(dialog.name);
        EXPECT_EQ(shown, names) << "kind " << kind;
        EXPECT_EQ(named(heard(), "UserHelpEvent").size(), kind == 2 ? 1u : 0u);
        EXPECT_EQ(inEditor(), kept("x"));
    }
}

TEST_F(Help, AnyOtherKindDoesNothing) {
    answer(goods());
    HelpExchange::shared().ReturnCode = "left over";
    for (const int kind : {-1, 6, 100, 2147483647, -2147483647}) {
        offer(static_cast<gEmHelpType>(kind), "goods");
        openWith("x");
        desk.press(Key::F2);
        EXPECT_EQ(heard(), Lines{});
        EXPECT_TRUE(desk.dialogs().empty());
        EXPECT_EQ(boxes(), std::vector<MessageBox>{});
        EXPECT_EQ(inEditor(), kept("x"));
        EXPECT_EQ(desk.focusOwner(), FocusPlace::Editor);
    }
}

// --- What the host answers.

TEST_F(Help, TheHostFindsThreeEmptyValuesAndTheTextInTheRecord) {
    std::vector<std::string> seen;
    grid.GetHelpCodeInfo.connect([&](const Variant& code, Variant& gridCode, Variant& info, Variant& data) {
        const HelpExchange& exchange = HelpExchange::shared();
        EXPECT_TRUE(gridCode.isEmpty() && info.isEmpty() && data.isEmpty());
        EXPECT_EQ(exchange.ReturnCode + exchange.ReturnName, "");
        seen.push_back(code.toText() + "/" + exchange.SearchText);
        goods().answer(gridCode, info, data);
    });
    take("  A00 ", "A002");
    take("B", "A001");
    EXPECT_EQ(seen, (Lines{"goods/A00", "goods/B"}));
}

TEST_F(Help, AMissingFirstTableIsReported) {
    EXPECT_EQ(refusal({}, goods().GridInfo(), goods().GridData()), helpBox(NoCode));
    EXPECT_EQ(refusal({}, {}, {}), helpBox(NoCode)) << "the first missing one alone";
}

TEST_F(Help, AHostThatDoesNotAnswerIsReported) {
    openWith("x");
    desk.press(Key::F2);
    EXPECT_EQ(boxes(), helpBox(NoCode));
    EXPECT_EQ(asked(), asksFor("goods"));
}

TEST_F(Help, AMissingDefinitionIsReported) {
    EXPECT_EQ(refusal(codes(), {}, goods().GridData()), helpBox(NoDefinition));
    EXPECT_EQ(refusal(codes(), {}, {}), helpBox(NoDefinition));
}

TEST_F(Help, MissingRecordsAreReportedWithTheNameOfTheList) {
    EXPECT_EQ(refusal(codes(), goods().GridInfo(), {}), helpBox("当前的货号数据为空,请先输入"));
    EXPECT_EQ(refusal(list({"goods", 12}), goods().GridInfo(), {}), helpBox("当前的12数据为空,请先输入"));
}

TEST_F(Help, AListWithoutANameIsReportedWithoutOne) {
    for (const Variant& code : {list({"goods", Variant::null()}), list({"goods", list({})}), list({"x"}, 5),
                                Variant(Table(3, 7)), Variant(Table(0, 1, 3, 4))})
        EXPECT_EQ(refusal(code, goods().GridInfo(), {}), helpBox("当前的数据为空,请先输入"));
}

TEST_F(Help, OnlyAnArrayWhoseUpperBoundIsNotZeroIsThere) {
    const Variant missing[] = {Variant(),     Variant::null(),    "text",      12,          1.5, true,
                               list({"one"}), Table(0, 0, 0, 40), Table(1, 0), Table(-3, 0)};
    for (const Variant& table : missing) {
        EXPECT_EQ(refusal(table, goods().GridInfo(), goods().GridData()), helpBox(NoCode));
        EXPECT_EQ(refusal(codes(), table, goods().GridData()), helpBox(NoDefinition));
        EXPECT_EQ(refusal(codes(), goods().GridInfo(), table), helpBox("当前的货号数据为空,请先输入"));
    }
    for (const Variant& table : {list({"one"}, 1), list({"a", "b"}), Variant(Table(1, 1, 1, 1)),
                                 Variant(Table(0, -1)), Variant(Table(-3, -2))}) {
        answer(codes(), goods().GridInfo(), table);
        help<LookupDialog>("x", [](LookupDialog&) {});
        EXPECT_EQ(boxes(), std::vector<MessageBox>{});
    }
}

// --- Writing back.

TEST_F(Help, WritesTheCodeAndKeepsTheNameInTheTagWhereTheTextIsTheCode) {
    answer(goods());
    column(HelpCol).i帮助返回值显示类型(iText记Code);
    take("x", "A002");
    EXPECT_EQ(inEditor(), (Pair{"A002", "矿泉水"}));
}

TEST_F(Help, WritesTheNameAndKeepsTheCodeInTheTagWhereTheTextIsTheName) {
    answer(goods());
    column(HelpCol).i帮助返回值显示类型(iText记Name);
    take("x", "A002");
    EXPECT_EQ(inEditor(), (Pair{"矿泉水", "A002"}));
}

TEST_F(Help, WritesIntoTheEditorAloneUntilTheClerkCommits) {
    answer(goods());
    fill(HelpRow, HelpCol, "old", "old tag");
    take("x", "A002");
    EXPECT_EQ(text(HelpRow, HelpCol), "old");
    EXPECT_EQ(tag(HelpRow, HelpCol), "old tag");
    EXPECT_EQ(heard(), asksFor("goods"));
    desk.press(Key::Enter);
    EXPECT_EQ(heard(), changed(HelpRow, HelpCol) + changed(HelpRow, HelpCol) + edited(HelpRow, HelpCol) +
                           moves(HelpRow, HelpCol, HelpRow, HelpCol + 1));
    EXPECT_EQ(text(HelpRow, HelpCol), "A002");
    EXPECT_EQ(tag(HelpRow, HelpCol), "矿泉水");
    EXPECT_TRUE(grid.bIsDirty());
}

TEST_F(Help, EscapeAfterwardsDropsWhatWasChosen) {
    answer(goods());
    fill(HelpRow, HelpCol, "old", "old tag");
    take("x", "A002");
    desk.press(Key::Escape);
    EXPECT_EQ(text(HelpRow, HelpCol), "old");
    EXPECT_EQ(tag(HelpRow, HelpCol), "old tag");
    EXPECT_FALSE(open());
}

TEST_F(Help, AnEmptyResultLeavesTextTagAndSelection) {
    answer(goods());
    openWith("typed");
    desk.select(1, 2);
    desk.press(Key::F2);
    EXPECT_EQ(inEditor(), kept("typed"));
    EXPECT_EQ(desk.editor().selStart, 1u);
    EXPECT_EQ(desk.editor().selLength, 2u);
}

TEST_F(Help, TheLengthLimitDoesNotCutWhatWasChosen) {
    answer(goods());
    column(HelpCol).iLimitLength(2);
    take("x", "A002");
    EXPECT_EQ(inEditor(), (Pair{"A002", "矿泉水"}));
}

TEST_F(Help, AChosenTextIsCheckedAnewAfterARefusal) {
    answer(goods());
    column(HelpCol).i有效性判断(1);
    column(HelpCol).i字段有效性判断类型(ij编码型);
    column(HelpCol).s错误提示信息("没有此货号");
    grid.TxtValidBmS.connect([](const std::string&, const std::string&, const std::string&,
                                const std::string& typed, std::string& code, std::string& name) {
        if (typed != "A002") return;
        code = typed;
        name = "checked";
    });
    openWith("x");
    desk.press(Key::Enter);
    ASSERT_TRUE(desk.editor().refused);
    helpAgain<LookupDialog>([](LookupDialog&) {});
    EXPECT_TRUE(desk.editor().refused) << "nothing was chosen: the refused text is still there";
    helpAgain<LookupDialog>([](LookupDialog& d) {
        d.CodeText("A002");
        d.Ok();
    });
    EXPECT_FALSE(desk.editor().refused);
    desk.press(Key::Enter);
    EXPECT_FALSE(open());
    EXPECT_EQ(text(HelpRow, HelpCol), "A002");
    EXPECT_EQ(tag(HelpRow, HelpCol), "checked");
}

// --- The keyboard.

TEST_F(Help, TheEditorHasTheKeyboardAgainAfterwards) {
    answer(goods());
    take("x", "A002");
    EXPECT_EQ(desk.focusOwner(), FocusPlace::Editor);
    desk.type("!");
    EXPECT_NE(inEditor().text.find('!'), std::string::npos);
    openWith("x");
    desk.press(Key::F2);
    EXPECT_EQ(desk.focusOwner(), FocusPlace::Editor) << "nothing chosen";
}

TEST_F(Help, TheGridHasItWhenTheEditorHasGone) {
    answer(goods());
    grid.GetHelpCodeInfo.connect([&](const Variant&, Variant&, Variant&, Variant&) { grid.Clear(); });
    openWith("x");
    desk.onDialog([](LookupDialog& d) { d.doubleClickRow(1); });
    desk.press(Key::F2);
    EXPECT_FALSE(open());
    EXPECT_EQ(desk.focusOwner(), FocusPlace::Grid);
}

TEST_F(Help, NothingIsCommittedWhileTheDialogIsOpen) {
    answer(goods());
    help<LookupDialog>("typed", [&](LookupDialog& d) {
        EXPECT_EQ(inEditor(), kept("typed"));
        EXPECT_TRUE(grid.IsActive());
        d.CodeText("A");
        d.idle();
        EXPECT_EQ(heard(), asksFor("goods"));
        EXPECT_EQ(text(HelpRow, HelpCol), "");
    });
    EXPECT_EQ(heard(), Lines{});
    EXPECT_FALSE(grid.bIsDirty());
}

// --- The host's own help.

class SpecialHelp : public Help {
  protected:
    SpecialHelp() { offer(ih特殊型, "stores"); }

    /// The host puts these into the event.
    Connection returns(std::string text, Variant value) {
        return grid.UserHelpEvent.connect(
            [=](std::int32_t, std::int32_t, std::string& psText, Variant& pvarValue) {
                psText = text;
                pvarValue = value;
            });
    }
    void askHost(std::string_view text) {
        openWith(text);
        desk.press(Key::F2);
    }
};

TEST_F(SpecialHelp, TellsTheLowerLeftCornerOfTheCellOnTheScreenAndTheTrimmedText) {
    askHost(" ab ");
    EXPECT_EQ(heard(), (Lines{line("UserHelpEvent", cellOnScreen().left, cellOnScreen().bottom(),
                                   std::string("ab"), Variant())}));
    EXPECT_EQ(inEditor(), kept(" ab "));
    EXPECT_EQ(desk.focusOwner(), FocusPlace::Editor);
}

TEST_F(SpecialHelp, FollowsTheCellInAScrolledGrid) {
    rows(60);
    at(50, HelpCol);
    desk.press(Key::Space);
    log.clear();
    ASSERT_GT(grid.Grid().TopRow(), 1);
    const Rect cell = cellOnScreen();
    desk.press(Key::F2);
    EXPECT_EQ(heard(), (Lines{line("UserHelpEvent", cell.left, cell.bottom(), std::string(), Variant())}));
    EXPECT_LE(cell.bottom(), headless::Desk::ScreenTop + grid.gridRect().bottom());
}

TEST_F(SpecialHelp, TakesTheTextAsNameAndTheValueAsCode) {
    returns("一号库", "W1");
    askHost("x");
    EXPECT_EQ(inEditor(), (Pair{"W1", "一号库"}));
    column(HelpCol).i帮助返回值显示类型(iText记Name);
    askHost("x");
    EXPECT_EQ(inEditor(), (Pair{"一号库", "W1"}));
}

TEST_F(SpecialHelp, TakesAnyValueAsText) {
    const std::pair<Variant, const char*> values[] = {
        {12, "12"}, {1.5, "1.5"}, {std::int16_t{-3}, "-3"}, {"a b", "a b"}};
    for (const auto& [value, code] : values) {
        returns("name", value);
        askHost("x");
        EXPECT_EQ(inEditor(), (Pair{code, "name"}));
    }
}

TEST_F(SpecialHelp, WithoutAValueLeavesTheText) {
    for (const Variant& value : {Variant(), Variant(""), Variant::null(), list({"W1"})}) {
        returns("name", value);
        askHost("x");
        EXPECT_EQ(inEditor(), kept("x"));
    }
}

TEST_F(SpecialHelp, AHostThatOnlyReadsTheTextLeavesIt) {
    std::string seen;
    grid.UserHelpEvent.connect(
        [&](std::int32_t, std::int32_t, std::string& psText, Variant&) { seen = psText; });
    askHost("x");
    EXPECT_EQ(seen, "x");
    EXPECT_EQ(inEditor(), kept("x"));
}

// --- One help inside another.

TEST_F(Help, AHelpInsideAnothersEditLeavesTheOuterOneAsItWas) {
    kxGrid& other = desk.place();
    other.ReDraw(true);
    other.VsCtrl(1)->i帮助类型(ih常量型);
    other.VsCtrl(1)->sHelp_Code("箱;1|件;2");
    desk.use(grid);
    HelpTable table = goods().editable();
    answer(table);
    grid.GetHelpEdit.connect([&](const std::string&, Variant& GridData) {
        desk.use(other);
        desk.focusGrid().press(Key::Space).press(Key::F2);
        desk.use(grid);
        EXPECT_EQ(GridData, table.GridData());
    });
    desk.onDialog([](ConstantDialog& d) { d.doubleClickRow(2); });
    help<LookupDialog>("x", [&](LookupDialog& d) {
        d.Edit();
        EXPECT_EQ(rowsOf(d.grid()), (Lines{"A001|签字笔", "A002|矿泉水"}));
        EXPECT_EQ(HelpExchange::shared().SearchText, "x");
        d.CodeText("A002");
        d.Ok();
    });
    EXPECT_EQ(inEditor(), (Pair{"A002", "矿泉水"}));
    desk.use(other);
    EXPECT_EQ(desk.editor().text, "2");
    EXPECT_EQ(desk.editor().tag, "件");
}

TEST_F(Help, AHelpInsideTheQuestionLeavesTheOuterOneAsItWas) {
    kxGrid& other = desk.place();
    other.ReDraw(true);
    other.VsCtrl(1)->i帮助类型(ih特殊型);
    other.UserHelpEvent.connect([](std::int32_t, std::int32_t, std::string& text, Variant& value) {
        text = "inner";
        value = "I";
    });
    desk.use(grid);
    grid.GetHelpCodeInfo.connect([&](const Variant&, Variant& code, Variant& info, Variant& data) {
        goods().answer(code, info, data);
        desk.use(other);
        desk.focusGrid().press(Key::Space).press(Key::F2);
        desk.use(grid);
    });
    help<LookupDialog>("A00", [](LookupDialog& d) {
        EXPECT_EQ(d.CodeText(), "A00");
        d.CodeText("A001");
        d.Ok();
    });
    EXPECT_EQ(inEditor(), (Pair{"A001", "签字笔"}));
    desk.use(other);
    EXPECT_EQ(desk.editor().text, "I");
}
}  // namespace
}  // namespace kxVsGrid::testing
