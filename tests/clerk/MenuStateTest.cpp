// Which items a right click shows: by the Shift state, the default texts, the data type of the current column
// and whether the grid can be changed.
#include <array>
#include <stdexcept>

#include "kit/MenuTest.h"

namespace kxVsGrid::testing {
namespace {

enum class Defaults { None, Name, Code, Both };
constexpr std::array AllDefaults{Defaults::None, Defaults::Name, Defaults::Code, Defaults::Both};
/// The named data types, and numbers that name none.
constexpr std::array<std::int32_t, 11> AllTypes{5, 7, 8, 11, 0, 1, 4, 6, 9, -1, 99};

/// What a click depends on.
struct Click {
    std::int16_t shift = 0;
    Defaults defaults = Defaults::None;
    std::int32_t type = 8;
};

std::string described(const Click& click) {
    return "Shift " + std::to_string(click.shift) + ", default texts " +
           std::to_string(static_cast<int>(click.defaults)) + ", type " + std::to_string(click.type);
}

std::string item(std::int32_t index, std::string_view caption, bool visible, bool enabled = true) {
    std::string entry = std::to_string(index) + ' ' + std::string(caption);
    if (!visible) entry += " hidden";
    if (!enabled) entry += " disabled";
    return entry;
}
Lines shown(const std::vector<MenuItem>& items) {
    Lines lines;
    for (const MenuItem& one : items) lines.push_back(item(one.index, one.caption, one.visible, one.enabled));
    return lines;
}

/// The menu that a click has to bring, written down from the rules.
Lines expectedRows(const Click& click) {
    const bool several = click.shift == 2;
    const bool defaults = click.defaults != Defaults::None;
    const bool fills = click.type == 5 || click.type == 7 || click.type == 8;
    return {item(1, "新增行", !several),
            item(2, "复制行", true),
            item(3, "插入行", !several),
            item(4, "复制插入行", true),
            item(5, "新增..行", several),
            item(6, "插入..行", several),
            item(10, "-", defaults),
            item(11, "新增空行", defaults && !several),
            item(12, "插入空行", defaults && !several),
            item(13, "新增空行..行", defaults && several),
            item(14, "插入空白..行", defaults && several),
            item(20, "-", true),
            item(21, "删除行", true),
            item(30, "-", fills),
            item(31, "填充列", fills)};
}
/// The submenu; of no account while the item that it stands under is hidden.
Lines expectedFills(std::int32_t type) {
    const bool dates = type == 7;
    return {item(1, "序列方式填充(&S)", true, type != 8), item(2, "以天数填充(&D)", dates),
            item(3, "以年填充(&Y)", dates), item(4, "以月填充(&M)", dates), item(5, "复制单元格(&C)", true)};
}

class MenuState : public MenuTest {
  protected:
    void set(const Click& click) {
        for (int c = 1; c < 6; ++c) {
            column(c).sDefaultText_Name("");
            column(c).sDefaultText_Code("");
        }
        if (click.defaults == Defaults::Name || click.defaults == Defaults::Both)
            column(4).sDefaultText_Name("件");
        if (click.defaults == Defaults::Code || click.defaults == Defaults::Both)
            column(5).sDefaultText_Code("01");
        column(2).iType(static_cast<mEmDataType>(click.type));
    }
    void expectMenuOf(const Click& click) {
        SCOPED_TRACE(described(click));
        const Menu& menu = desk.lastMenu();
        EXPECT_EQ(menu.name, "menuVs");
        EXPECT_EQ(menu.caption, "弹出菜单");
        EXPECT_EQ(menu.array, "mnuVs");
        EXPECT_EQ(shown(menu.items), expectedRows(click));
        ASSERT_EQ(menu.submenus.size(), 1U);
        EXPECT_EQ(menu.submenus[0].parent, 31);
        EXPECT_EQ(menu.submenus[0].array, "mnuFill");
        if (click.type == 5 || click.type == 7 || click.type == 8) {
            EXPECT_EQ(shown(menu.submenus[0].items), expectedFills(click.type));
        }
    }
    void expectCopyMenu() {
        const Menu& menu = desk.lastMenu();
        EXPECT_EQ(menu.name, "copyMenu");
        EXPECT_EQ(menu.caption, "复制数据");
        EXPECT_EQ(menu.array, "copyCell");
        ASSERT_EQ(menu.items.size(), 1U);
        EXPECT_EQ(menu.items[0].caption, "复制单元格");
        EXPECT_TRUE(menu.items[0].visible);
        EXPECT_TRUE(menu.items[0].enabled);
        EXPECT_TRUE(menu.submenus.empty());
    }
};

TEST_F(MenuState, FollowsShiftDefaultTextsAndTypeInEveryCombination) {
    at(2, 2);
    for (std::int16_t shift = 0; shift < 8; ++shift)
        for (const Defaults defaults : AllDefaults)
            for (const std::int32_t type : AllTypes) {
                const Click click{shift, defaults, type};
                set(click);
                desk.clear();
                desk.rightClick(2, 2, shift);
                expectMenuOf(click);
            }
}

TEST_F(MenuState, OfOneClickLeavesNothingToTheNext) {
    std::vector<Click> clicks;
    for (std::int16_t shift = 0; shift < 4; ++shift)
        for (const Defaults defaults : {Defaults::None, Defaults::Both})
            for (const std::int32_t type : {5, 7, 8, 11}) clicks.push_back({shift, defaults, type});
    at(2, 2);
    for (const Click& before : clicks)
        for (const Click& click : clicks) {
            SCOPED_TRACE("after " + described(before));
            set(before);
            desk.rightClick(2, 2, before.shift);
            set(click);
            desk.rightClick(2, 2, click.shift);
            expectMenuOf(click);
        }
}

TEST_F(MenuState, OfAGridThatCannotBeChangedOffersTheCopyAlone) {
    grid.Editable(false);
    at(2, 2);
    for (std::int16_t shift = 0; shift < 8; ++shift)
        for (const std::int32_t type : AllTypes) {
            set({shift, Defaults::Both, type});
            desk.clear();
            desk.rightClick(2, 2, shift);
            expectCopyMenu();
        }
}

TEST_F(MenuState, ComesBackWholeWhenTheGridCanBeChangedAgain) {
    grid.Editable(false);
    desk.rightClick(2, 2);
    grid.Editable(true);
    at(2, 2);
    set({0, Defaults::None, 7});
    desk.rightClick(2, 2);
    expectMenuOf({0, Defaults::None, 7});
}

TEST_F(MenuState, FollowsTheTypeOfThePressedColumn) {
    column(2).iType(flexDTDate);
    column(3).iType(flexDTBoolean);
    at(2, 2);
    desk.rightClick(4, 3);
    expectMenuOf({0, Defaults::None, 11});
    at(2, 3);
    desk.rightClick(4, 2);
    expectMenuOf({0, Defaults::None, 7});
}

TEST_F(MenuState, CountsDefaultTextsOfEveryScrollableColumnHiddenOnesIncluded) {
    for (int c = 1; c < 6; ++c) {
        set({});
        column(c).sDefaultText_Name("件");
        grid.ColHidden(c, true);
        at(2, 2);
        desk.rightClick(0, c == 1 ? 2 : 1);
        grid.ColHidden(c, false);
        expectMenuOf({0, Defaults::Name, 8});
    }
}

TEST_F(MenuState, CountsNoDefaultTextsOfFixedColumnsNorOfTheSpareDefinition) {
    for (const int c : {0, 6}) {
        column(c).sDefaultText_Name("件");
        column(c).sDefaultText_Code("01");
    }
    at(2, 2);
    desk.rightClick(2, 2);
    expectMenuOf({});
    grid.FixedCols(3);
    column(2).sDefaultText_Name("件");
    at(2, 3);
    desk.rightClick(2, 3);
    expectMenuOf({});
}

TEST_F(MenuState, CountsNoDefaultTextOfBlanks) {
    column(3).sDefaultText_Name("   ");
    column(3).sDefaultText_Code(" ");
    desk.rightClick(2, 2);
    expectMenuOf({});
}

TEST_F(MenuState, CountsADefaultTextThatRefersToAnotherCell) {
    column(3).sDefaultText_Code("[-1,]");
    desk.rightClick(2, 2);
    expectMenuOf({0, Defaults::Code, 8});
}

TEST_F(MenuState, LetsNobodyChooseWhatIsHiddenOrDisabled) {
    at(2, 2);
    EXPECT_THROW(run(caption::AddRows), std::logic_error);
    EXPECT_THROW(run(caption::AddEmptyRow), std::logic_error);
    EXPECT_THROW(run(caption::AddRow, CtrlKey), std::logic_error);
    EXPECT_THROW(fillBy(caption::Series), std::logic_error);
    EXPECT_THROW(fillBy(caption::Days), std::logic_error);
    typed(2, flexDTBoolean);
    EXPECT_THROW(fillBy(caption::Copies), std::logic_error);
    EXPECT_EQ(grid.Rows(), 6);
}

class MenuPress : public MenuState {};

TEST_F(MenuPress, TellsTheHostFirstAndPopsTheMenuUpWhereTheMouseIs) {
    const Rect grids = grid.gridRect();
    Lines seen;
    grid.MouseDown.connect([&](std::int16_t button, std::int16_t shift, float x, float y, bool& cancel) {
        seen = {std::to_string(button), std::to_string(shift), std::to_string(static_cast<int>(x)),
                std::to_string(static_cast<int>(y)), cancel ? "True" : "False"};
        EXPECT_FALSE(popped());
    });
    Rect anchor;
    desk.onPopup([&](headless::PoppedMenu& menu) { anchor = menu.anchor(); });
    desk.mouseDown(RightButton, CtrlKey, grids.left + 2345, grids.top + 765);
    EXPECT_EQ(seen, (Lines{"2", "2", "2345", "765", "False"}));
    EXPECT_EQ(anchor.left, headless::Desk::ScreenLeft + grids.left + 2345);
    EXPECT_EQ(anchor.top, headless::Desk::ScreenTop + grids.top + 765);
}

TEST_F(MenuPress, OnlyMovesWhenTheMenuIsLeft) {
    at(2, 2);
    desk.rightClick(4, 4);
    EXPECT_TRUE(popped());
    EXPECT_EQ(heardWithoutPlaces(), moves(2, 2, 4, 4) + Lines{"MouseDown"});
    EXPECT_EQ(current(), (Cell{4, 4}));
    EXPECT_EQ(grid.Rows(), 6);
    EXPECT_EQ(desk.waits(), 0);
}

TEST_F(MenuPress, IsCancelledByTheHost) {
    grid.MouseDown.connect([](std::int16_t, std::int16_t, float, float, bool& cancel) { cancel = true; });
    desk.rightClick(2, 2);
    desk.rightClick(2, 2, CtrlKey);
    EXPECT_FALSE(popped());
    grid.Editable(false);
    desk.rightClick(2, 2);
    EXPECT_FALSE(popped());
}

TEST_F(MenuPress, GoesOnWhenALaterListenerTakesTheCancelBack) {
    grid.MouseDown.connect([](std::int16_t, std::int16_t, float, float, bool& cancel) { cancel = true; });
    grid.MouseDown.connect([](std::int16_t, std::int16_t, float, float, bool& cancel) {
        EXPECT_TRUE(cancel);
        cancel = false;
    });
    desk.rightClick(2, 2);
    EXPECT_TRUE(popped());
}

TEST_F(MenuPress, OfTheOtherButtonsBringsNoMenu) {
    for (const bool editable : {true, false}) {
        grid.Editable(editable);
        for (std::int16_t shift = 0; shift < 8; ++shift) {
            desk.mouseDown(LeftButton, shift, 1500, 700);
            desk.mouseUp(LeftButton, shift, 1500, 700);
            desk.mouseDown(MiddleButton, shift, 1500, 700);
            desk.mouseUp(MiddleButton, shift, 1500, 700);
        }
    }
    EXPECT_FALSE(popped());
    EXPECT_EQ(named(heardWithoutPlaces(), "MouseDown"), Lines(32, "MouseDown"));
}

TEST_F(MenuPress, OnHeadersAndBelowTheRowsBringsTheMenuToo) {
    desk.rightClick(0, 3);
    EXPECT_TRUE(popped());
    desk.clear();
    desk.rightClick(3, 0);
    EXPECT_TRUE(popped());
    desk.clear();
    desk.mouseDown(RightButton, 0, 8500, 5000);
    EXPECT_TRUE(popped());
}

TEST_F(MenuPress, SeesWhatTheHostChangedWhenItHeardOfThePress) {
    at(2, 2);
    grid.MouseDown.connect([&](std::int16_t, std::int16_t, float, float, bool&) {
        column(2).iType(flexDTDate);
        column(3).sDefaultText_Name("件");
    });
    desk.rightClick(2, 2);
    expectMenuOf({0, Defaults::Name, 7});
    grid.MouseDown.connect([&](std::int16_t, std::int16_t, float, float, bool&) { grid.Editable(false); });
    desk.rightClick(2, 2);
    expectCopyMenu();
}

TEST_F(MenuPress, CommitsAnOpenEditorFirst) {
    at(2, 2);
    desk.type("abc");
    heard();
    std::string seen;
    desk.onPopup([&](headless::PoppedMenu&) { seen = text(2, 2); });
    desk.rightClick(3, 3);
    EXPECT_EQ(seen, "abc");
    EXPECT_EQ(without(heardWithoutPlaces(), "Click"),
              changed(2, 2) + edited(2, 2) + moves(2, 2, 3, 3) + Lines{"MouseDown"});
}

TEST_F(MenuPress, IsNotDeliveredWhileTheOpenTextIsRefused) {
    typed(2, flexDTDouble);
    at(2, 2);
    desk.type("abc");
    heard();
    desk.rightClick(3, 3);
    EXPECT_FALSE(popped());
    EXPECT_EQ(heard(), Lines{});
    EXPECT_TRUE(open());
}

class MenuKey : public MenuState {
  protected:
    Rect placeOf(std::int32_t row, std::int32_t col) const {
        Rect cell = grid.Grid().CellRect(row, col);
        cell.left += grid.gridRect().left + headless::Desk::ScreenLeft;
        cell.top += grid.gridRect().top + headless::Desk::ScreenTop;
        return cell;
    }
    /// The place lies in the cell or on its edge.
    static void expectAt(const Rect& place, const Rect& cell) {
        EXPECT_GE(place.left, cell.left);
        EXPECT_LE(place.left, cell.left + cell.width);
        EXPECT_GE(place.top, cell.top);
        EXPECT_LE(place.top, cell.top + cell.height);
    }
};

TEST_F(MenuKey, PopsTheMenuUpAtTheCurrentCell) {
    for (const bool f10 : {false, true})
        for (const Cell cell : {Cell{1, 1}, Cell{3, 4}}) {
            at(cell.row, cell.col);
            Rect anchor;
            desk.onPopup([&](headless::PoppedMenu& menu) { anchor = menu.anchor(); });
            desk.clear();
            f10 ? desk.press(Key::F10, ShiftKey) : desk.press(Key::Menu);
            ASSERT_TRUE(popped());
            expectAt(anchor, placeOf(cell.row, cell.col));
            EXPECT_EQ(current(), cell);
        }
}

TEST_F(MenuKey, TellsTheHostOfAPressOfTheRightButtonInTheCell) {
    at(3, 4);
    std::vector<std::int16_t> buttons;
    grid.MouseDown.connect([&](std::int16_t button, std::int16_t, float x, float y, bool&) {
        buttons.push_back(button);
        const GridHit hit = grid.Grid().HitTest(static_cast<std::int32_t>(x), static_cast<std::int32_t>(y));
        EXPECT_EQ((Cell{hit.row, hit.col}), (Cell{3, 4})) << "a host may look up what was pressed";
        EXPECT_FALSE(popped());
    });
    desk.press(Key::Menu);
    EXPECT_TRUE(popped());
    desk.clear();
    desk.press(Key::F10, ShiftKey);
    EXPECT_TRUE(popped());
    EXPECT_EQ(buttons, (std::vector<std::int16_t>{RightButton, RightButton}));
    EXPECT_EQ(heardWithoutPlaces(), (Lines{"MouseDown", "MouseDown"}));
}

TEST_F(MenuKey, IsCancelledByTheHost) {
    grid.MouseDown.connect([](std::int16_t, std::int16_t, float, float, bool& cancel) { cancel = true; });
    desk.press(Key::Menu);
    desk.press(Key::F10, ShiftKey);
    EXPECT_FALSE(popped());
}

TEST_F(MenuKey, ShowsTheSameItemsAsAPress) {
    at(2, 2);
    for (const std::int16_t shift : std::array<std::int16_t, 4>{0, 2, 4, 6})
        for (const Defaults defaults : {Defaults::None, Defaults::Both})
            for (const std::int32_t type : {5, 7, 8, 11}) {
                const Click click{shift, defaults, type};
                set(click);
                desk.clear();
                desk.press(Key::Menu, shift);
                ASSERT_TRUE(popped()) << described(click);
                expectMenuOf(click);
            }
}

TEST_F(MenuKey, ShiftF10ShowsTheItemsOfAPressAloneAndWithCtrlThoseOfACtrlPress) {
    at(2, 2);
    set({0, Defaults::Both, 7});
    desk.press(Key::F10, ShiftKey);
    expectMenuOf({0, Defaults::Both, 7});
    desk.press(Key::F10, ShiftKey | CtrlKey);
    expectMenuOf({2, Defaults::Both, 7});
    desk.press(Key::Menu, ShiftKey | CtrlKey);
    expectMenuOf({3, Defaults::Both, 7});
}

TEST_F(MenuKey, F10WithoutShiftBringsNoMenu) {
    desk.press(Key::F10);
    desk.press(Key::F10, CtrlKey);
    EXPECT_FALSE(popped());
    EXPECT_EQ(heard(), Lines{});
}

TEST_F(MenuKey, OffersTheCopyOnAGridThatCannotBeChanged) {
    grid.Editable(false);
    desk.press(Key::Menu);
    expectCopyMenu();
    desk.clear();
    desk.press(Key::F10, ShiftKey);
    expectCopyMenu();
}

TEST_F(MenuKey, CarriesTheChosenCommandOut) {
    at(2, 2);
    desk.onPopup([](headless::PoppedMenu& menu) { menu.choose(caption::AddRow); });
    desk.press(Key::Menu);
    EXPECT_EQ(told(), asksTheHost(2) + moves(2, 2, 6, 2) + fillsInPlace(6, 2) + tellsTheHost(6, false, 2));
    desk.press(Key::F10, ShiftKey);
    EXPECT_EQ(grid.Rows(), 8);
}

TEST_F(MenuKey, InTheOpenEditorBelongsToTheTextBox) {
    at(2, 2);
    desk.type("abc");
    heard();
    desk.press(Key::Menu);
    desk.press(Key::F10, ShiftKey);
    EXPECT_FALSE(popped());
    EXPECT_EQ(heard(), Lines{});
    EXPECT_TRUE(open());
    EXPECT_EQ(desk.editor().text, "abc");
}

TEST_F(MenuKey, BringsACellThatWasScrolledAwayIntoViewFirst) {
    rows(60);
    at(3, 4);
    desk.scrollTo(40, 1);
    Rect anchor;
    desk.onPopup([&](headless::PoppedMenu& menu) { anchor = menu.anchor(); });
    desk.press(Key::Menu);
    EXPECT_TRUE(grid.Grid().RowIsVisible(3));
    expectAt(anchor, placeOf(3, 4));
}

TEST_F(MenuKey, ScrollsNothingAndTypesNothing) {
    rows(60);
    desk.press(Key::Menu);
    EXPECT_FALSE(open());
    EXPECT_EQ(grid.Grid().TopRow(), 1);
}

}  // namespace
}  // namespace kxVsGrid::testing
