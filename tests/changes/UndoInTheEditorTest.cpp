// Undo and redo while an editor is open, refused or composed into, and while a help is open.
#include <string>

#include "changes/GridState.h"
#include "dialogs/HelpTest.h"

namespace kxVsGrid::testing {
namespace {

class HistoryAndTheEditor : public HelpTest {
  protected:
    HistoryAndTheEditor() {
        knowCodes();
        column(3).i有效性判断(1);
        column(3).i字段有效性判断类型(ij编码型);
        column(4).i有效性判断(1);
        column(4).i字段有效性判断类型(ij日期型);
        column(5).iType(flexDTDouble);
        grid.ReDraw(true);
        key(1, 1, "first");
        key(2, 1, "second");
        log.clear();
    }
    void key(std::int32_t row, std::int32_t col, std::string_view typed) {
        at(row, col);
        desk.type(typed).press(Key::Enter);
    }
    void undo() { desk.press('Z', CtrlKey); }
    void redo() { desk.press('Y', CtrlKey); }
    static HelpTable goodsOf() {
        HelpTable table("货号");
        table.field("code", "货号").field("name", "品名").result("code", "name").search({"code"});
        return table.row({"A001", "签字笔"}).row({"A002", "矿泉水"});
    }
    std::string all() const {
        std::string texts;
        for (std::int32_t row = 1; row < grid.Rows(); ++row)
            for (std::int32_t col = 1; col < 6; ++col) texts += text(row, col) + tag(row, col) + "|";
        return texts;
    }
};

TEST_F(HistoryAndTheEditor, KeepsARefusedCodeOrDateWhateverAsks) {
    for (const std::int32_t col : {3, 4}) {
        SCOPED_TRACE(col);
        const std::string before = all();
        at(3, col);
        desk.type("nothing").press(Key::Enter);
        ASSERT_TRUE(desk.editor().refused);
        EXPECT_FALSE(grid.Run(Command::Undo));
        EXPECT_FALSE(grid.Run(Command::Redo));
        EXPECT_FALSE(grid.History().Undo());
        EXPECT_EQ(desk.editor().text, "nothing");
        EXPECT_EQ(all(), before);
        // By key the text box takes its text back, then the act before is undone.
        for (int presses = 0; desk.editor().visible && presses < 20; ++presses) undo();
        EXPECT_FALSE(open());
        EXPECT_EQ(text(2, 1), "");
        EXPECT_EQ(text(3, col), "");
        redo();
        EXPECT_EQ(all(), before);
    }
}

TEST_F(HistoryAndTheEditor, GivesARefusedExpressionsNumberBackByEveryWay) {
    for (int way = 0; way < 3; ++way) {
        SCOPED_TRACE(way);
        key(3, 5, "12");
        at(3, 5);
        desk.type("3*").press(Key::Enter);
        ASSERT_TRUE(desk.editor().refused);
        ASSERT_EQ(text(3, 5), "");
        if (way == 0) {
            EXPECT_TRUE(grid.Run(Command::Undo));
        }
        if (way == 1) {
            EXPECT_TRUE(grid.History().Undo());
        }
        if (way == 2) {
            desk.press(Key::Escape);
            undo();
        }
        EXPECT_EQ(text(3, 5), "12");
        EXPECT_FALSE(open());
        redo();
        EXPECT_EQ(text(3, 5), "");
        undo();
        undo();
        EXPECT_EQ(text(3, 5), "");
        EXPECT_EQ(text(2, 1), "second");
    }
}

TEST_F(HistoryAndTheEditor, ShowsTheRestoredTextInAnEditorThatIsOpenedThen) {
    key(2, 1, "third");
    at(2, 1);
    desk.press(Key::F2);
    ASSERT_EQ(desk.editor().text, "third");
    undo();
    EXPECT_FALSE(open());
    EXPECT_EQ(grid.Text(), "second");
    desk.press(Key::F2);
    EXPECT_EQ(desk.editor().text, "second");
    desk.press(Key::Enter);
    EXPECT_EQ(text(2, 1), "second");
    EXPECT_TRUE(grid.CanRun(Command::Redo)) << "nothing was written";
}

TEST_F(HistoryAndTheEditor, IsTheTextBoxsOwnInAMultiLineCell) {
    column(1).b是否编辑多行(true);
    grid.ReDraw(true);
    at(3, 1);
    desk.type("x").press(Key::Enter).type("y");
    at(4, 4);
    ASSERT_EQ(text(3, 1), "x\ny");
    at(3, 1);
    desk.press(Key::F2).press(Key::End).press(Key::Enter).type("z");
    ASSERT_EQ(desk.editor().text, "x\ny\nz");
    for (int presses = 0; desk.editor().text != "x\ny" && presses < 9; ++presses) undo();
    ASSERT_TRUE(open());
    EXPECT_EQ(desk.editor().text, "x\ny");
    EXPECT_EQ(text(3, 1), "x\ny");
    undo();
    EXPECT_FALSE(open());
    EXPECT_EQ(text(3, 1), "");
    EXPECT_EQ(text(2, 1), "second");
    redo();
    EXPECT_EQ(text(3, 1), "x\ny");
}

TEST_F(HistoryAndTheEditor, DoesNothingToStepsWhileComposing) {
    at(3, 1);
    desk.compose("ni");
    undo();
    redo();
    desk.compose("nihao");
    undo();
    EXPECT_EQ(text(2, 1), "second");
    desk.commitComposition("");
    if (open()) {
        desk.press(Key::Escape);
    }
    EXPECT_EQ(text(2, 1), "second");
    EXPECT_EQ(text(3, 1), "");
    undo();
    EXPECT_EQ(text(2, 1), "");
}

TEST_F(HistoryAndTheEditor, CommitsACompositionsTextBeforeAMenusUndo) {
    at(3, 1);
    desk.compose("ni");
    grid.Run(Command::Undo);
    desk.commitComposition("你");
    if (open()) desk.press(Key::Enter);
    while (grid.History().Undo()) {
    }
    EXPECT_EQ(all(), std::string(25, '|'));
}

TEST_F(HistoryAndTheEditor, TakesTheKeyByItsCodeAndCtrlAlone) {
    at(3, 1);
    desk.press('Z', CtrlKey + AltKey);
    if (open()) desk.press(Key::Escape);
    EXPECT_EQ(text(2, 1), "second");
    desk.type("\x1a");
    if (open()) desk.press(Key::Escape);
    desk.type("\x19");
    if (open()) desk.press(Key::Escape);
    EXPECT_EQ(text(2, 1), "second");
    desk.type("z");
    EXPECT_TRUE(open());
    EXPECT_EQ(desk.editor().text, "z");
}

TEST_F(HistoryAndTheEditor, HasTheControlLettersThatOthersHave) {
    at(3, 1);
    for (const char key : {'H', 'I', 'M'}) {
        heard();
        desk.press(key, CtrlKey);
        if (open()) desk.press(Key::Escape);
        EXPECT_EQ(text(2, 1), "second") << key;
    }
}

TEST_F(HistoryAndTheEditor, LeavesAReadOnlyGridsKeysAlone) {
    grid.Editable(false);
    undo();
    redo();
    EXPECT_EQ(text(2, 1), "second");
    EXPECT_FALSE(open());
    grid.Editable(true);
    undo();
    EXPECT_EQ(text(2, 1), "");
}

TEST_F(HistoryAndTheEditor, UndoesInAColumnThatHasBecomeReadOnly) {
    readOnly(1);
    undo();
    EXPECT_EQ(text(2, 1), "");
    redo();
    EXPECT_EQ(text(2, 1), "second");
}

// --- Help

TEST_F(HistoryAndTheEditor, UndoesAChosenCodeWithItsName) {
    offer(ih通用型, "goods");
    answer(goodsOf());
    const std::string before = all();
    help<LookupDialog>("", [](LookupDialog& d) {
        d.CodeText("A002");
        d.Ok();
    });
    desk.press(Key::Enter);
    ASSERT_EQ(text(HelpRow, HelpCol), "A002");
    const std::string after = all();
    undo();
    EXPECT_EQ(all(), before);
    redo();
    EXPECT_EQ(all(), after);
    EXPECT_EQ(tag(HelpRow, HelpCol), "矿泉水");
}

TEST_F(HistoryAndTheEditor, WritesAChoiceIntoNoOtherCellWhenTheHelpIsUndoneUnder) {
    offer(ih通用型, "goods");
    answer(goodsOf());
    for (const bool byCommand : {true, false}) {
        SCOPED_TRACE(byCommand);
        openWith("typed");
        bool done = false;
        desk.onDialog([&](LookupDialog& d) {
            done = byCommand ? grid.Run(Command::Undo) : grid.History().Undo();
            grid.History().Undo();
            grid.History().Redo();
            d.CodeText("A002");
            d.Ok();
        });
        desk.press(Key::F2);
        desk.onDialog(std::function<void(LookupDialog&)>());
        if (open()) desk.press(Key::Enter);
        for (std::int32_t row = 1; row < grid.Rows(); ++row)
            for (std::int32_t col = 1; col < 6; ++col)
                if (row != HelpRow || col != HelpCol) {
                    EXPECT_NE(text(row, col), "A002") << row << ' ' << col << done;
                }
        while (grid.History().Redo()) {
        }
        const std::string end = all();
        while (grid.History().Undo()) {
        }
        EXPECT_EQ(all(), std::string(25, '|'));
        while (grid.History().Redo()) {
        }
        EXPECT_EQ(all(), end);
    }
}

TEST_F(HistoryAndTheEditor, MayBeUndoneInAHostsOwnHelpAndInTheEditOfALookup) {
    offer(ih特殊型);
    Connection special = grid.UserHelpEvent.connect([&](auto, auto, std::string& chosen, Variant&) {
        grid.Run(Command::Undo);
        grid.Run(Command::Undo);
        chosen = "chosen";
    });
    openWith("typed");
    desk.press(Key::F2);
    if (open()) desk.press(Key::Enter);
    special.disconnect();
    offer(ih通用型, "goods");
    answer(goodsOf().editable());
    grid.GetHelpEdit.connect([&](const std::string&, Variant&) {
        grid.Run(Command::Redo);
        grid.Run(Command::Undo);
    });
    openWith("typed");
    desk.onDialog([](LookupDialog& d) {
        d.Edit();
        d.Ok();
    });
    desk.press(Key::F2);
    if (open()) desk.press(Key::Enter);
    while (grid.History().Undo()) {
    }
    EXPECT_EQ(all(), std::string(25, '|'));
}

TEST_F(HistoryAndTheEditor, MayDestroyTheControlInAHelpsUndo) {
    offer(ih特殊型);
    grid.CellChanged.connect([&](std::int32_t, std::int32_t) { desk.remove(grid); });
    grid.UserHelpEvent.connect([&](auto, auto, std::string&, Variant&) { grid.Run(Command::Undo); });
    at(HelpRow, HelpCol);
    desk.press(Key::F2);
    SUCCEED();
}

// --- Moves

TEST_F(HistoryAndTheEditor, FillsNoDefaultsByGoingThere) {
    column(4).sDefaultText_Name("default");
    column(4).i有效性判断(0);
    at(4, 1);
    ASSERT_EQ(text(4, 4), "default");
    EXPECT_EQ(grid.History().UndoName(), "默认值");
    undo();
    EXPECT_EQ(text(4, 4), "");
    EXPECT_EQ(current(), (Cell{4, 4}));
    undo();
    EXPECT_EQ(text(2, 1), "");
    EXPECT_EQ(text(2, 4), "") << "not filled by the move there";
    EXPECT_TRUE(grid.CanRun(Command::Redo));
    redo();
    redo();
    EXPECT_EQ(text(4, 4), "default");
    EXPECT_FALSE(grid.CanRun(Command::Redo));
}

TEST_F(HistoryAndTheEditor, AsksAHostWhoCancelsTheMoveAndIsUndoneAllTheSame) {
    at(4, 4);
    grid.BeforeRowColChange.connect([](auto, auto, auto, auto, bool& cancel) { cancel = true; });
    undo();
    EXPECT_EQ(text(2, 1), "");
    EXPECT_EQ(current(), (Cell{4, 4}));
    redo();
    EXPECT_EQ(text(2, 1), "second");
}

TEST_F(HistoryAndTheEditor, UndoesAToggleByTheSpaceKeyOnce) {
    typed(5, flexDTBoolean);
    at(3, 5);
    desk.press(Key::Space);
    ASSERT_EQ(text(3, 5), "-1");
    desk.press(Key::Space);
    ASSERT_EQ(text(3, 5), "0");
    undo();
    EXPECT_EQ(text(3, 5), "-1");
    undo();
    EXPECT_EQ(text(3, 5), "");
    EXPECT_FALSE(open());
    redo();
    redo();
    EXPECT_EQ(text(3, 5), "0");
    EXPECT_FALSE(open());
}
}  // namespace
}  // namespace kxVsGrid::testing
