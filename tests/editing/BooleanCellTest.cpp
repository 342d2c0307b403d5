// Boolean cells have no editor: a key or a double click toggles them between the texts -1 and 0.
#include "kit/ClerkTest.h"

namespace kxVsGrid::testing {
namespace {

class BooleanCell : public ClerkTest {
  protected:
    BooleanCell() {
        typed(2, flexDTBoolean);
        at(2, 2);
    }
    /// What the host heard, apart from the notice that an edit begins.
    Lines heardOfIt() { return without(heard(), "BeforeTextEdit"); }
};

TEST_F(BooleanCell, BecomesTrueAndFalseInTurn) {
    desk.type(" ");
    EXPECT_EQ(text(2, 2), "-1");
    EXPECT_EQ(heardOfIt(), changed(2, 2) + edited(2, 2));
    EXPECT_FALSE(open());
    EXPECT_EQ(desk.focusOwner(), FocusPlace::Grid);
    desk.type(" ");
    EXPECT_EQ(text(2, 2), "0");
    EXPECT_EQ(heardOfIt(), changed(2, 2) + edited(2, 2));
    desk.type(" ");
    EXPECT_EQ(text(2, 2), "-1");
}

TEST_F(BooleanCell, IsToggledOnceByAnyCharacter) {
    for (const char* character : {"x", "1", "品", "-"}) {
        grid.Grid().Text(2, 2, "0");
        log.clear();
        desk.type(character);
        EXPECT_EQ(text(2, 2), "-1") << character;
        EXPECT_EQ(heardOfIt(), changed(2, 2) + edited(2, 2)) << character;
        EXPECT_FALSE(open()) << character;
    }
}

TEST_F(BooleanCell, IsToggledByEachOfSeveralCharacters) {
    desk.type("xyz");
    EXPECT_EQ(text(2, 2), "-1");
    EXPECT_EQ(named(heard(), "AfterEdit").size(), 3u);
}

TEST_F(BooleanCell, IsToggledByTheNumberOfItsText) {
    const std::pair<const char*, const char*> texts[] = {{"", "-1"},    {"0", "-1"},   {"-1", "0"},
                                                         {"1", "0"},    {"2.5", "0"},  {"abc", "-1"},
                                                         {"0.0", "-1"}, {"7 pcs", "0"}};
    for (const auto& [before, after] : texts) {
        grid.Grid().Text(2, 2, before);
        desk.type(" ");
        EXPECT_EQ(text(2, 2), after) << before;
    }
}

TEST_F(BooleanCell, KeepsItsTag) {
    grid.Grid().Data(2, 2, "tag");
    desk.type(" ");
    EXPECT_EQ(tag(2, 2), "tag");
}

TEST_F(BooleanCell, SetsTheChangedDataFlagAndTheTotalBeforeTheHostHears) {
    column(2).b是否合计数据(true);
    grid.SumRow(true);
    grid.ReDraw(true);
    bool dirty = false;
    std::string total;
    grid.AfterEdit.connect([&](std::int32_t, std::int32_t) {
        dirty = grid.bIsDirty();
        total = grid.ReadSum(2);
    });
    desk.type(" ");
    EXPECT_TRUE(dirty);
    EXPECT_EQ(total, "-1");
}

TEST_F(BooleanCell, OnTheLastRowAsksForARowFirst) {
    at(5, 2);
    desk.type("x");
    EXPECT_EQ(heardOfIt(), asksForRow(5, false) + changed(5, 2) + edited(5, 2));
    desk.type(" ");
    EXPECT_EQ(heardOfIt(), asksForRow(5, false) + changed(5, 2) + edited(5, 2));
    EXPECT_EQ(grid.Rows(), 6);
    consentToRows();
    desk.press(Key::Back);
    EXPECT_EQ(heardOfIt(), asksForRow(5, false) + changed(5, 2) + edited(5, 2));
    EXPECT_EQ(grid.Rows(), 7);
}

TEST_F(BooleanCell, StaysWhenTheColumnIsReadOnly) {
    readOnly(2);
    desk.type("x ");
    desk.doubleClick(2, 2);
    EXPECT_EQ(text(2, 2), "");
    EXPECT_EQ(named(heard(), "AfterEdit"), Lines{});
}

TEST_F(BooleanCell, StaysWhenTheGridIsNotEditable) {
    grid.Editable(false);
    log.clear();
    desk.type("x ");
    EXPECT_EQ(heard(), Lines{});
    EXPECT_EQ(text(2, 2), "");
}

TEST_F(BooleanCell, StaysInTheFixedArea) {
    at(0, 2);
    desk.type("x ");
    EXPECT_EQ(heard(), Lines{});
    EXPECT_EQ(text(0, 2), "");
}

TEST_F(BooleanCell, IsNotChangedByMovingOverIt) {
    desk.press(Key::Up);
    desk.press(Key::Down);
    desk.press(Key::Enter);
    desk.click(3, 2);
    EXPECT_EQ(text(2, 2), "");
    EXPECT_EQ(text(3, 2), "");
    EXPECT_EQ(named(heard(), "AfterEdit"), Lines{});
}

TEST_F(BooleanCell, IsToggledByADoubleClickOnce) {
    desk.doubleClick(2, 2);
    EXPECT_EQ(text(2, 2), "-1");
    EXPECT_EQ(named(heard(), "AfterEdit"), edited(2, 2));
}

}  // namespace
}  // namespace kxVsGrid::testing
