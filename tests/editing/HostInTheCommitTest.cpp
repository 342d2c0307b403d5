// The host works with the control while a commit runs: nothing commits twice, and its calls do what they say.
#include <functional>
#include <stdexcept>

#include "kit/ClerkTest.h"

namespace kxVsGrid::testing {
namespace {

class HostInTheCommit : public ClerkTest {
  protected:
    /// Runs `work` in AfterEdit of a commit of "abc" in (2, 2), and hears what was told.
    Lines during(const std::function<void()>& work) {
        Connection connection = grid.AfterEdit.connect([&](std::int32_t, std::int32_t) { work(); });
        openAt(2, 2);
        desk.type("abc");
        heard();
        EXPECT_TRUE(grid.ValidTextData());
        connection.disconnect();
        EXPECT_FALSE(open());
        return heard();
    }
    const Lines committed = changed(2, 2) + edited(2, 2);
};

TEST_F(HostInTheCommit, WritesOtherCells) {
    EXPECT_EQ(during([&] { grid.SetCell(2, 3, "12", "tag"); }), committed + changed(2, 3) + changed(2, 3));
    EXPECT_EQ(text(2, 3), "12");
    EXPECT_EQ(tag(2, 3), "tag");
    EXPECT_EQ(text(2, 2), "abc");
}

TEST_F(HostInTheCommit, WritesTheCommittedCellItself) {
    EXPECT_EQ(during([&] { grid.SetCell(2, 2, "host", "tag"); }), committed + changed(2, 2) + changed(2, 2));
    EXPECT_EQ(text(2, 2), "host");
    EXPECT_EQ(tag(2, 2), "tag");
}

TEST_F(HostInTheCommit, ReadsTheCommittedCell) {
    std::string read;
    EXPECT_EQ(during([&] { read = grid.ReadCell(2, 2, true); }), committed);
    EXPECT_EQ(read, "abc");
}

TEST_F(HostInTheCommit, HasTheTextCheckedWithoutAnotherCommit) {
    bool valid = false;
    EXPECT_EQ(during([&] { valid = grid.ValidTextData() && grid.IsValid(); }), committed);
    EXPECT_TRUE(valid);
}

TEST_F(HostInTheCommit, HasTheRulesOfTheColumnCheckedAllTheSame) {
    column(2).sName("数量");
    bool valid = true;
    EXPECT_EQ(during([&] {
                  column(2).i是否允许为空(i字段不能为空);
                  valid = grid.ValidTextData();
                  column(2).i是否允许为空(gEmNotAllowEmptyType{});
              }),
              committed);
    EXPECT_FALSE(valid);
    ASSERT_EQ(desk.messages().size(), 1u);
    EXPECT_EQ(desk.messages()[0], (MessageBox{"数量不能为空!", 64, "提示："}));
}

TEST_F(HostInTheCommit, SwitchesEditingOff) {
    EXPECT_EQ(during([&] { grid.Editable(false); }), committed);
    EXPECT_FALSE(grid.Editable());
    EXPECT_FALSE(grid.bIsDirty());
}

TEST_F(HostInTheCommit, MovesTheCell) {
    const Lines lines = during([&] { grid.Grid().Select(4, 4); });
    EXPECT_EQ(lines, committed + moves(2, 2, 4, 4));
    EXPECT_EQ(current(), (Cell{4, 4}));
    EXPECT_EQ(text(2, 2), "abc");
    EXPECT_EQ(text(4, 4), "");
}

TEST_F(HostInTheCommit, TakesTheKeyboardElsewhere) {
    EXPECT_EQ(during([&] { desk.focusElsewhere(); }), committed);
    EXPECT_EQ(desk.focusOwner(), FocusPlace::Elsewhere);
}

TEST_F(HostInTheCommit, AddsARow) {
    const Lines lines = during([&] { grid.AddRow(grid.Rows(), true, false); });
    EXPECT_EQ(named(lines, "AfterEdit"), edited(2, 2));
    EXPECT_EQ(grid.Rows(), 7);
    EXPECT_EQ(text(2, 2), "abc");
}

TEST_F(HostInTheCommit, IsNotHinderedAfterwards) {
    during([&] { grid.ReadCell(1, 1); });
    desk.type("x");
    heard();
    grid.SetCell(4, 4, "y");
    EXPECT_EQ(heard(), changed(2, 2) + edited(2, 2) + changed(4, 4));
}

class HostCommits : public ClerkTest {
  protected:
    HostCommits() {
        fill(4, 4, "other", "code");
        openAt(2, 2);
        desk.type("abc");
    }
    void expectCommittedOnce(const Lines& after = {}) {
        EXPECT_EQ(heard(), changed(2, 2) + edited(2, 2) + after);
        EXPECT_FALSE(open());
        EXPECT_EQ(text(2, 2), "abc");
    }
};

TEST_F(HostCommits, ByWritingACell) {
    log.clear();
    grid.SetCell(4, 4, "new", "code");
    expectCommittedOnce(changed(4, 4));
}

TEST_F(HostCommits, ByWritingTheEditedCellWhichKeepsWhatTheHostWrote) {
    log.clear();
    grid.SetCell(2, 2, "host");
    EXPECT_EQ(heard(), changed(2, 2) + edited(2, 2) + changed(2, 2));
    EXPECT_EQ(text(2, 2), "host");
    EXPECT_FALSE(open());
}

TEST_F(HostCommits, ByReadingACell) {
    log.clear();
    EXPECT_EQ(grid.ReadCell(2, 2, true), "abc");
    expectCommittedOnce();
    EXPECT_EQ(grid.ReadCell(4, 4), "code");
}

TEST_F(HostCommits, ByReadingACellOutsideOfTheGrid) {
    log.clear();
    EXPECT_EQ(grid.ReadCell(99, 1), "");
    expectCommittedOnce();
}

TEST_F(HostCommits, BySwitchingEditingOff) {
    log.clear();
    desk.clear();
    grid.Editable(false);
    expectCommittedOnce();
    EXPECT_FALSE(grid.bIsDirty());
    EXPECT_EQ(desk.reports(), (Lines{"Editable"}));
    grid.Editable(true);
    EXPECT_FALSE(grid.bIsDirty());
}

TEST_F(HostCommits, NotBySwitchingEditingOnAgain) {
    log.clear();
    grid.Editable(true);
    EXPECT_EQ(heard(), Lines{});
    EXPECT_TRUE(open());
}

TEST_F(HostCommits, ByAskingWhetherTheTextIsValid) {
    log.clear();
    EXPECT_TRUE(grid.IsValid());
    expectCommittedOnce();
}

TEST_F(HostCommits, WithAFailingHandlerShowsABoxAndGoesOnWorking) {
    Connection failing =
        grid.AfterEdit.connect([](std::int32_t, std::int32_t) { throw std::runtime_error("no disk"); });
    EXPECT_NO_THROW(grid.SetCell(4, 4, "new", "code"));
    ASSERT_EQ(desk.messages().size(), 1u);
    EXPECT_EQ(desk.messages()[0], (MessageBox{"SetCell Error::no disk", 16, "错误"}));
    EXPECT_EQ(text(2, 2), "abc");
    EXPECT_EQ(text(4, 4), "other");
    EXPECT_EQ(grid.ReadCell(4, 4, true), "");
    ASSERT_EQ(desk.messages().size(), 2u);
    EXPECT_EQ(desk.messages()[1], (MessageBox{"CellErrorno disk", 16, "错误："}));
    failing.disconnect();
    EXPECT_TRUE(open());
    grid.SetCell(4, 4, "new", "code");
    EXPECT_EQ(text(4, 4), "new");
    EXPECT_FALSE(open());
    EXPECT_EQ(desk.messages().size(), 2u);
}

}  // namespace
}  // namespace kxVsGrid::testing
