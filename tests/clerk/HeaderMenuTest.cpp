// The menu of a column header, by press and by key.
#include <algorithm>

#include "clerk/ColumnTest.h"

namespace kxVsGrid::testing {
namespace {

class HeaderMenuTest : public ColumnTest {
  protected:
    HeaderMenuTest() {
        grid.Options().HeaderMenu(true);
        desk.onPopup([this](headless::PoppedMenu& menu) {
            ++popped;
            anchor = menu.anchor();
            shown = menu.menu();
            if (chosen.empty()) return;
            if (under.empty())
                menu.choose(chosen);
            else
                menu.choose(under, chosen);
        });
    }
    void press(std::int32_t col, const std::string& item = {}) {
        chosen = item;
        under.clear();
        desk.rightClick(0, col);
    }
    void show(std::int32_t col, const std::string& item) {
        chosen = item;
        under = "显示隐藏的列";
        desk.rightClick(0, col);
    }
    /// The captions that are seen, those that cannot be chosen in brackets.
    std::vector<std::string> items() const {
        std::vector<std::string> captions;
        for (const MenuItem& item : shown.items)
            if (item.visible) captions.push_back(item.enabled ? item.caption : "(" + item.caption + ")");
        return captions;
    }
    bool isHeaders() const { return shown.name == "menuHeader"; }
    /// Left and bottom of a header on the screen.
    Rect below(std::int32_t col) const {
        const Rect cell = grid.Grid().CellRect(0, col);
        return {headless::Desk::ScreenLeft + grid.gridRect().left + cell.left,
                headless::Desk::ScreenTop + grid.gridRect().top + cell.bottom(), 0, 0};
    }

    int popped = 0;
    Rect anchor;
    Menu shown;
    std::string chosen;
    std::string under;
};

using List = std::vector<std::string>;

TEST_F(HeaderMenuTest, OpensOnARightPressWithoutAMove) {
    at(2, Code);
    HostLog log(grid);
    press(Quantity);
    ASSERT_EQ(popped, 1);
    EXPECT_TRUE(isHeaders());
    EXPECT_TRUE(isAt(2, Code));
    ASSERT_EQ(log.lines().size(), 1U);
    EXPECT_TRUE(log.lines().front().starts_with("MouseDown"));
    EXPECT_EQ(items(), (List{"升序排列", "降序排列", "(恢复原来的顺序)", "-", "隐藏列", "(显示隐藏的列)",
                             "冻结到此列", "-", "最适合的列宽", "(恢复默认布局)"}));
}

TEST_F(HeaderMenuTest, LeavesOutWhatTheColumnDoesNotHave) {
    press(Remark);
    EXPECT_EQ(items(),
              (List{"隐藏列", "(显示隐藏的列)", "冻结到此列", "-", "最适合的列宽", "(恢复默认布局)"}));
}

TEST_F(HeaderMenuTest, IsNotThereUnlessTheHostWantsIt) {
    grid.Options().HeaderMenu(false);
    press(Quantity);
    EXPECT_EQ(popped, 1);
    EXPECT_EQ(shown.name, "menuVs");
}

TEST_F(HeaderMenuTest, IsNotThatOfCellsAndRowNumbers) {
    chosen.clear();
    desk.rightClick(1, Quantity);
    EXPECT_FALSE(isHeaders());
    desk.rightClick(1, Number);
    EXPECT_FALSE(isHeaders());
    desk.rightClick(0, Number);
    EXPECT_FALSE(isHeaders());
    EXPECT_EQ(popped, 3);
}

TEST_F(HeaderMenuTest, IsTheHostsToCancel) {
    grid.MouseDown.connect([](auto, auto, auto, auto, bool& cancel) { cancel = true; });
    press(Quantity);
    EXPECT_EQ(popped, 0);
}

TEST_F(HeaderMenuTest, DoesNotOpenForAColumnThatAHostHasTakenAway) {
    grid.MouseDown.connect([this](auto, auto, auto, auto, bool&) { grid.Cols(Remark); });
    press(Remark);
    EXPECT_EQ(popped, 0);
}

TEST_F(HeaderMenuTest, IsThatOfTheColumnUnderThePointerBesideAnEdge) {
    const Rect cell = grid.Grid().CellRect(0, Name);
    const auto pressAt = [&](std::int32_t x) {
        desk.mouseDown(RightButton, 0, grid.gridRect().left + x, 100);
        desk.mouseUp(RightButton, 0, grid.gridRect().left + x, 100);
    };
    chosen = "冻结到此列";
    pressAt(cell.right() - 15);
    EXPECT_EQ(grid.FrozenCols(), 2);
    pressAt(cell.right() + 15);
    EXPECT_EQ(grid.FrozenCols(), 3);
}

TEST_F(HeaderMenuTest, SortsByThePressedColumn) {
    at(1, Quantity);
    press(Code, "升序排列");
    EXPECT_EQ(text(1, Code), "A001");
    EXPECT_TRUE(isAt(3, Quantity)) << "with its row";
    EXPECT_EQ(grid.Commands().Caption(Command::Undo), "撤销“按货号升序”");
    press(Code, "降序排列");
    EXPECT_EQ(text(1, Code), "A003");
    press(Code, "升序排列");
    press(Quantity, "恢复原来的顺序");
    EXPECT_EQ(text(1, Code), "A003");
}

TEST_F(HeaderMenuTest, DoesNotSortAReadOnlyGrid) {
    grid.Editable(false);
    press(Code);
    EXPECT_EQ(items(), (List{"(升序排列)", "(降序排列)", "(恢复原来的顺序)", "-", "隐藏列", "(显示隐藏的列)",
                             "冻结到此列", "-", "最适合的列宽", "(恢复默认布局)"}));
}

TEST_F(HeaderMenuTest, HidesThePressedColumnAndShowsEachHiddenOneByName) {
    at(1, Code);
    grid.SetCell(0, Quantity, "数&量");
    press(Name, "隐藏列");
    EXPECT_TRUE(isAt(1, Code));
    press(Quantity, "隐藏列");
    EXPECT_EQ(hidden(), (Cols{Name, Quantity}));
    show(Code, "品名");
    EXPECT_EQ(hidden(), (Cols{Quantity}));
    press(Name, "隐藏列");
    show(Code, "数&&量");
    EXPECT_EQ(hidden(), (Cols{Name}));
    press(Quantity, "隐藏列");
    show(Code, "全部");
    EXPECT_EQ(hidden(), Cols{});
    ASSERT_EQ(shown.submenus.front().items.size(), 4U);
}

TEST_F(HeaderMenuTest, DoesNotHideTheLastColumn) {
    for (const Column col : {Code, Name, Quantity}) press(col, "隐藏列");
    press(Remark);
    EXPECT_EQ(items().front(), "(隐藏列)");
}

TEST_F(HeaderMenuTest, FreezesAndReleases) {
    press(Name, "冻结到此列");
    EXPECT_EQ(grid.FrozenCols(), 2);
    press(Name, "取消冻结");
    EXPECT_EQ(grid.FrozenCols(), 0);
}

TEST_F(HeaderMenuTest, FitsThePressedColumn) {
    at(1, Code);
    press(Name, "最适合的列宽");
    EXPECT_EQ(grid.ColWidth(Name), 505);
    EXPECT_TRUE(isAt(1, Code));
}

TEST_F(HeaderMenuTest, BringsBackTheLayoutAsDesigned) {
    const std::int32_t width = grid.ColWidth(Name);
    press(Name, "最适合的列宽");
    press(Name, "冻结到此列");
    press(Quantity, "隐藏列");
    press(Name, "恢复默认布局");
    EXPECT_EQ(grid.ColWidth(Name), width);
    EXPECT_EQ(grid.FrozenCols(), 0);
    EXPECT_EQ(hidden(), Cols{});
    EXPECT_EQ(changes, 4);
    press(Name);
    EXPECT_EQ(items().back(), "(恢复默认布局)");
}

TEST_F(HeaderMenuTest, WaitsForARefusedText) {
    refuseCodes();
    at(1, Code);
    desk.type("x");
    press(Name);
    EXPECT_EQ(popped, 0);
    EXPECT_TRUE(desk.editor().refused);
}

TEST_F(HeaderMenuTest, MayBeOpenWhileTheControlGoes) {
    desk.onPopup([this](headless::PoppedMenu& menu) {
        menu.choose("最适合的列宽");
        desk.remove(grid);
    });
    desk.rightClick(0, Name);
    SUCCEED();
}

// --- By key

TEST_F(HeaderMenuTest, OpensByKeyForTheCurrentColumn) {
    at(2, Name);
    desk.press(Key::Down, AltKey + ShiftKey);
    EXPECT_EQ(popped, 1);
    EXPECT_EQ(anchor, below(Name));
    EXPECT_TRUE(isHeaders());
    EXPECT_TRUE(isAt(2, Name));
}

TEST_F(HeaderMenuTest, OpensByAltDownForASelectedColumn) {
    at(2, Name);
    desk.click(0, Quantity);
    chosen = "冻结到此列";
    desk.press(Key::Down, AltKey);
    EXPECT_EQ(popped, 1);
    EXPECT_EQ(anchor, below(Quantity));
    EXPECT_EQ(grid.FrozenCols(), 3);
    EXPECT_TRUE(isAt(2, Name));
}

TEST_F(HeaderMenuTest, LeavesAltDownToTheRowOtherwise) {
    at(1, Name);
    desk.press(Key::Down, AltKey);
    EXPECT_EQ(popped, 0);
    EXPECT_TRUE(isAt(2, Name));
    EXPECT_EQ(text(2, Code), "A003");
}

TEST_F(HeaderMenuTest, HasNoKeyWhereTheHostDoesNotWantIt) {
    grid.Options().HeaderMenu(false);
    EXPECT_FALSE(grid.CanRun(Command::HeaderMenu));
    int keys = 0;
    grid.Grid().KeyDown.connect([&](std::int16_t&, std::int16_t) { ++keys; });
    desk.press(Key::Down, AltKey + ShiftKey);
    EXPECT_EQ(keys, 1);
    EXPECT_EQ(popped, 0);
}

TEST_F(HeaderMenuTest, BringsItsColumnIntoView) {
    for (const Column col : {Code, Name, Quantity, Remark}) grid.ColWidth(col, 4000);
    at(1, Code);
    grid.Grid().SelectCols(Remark, Remark);
    desk.run(Command::HeaderMenu);
    EXPECT_TRUE(grid.Grid().ColIsVisible(Remark));
    EXPECT_EQ(anchor, below(Remark));
}

TEST_F(HeaderMenuTest, LeavesAColumnThatIsSeenWhollyWhereItStands) {
    const CellGrid& g = grid.Grid();
    for (const Column col : {Code, Name, Quantity, Remark}) grid.ColWidth(col, g.ClientWidth() / 3);
    at(1, Name);
    desk.scrollBy(100, 0);
    ASSERT_EQ(g.LeftOffset(), 100);
    desk.run(Command::HeaderMenu);
    EXPECT_EQ(popped, 1);
    EXPECT_EQ(g.LeftOffset(), 100);
    EXPECT_EQ(anchor, below(Name));
}

TEST_F(HeaderMenuTest, DoesNotShowAColumnThatTheHostHasHiddenWhileItWasOpen) {
    press(Name, "隐藏列");
    desk.onPopup([this](headless::PoppedMenu& menu) {
        grid.ColHidden(Name, true);
        menu.choose("显示隐藏的列", "品名");
    });
    changes = 0;
    desk.rightClick(0, Code);
    EXPECT_EQ(hidden(), (Cols{Name}));
    EXPECT_EQ(changes, 0);
}

TEST_F(HeaderMenuTest, IsNotThereWithoutAHeader) {
    grid.FixedRows(0);
    EXPECT_FALSE(grid.CanRun(Command::HeaderMenu));
}
}  // namespace
}  // namespace kxVsGrid::testing
