// The menu of a grid that cannot be changed: the current cell goes to the clipboard.
#include "kit/MenuTest.h"

namespace kxVsGrid::testing {
namespace {

class CopyCell : public MenuTest {
  protected:
    CopyCell() {
        grid.Editable(false);
        log.clear();
    }
};

TEST_F(CopyCell, PutsTheTextOfThePressedCellOnTheClipboard) {
    fill(2, 3, "螺栓 M8", "A001");
    fill(4, 4, "there");
    at(2, 3);
    desk.onPopup([](headless::PoppedMenu& menu) { menu.choose(caption::CopyCell); });
    desk.rightClick(4, 4);
    EXPECT_EQ(desk.clipboard(), "there");
    EXPECT_EQ(heardWithoutPlaces(), moves(2, 3, 4, 4) + Lines{"MouseDown"});
    EXPECT_EQ(current(), (Cell{4, 4}));
}

TEST_F(CopyCell, PutsTheTextThereAsTheColumnShowsIt) {
    column(3).iType(flexDTDouble);
    grid.ColFormat(3, "#,##0.00");
    fill(2, 3, "1234.5");
    at(2, 3);
    run(caption::CopyCell);
    EXPECT_EQ(desk.clipboard(), "1,234.50");
    grid.ColFormat(4, "yyyy年mm月dd日");
    fill(2, 4, "2010-1-31");
    at(2, 4);
    run(caption::CopyCell);
    EXPECT_EQ(desk.clipboard(), "2010年01月31日");
}

TEST_F(CopyCell, KeepsEveryByteOfTheText) {
    for (const std::string content : {"a\nb", " x ", "\xF0\x9F\x98\x80", "a&b", "\t"}) {
        fill(2, 3, content);
        at(2, 3);
        run(caption::CopyCell);
        EXPECT_EQ(desk.clipboard(), content);
    }
}

TEST_F(CopyCell, OfAnEmptyCellEmptiesTheClipboard) {
    fill(2, 3, "x");
    at(2, 3);
    run(caption::CopyCell);
    at(3, 3);
    run(caption::CopyCell);
    EXPECT_EQ(desk.clipboard(), "");
}

TEST_F(CopyCell, WorksWithEachShiftStateAndInEveryKindOfColumn) {
    for (std::int16_t shift = 0; shift < 8; ++shift)
        for (const mEmDataType type : {flexDTDouble, flexDTDate, flexDTString, flexDTBoolean, flexDTEmpty}) {
            typed(3, type);
            fill(2, 3, "-1");
            grid.Grid().Text(2, 3, "-1");
            at(2, 3);
            desk.clear();
            run(caption::CopyCell, shift);
            EXPECT_EQ(desk.clipboard(), "-1");
        }
}

TEST_F(CopyCell, IsChosenByItsIndexLikeAnyItem) {
    fill(2, 3, "x");
    at(2, 3);
    desk.onPopup([](headless::PoppedMenu& menu) { menu.choose(menu.menu().items.at(0).index); });
    desk.press(Key::Menu);
    EXPECT_EQ(desk.clipboard(), "x");
}

TEST_F(CopyCell, LeavesTheClipboardAloneWhenTheMenuIsLeft) {
    fill(2, 3, "x");
    at(2, 3);
    run(caption::CopyCell);
    fill(2, 3, "y");
    desk.rightClick(2, 3);
    EXPECT_EQ(desk.clipboard(), "x");
}

TEST_F(CopyCell, ChangesNothing) {
    fill(2, 3, "x", "y");
    at(2, 3);
    run(caption::CopyCell);
    EXPECT_EQ(text(2, 3), "x");
    EXPECT_EQ(tag(2, 3), "y");
    EXPECT_EQ(grid.Rows(), 6);
    EXPECT_FALSE(grid.bIsDirty());
}

TEST_F(CopyCell, IsOfferedToTheKeyboardAndCarriedOut) {
    fill(2, 3, "x");
    at(2, 3);
    desk.onPopup([](headless::PoppedMenu& menu) { menu.choose(caption::CopyCell); });
    desk.press(Key::F10, ShiftKey);
    EXPECT_EQ(desk.clipboard(), "x");
}

}  // namespace
}  // namespace kxVsGrid::testing
