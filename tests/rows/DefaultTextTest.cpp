// Default texts of an entered row: plain ones, and references to other cells.
#include "kit/ClerkTest.h"

namespace kxVsGrid::testing {
namespace {

class DefaultTexts : public ClerkTest {
  protected:
    void defaults(std::int32_t col, std::string_view name, std::string_view code = {}) {
        column(col).sDefaultText_Name(name);
        column(col).sDefaultText_Code(code);
    }
};

TEST_F(DefaultTexts, AreWrittenIntoAnEnteredRow) {
    defaults(3, "件", "01");
    desk.press(Key::Down);
    EXPECT_EQ(text(2, 3), "件");
    EXPECT_EQ(tag(2, 3), "01");
    EXPECT_EQ(heard(), asks(1, 1, 2, 1) + arrives() + changed(2, 3) + changed(2, 3) + settles(1, 1, 2, 1));
}

TEST_F(DefaultTexts, AreNotWrittenIntoTheFirstDataRow) {
    defaults(3, "件");
    at(2, 1);
    desk.press(Key::Up);
    EXPECT_EQ(current(), (Cell{1, 1}));
    EXPECT_EQ(text(1, 3), "");
}

TEST_F(DefaultTexts, FillEveryColumnOfTheDataArea) {
    for (int c = 0; c < 6; ++c) defaults(c, "x" + std::to_string(c));
    readOnly(2);
    grid.ColHidden(3, true);
    const std::string number = text(2, 0);
    log.clear();
    desk.press(Key::Down);
    EXPECT_EQ(text(2, 0), number);
    for (int c = 1; c < 6; ++c) EXPECT_EQ(text(2, c), "x" + std::to_string(c));
    EXPECT_EQ(named(heard(), "CellChanged"),
              changed(2, 1) + changed(2, 2) + changed(2, 3) + changed(2, 4) + changed(2, 5));
}

TEST_F(DefaultTexts, LeaveACellWithATextAlone) {
    defaults(3, "件", "01");
    fill(2, 3, "箱", "02");
    desk.press(Key::Down);
    EXPECT_EQ(text(2, 3), "箱");
    EXPECT_EQ(tag(2, 3), "02");
    EXPECT_EQ(heard(), moves(1, 1, 2, 1));
}

TEST_F(DefaultTexts, FillACellThatHasOnlyATag) {
    defaults(3, "件", "01");
    grid.Grid().Data(2, 3, "02");
    log.clear();
    desk.press(Key::Down);
    EXPECT_EQ(text(2, 3), "件");
    EXPECT_EQ(tag(2, 3), "01");
}

TEST_F(DefaultTexts, ThatAreEmptyLeaveTextAndTag) {
    defaults(3, "", "");
    grid.Grid().Data(2, 3, "02");
    log.clear();
    desk.press(Key::Down);
    EXPECT_EQ(tag(2, 3), "02");
    EXPECT_EQ(heard(), moves(1, 1, 2, 1));
}

TEST_F(DefaultTexts, OfOneHalfLeaveTheOther) {
    defaults(2, "件", "");
    defaults(3, "", "01");
    grid.Grid().Data(2, 2, "kept");
    log.clear();
    desk.press(Key::Down);
    EXPECT_EQ(text(2, 2), "件");
    EXPECT_EQ(tag(2, 2), "kept");
    EXPECT_EQ(text(2, 3), "");
    EXPECT_EQ(tag(2, 3), "01");
}

TEST_F(DefaultTexts, AreNotWrittenWhenTheGridIsNotEditable) {
    defaults(3, "件");
    grid.Editable(false);
    log.clear();
    desk.press(Key::Down);
    EXPECT_EQ(text(2, 3), "");
    EXPECT_EQ(heard(), moves(1, 1, 2, 1));
}

TEST_F(DefaultTexts, AreWrittenAgainWhenACellOfTheRowWasEmptied) {
    defaults(3, "件");
    desk.press(Key::Down);
    grid.SetCell(2, 3, "");
    log.clear();
    desk.press(Key::Right);
    EXPECT_EQ(heard(), asks(2, 1, 2, 2) + arrives() + changed(2, 3) + settles(2, 1, 2, 2));
}

TEST_F(DefaultTexts, AreInTheTotalsWhenTheHostHearsOfTheMove) {
    summed(3);
    defaults(3, "5");
    std::string total;
    grid.AfterRowColChange.connect([&](auto, auto, auto, auto) { total = grid.ReadSum(3); });
    desk.press(Key::Down);
    EXPECT_EQ(total, "5");
    desk.press(Key::Down);
    EXPECT_EQ(total, "10");
}

TEST_F(DefaultTexts, OfTheCurrentCellReachTheHiddenEditor) {
    defaults(1, "件", "01");
    desk.press(Key::Down);
    EXPECT_EQ(grid.Text(), "件");
    EXPECT_EQ(grid.TextTag(), "01");
    desk.press(Key::Space);
    EXPECT_EQ(desk.editor().text, "件");
    EXPECT_EQ(desk.editor().tag, "01");
}

TEST_F(DefaultTexts, AreReadAfreshAtEachUse) {
    defaults(3, "件");
    desk.press(Key::Down);
    defaults(3, "箱");
    desk.press(Key::Down);
    EXPECT_EQ(text(2, 3), "件");
    EXPECT_EQ(text(3, 3), "箱");
}

TEST_F(DefaultTexts, FollowTheCellWhenTheHostHasMovedItOn) {
    defaults(3, "件");
    bool once = true;
    grid.RowColChange.connect([&] {
        if (std::exchange(once, false)) grid.Row(4);
    });
    desk.press(Key::Down);
    EXPECT_EQ(text(4, 3), "件");
    EXPECT_EQ(text(3, 3), "");
}

/// One default text that refers to another cell, entered in row 3 with a neighbourhood of known cells.
struct Reference {
    std::string text;
    std::string name;
    std::string code;
};
std::ostream& operator<<(std::ostream& out, const Reference& reference) {
    return out << reference.text << " gives \"" << reference.name << '"';
}

class DefaultReferences : public DefaultTexts, public ::testing::WithParamInterface<Reference> {
  protected:
    DefaultReferences() {
        for (int r = 1; r < 6; ++r)
            for (int c = 1; c < 6; ++c)
                if (r != 3 || c != 3) fill(r, c, name(r, c), "#" + name(r, c));
        fill(0, 3, "caption", "#caption");
        fill(3, 0, "number", "#number");
        fill(2, 5, "");
        at(1, 1);
    }
    static std::string name(int r, int c) { return "r" + std::to_string(r) + "c" + std::to_string(c); }
};

TEST_P(DefaultReferences, CopyTextAndTagOfTheCellTheyName) {
    const Reference& reference = GetParam();
    defaults(3, reference.text, reference.text);
    grid.Grid().Select(3, 1);
    EXPECT_EQ(text(3, 3), reference.name) << desk.ascii();
    EXPECT_EQ(tag(3, 3), reference.code);
}

INSTANTIATE_TEST_SUITE_P(
    All, DefaultReferences,
    ::testing::Values(Reference{"[-1,]", "r2c3", "#r2c3"}, Reference{"[,+1]", "r3c4", "#r3c4"},
                      Reference{"[,-1]", "r3c2", "#r3c2"}, Reference{"[+1,]", "r4c3", "#r4c3"},
                      Reference{"[-2,-2]", "r1c1", "#r1c1"}, Reference{"[+2,+2]", "r5c5", "#r5c5"},
                      Reference{"[2,1]", "r2c1", "#r2c1"}, Reference{"[5,]", "r5c3", "#r5c3"},
                      Reference{"[,5]", "r3c5", "#r3c5"}, Reference{"[+1,2]", "r4c2", "#r4c2"},
                      Reference{"[1,-1]", "r1c2", "#r1c2"}, Reference{" [-1,] ", "r2c3", "#r2c3"},
                      // The cell itself is empty, so it gives nothing.
                      Reference{"[,]", "", ""},
                      // Fixed rows and columns, and cells outside of the grid, give nothing.
                      Reference{"[0,]", "", ""}, Reference{"[-3,]", "", ""}, Reference{"[-4,]", "", ""},
                      Reference{"[,0]", "", ""}, Reference{"[,-3]", "", ""}, Reference{"[,-4]", "", ""},
                      Reference{"[6,]", "", ""}, Reference{"[+3,]", "", ""}, Reference{"[,6]", "", ""},
                      Reference{"[,+3]", "", ""}, Reference{"[99999,1]", "", ""},
                      // An empty cell gives nothing.
                      Reference{"[2,5]", "", ""},
                      // Not written in brackets on both sides: a text like any other.
                      Reference{"[-1,", "[-1,", "[-1,"}, Reference{"-1,]", "-1,]", "-1,]"},
                      Reference{"-1,", "-1,", "-1,"}));

TEST_F(DefaultTexts, ThatReferToACellWithAnEmptyTextWriteNoTagEither) {
    grid.Grid().Data(2, 3, "01");
    defaults(3, "", "[-1,]");
    at(1, 1);
    grid.Grid().Select(3, 1);
    EXPECT_EQ(tag(3, 3), "");
    EXPECT_EQ(named(heard(), "CellChanged"), Lines{});
}

TEST_F(DefaultTexts, ResolveEachHalfOnItsOwn) {
    fill(2, 3, "above", "#above");
    fill(3, 4, "right", "#right");
    defaults(3, "[-1,]", "[,+1]");
    at(1, 1);
    grid.Grid().Select(3, 1);
    EXPECT_EQ(text(3, 3), "above");
    EXPECT_EQ(tag(3, 3), "#right");
}

TEST_F(DefaultTexts, MixAReferenceWithAPlainText) {
    fill(2, 3, "above", "#above");
    defaults(3, "[-1,]", "01");
    at(1, 1);
    grid.Grid().Select(3, 1);
    EXPECT_EQ(text(3, 3), "above");
    EXPECT_EQ(tag(3, 3), "01");
}

TEST_F(DefaultTexts, CopyTheTextAndNotWhatItsFormatShows) {
    typed(3, flexDTDouble);
    grid.ColFormat(3, "#,##0.00");
    fill(2, 3, "1234.5");
    defaults(3, "[-1,]");
    at(1, 1);
    grid.Grid().Select(3, 1);
    EXPECT_EQ(text(3, 3), "1234.5");
}

TEST_F(DefaultTexts, AreFilledFromLeftToRight) {
    defaults(1, "a");
    defaults(2, "[,-1]");
    defaults(3, "[,+1]");
    defaults(4, "b");
    desk.press(Key::Down);
    EXPECT_EQ(text(2, 2), "a");
    EXPECT_EQ(text(2, 3), "");
    EXPECT_EQ(text(2, 4), "b");
}

TEST_F(DefaultTexts, CarryARowOnDownwards) {
    fill(1, 2, "件", "01");
    defaults(2, "[-1,]", "[-1,]");
    for (int i = 0; i < 4; ++i) desk.press(Key::Down);
    EXPECT_EQ(text(5, 2), "件");
    EXPECT_EQ(tag(5, 2), "01");
}

}  // namespace
}  // namespace kxVsGrid::testing
