// The column page over a grid whose host or window does unexpected things meanwhile.
#include <cstdint>
#include <memory>
#include <stdexcept>
#include <string>

#include "dialogs/PageTest.h"

namespace kxVsGrid::testing {
namespace {

class PageHost : public PageTest {};

TEST_F(PageHost, ThatRefusesTheMoveLeavesThePageOnAColumnThatItShows) {
    column(1).sHelp_Code("one");
    column(2).sHelp_Code("two");
    openAt(1);
    grid.BeforeRowColChange.connect(
        [](std::int32_t, std::int32_t, std::int32_t, std::int32_t, bool& cancel) { cancel = true; });
    window.pick("Combo1", 2);
    const std::string shown = window.text("sHelp_Code");
    const bool second = window.chosen("Combo1") == "数量  2";
    EXPECT_EQ(shown, second ? "two" : "one") << "entry and values belong together";
    window.put("s有效性判断基础", "typed");
    page.Apply();
    EXPECT_EQ(column(second ? 1 : 2).s有效性判断基础(), "") << "the other column";
    EXPECT_EQ(column(1).sHelp_Code(), "one");
    EXPECT_EQ(column(2).sHelp_Code(), "two");
}

TEST_F(PageHost, ThatSwapsTheColumnDuringTheMoveIsNotWrittenWithTheOtherOnesValues) {
    for (std::int16_t col = 0; col < 4; ++col) grid.VsCtrl(col)->sHelp_Code("of " + std::to_string(col));
    openAt(1);
    auto moving =
        grid.AfterRowColChange.connect([&](std::int32_t, std::int32_t, std::int32_t, std::int32_t to) {
            if (to == 2) grid.Col(3);
        });
    window.pick("Combo1", 2);
    page.Apply();
    for (std::int16_t col = 0; col < 4; ++col)
        EXPECT_EQ(grid.VsCtrl(col)->sHelp_Code(), "of " + std::to_string(col));
}

TEST_F(PageHost, ThatKeepsTheCurrentCellElsewhereIsToldAndNoOtherColumnIsWritten) {
    openAt(1);
    window.put("sHelp_Code", "typed");
    grid.Col(2);
    grid.BeforeRowColChange.connect(
        [](std::int32_t, std::int32_t, std::int32_t, std::int32_t, bool& cancel) { cancel = true; });
    EXPECT_FALSE(page.Apply());
    EXPECT_EQ(page.problem(), "不能选择列 1，没有应用修改。");
    EXPECT_EQ(column(2).sHelp_Code(), "") << "the column that the cell stands in";
    EXPECT_EQ(column(1).sHelp_Code(), "");
    EXPECT_TRUE(page.Changed());
    EXPECT_EQ(window.text("sHelp_Code"), "typed");
}

TEST_F(PageHost, ThatTakesColumnsAwayDuringTheMoveDoesNoHarm) {
    openAt(1);
    auto moving =
        grid.AfterRowColChange.connect([&](std::int32_t, std::int32_t, std::int32_t, std::int32_t to) {
            if (to == 5) grid.Cols(2);
        });
    EXPECT_NO_THROW(window.pick("Combo1", 5));
    window.put("sHelp_Code", "typed");
    EXPECT_NO_THROW(page.Apply());
    EXPECT_EQ(column(0).sHelp_Code(), "");
}

TEST_F(PageHost, WhoseRowsHaveGoneIsStillSetUp) {
    vs().Rows(1);
    openAt(2);
    window.put("sHelp_Code", "typed");
    EXPECT_TRUE(page.Apply());
    EXPECT_EQ(column(2).sHelp_Code(), "typed");
    grid.FixedRows(0);
    vs().Rows(0);
    EXPECT_NO_THROW(page.select({&columns}));
    EXPECT_NO_THROW(page.loadColumns());
    EXPECT_NO_THROW(window.pick("Combo1", 1));
    window.put("sHelp_Code", "again");
    EXPECT_NO_THROW(page.Apply());
}

TEST_F(PageHost, ThatSelectsNothingWhileTheGridGoesIsNotAskedAgain) {
    auto other = std::make_unique<headless::Desk>();
    auto gone = std::make_unique<GridColumns>(other->place());
    page.select({gone.get()});
    page.loadColumns();
    window.put("sHelp_Code", "typed");
    page.select({});
    gone.reset();
    other.reset();
    page.loadColumns();
    page.Apply();
    EXPECT_FALSE(window.applyEnabled());
    openAt(1);
    EXPECT_EQ(window.text("sHelp_Code"), "");
}

TEST_F(PageHost, KeepsOddTextsAsTheyAre) {
    for (const std::string& odd :
         {std::string("\"quoted\" \\ | ; "), std::string("行\n号\t"), std::string(100'000, 'x')}) {
        column(1).sHelp_Code(odd);
        openAt(1);
        EXPECT_EQ(window.text("sHelp_Code"), odd);
        window.put("s错误提示信息", odd);
        EXPECT_TRUE(page.Apply());
        EXPECT_EQ(column(1).sHelp_Code(), odd);
        EXPECT_EQ(column(1).s错误提示信息(), odd);
    }
}

TEST_F(PageHost, ShowsAFormatStringOfManyColumns) {
    std::string format;
    for (int i = 0; i < 2000; ++i) format += "a|";
    grid.FormatString(format);
    openAt(1999);
    EXPECT_EQ(window.list("Combo1").size(), static_cast<std::size_t>(grid.Cols()));
    EXPECT_EQ(window.chosen("Combo1"), "a  1999");
}

/// A source of columns that is not a grid control, as a designer may have one.
class OwnSource : public ColumnSource {
  public:
    std::string FormatString() override { return "a|b"; }
    std::int32_t Cols() override { return 2; }
    std::int32_t Col() override { return col; }
    void Col(std::int32_t to) override { col = to; }
    std::shared_ptr<cVsControl> SetVsControl() override { return definitions[col]; }
    void SetVsControl(std::shared_ptr<cVsControl> put) override { definitions[col] = std::move(put); }
    void applied() override { ++times; }

    std::int32_t col = 0;
    std::shared_ptr<cVsControl> definitions[2] = {std::make_shared<cVsControl>(),
                                                  std::make_shared<cVsControl>()};
    int times = 0;
};

TEST_F(PageHost, MayBeASourceOfItsOwnThatHearsOfEveryApply) {
    OwnSource own;
    page.select({&own});
    page.loadColumns();
    EXPECT_EQ(window.list("Combo1"), (Lines{"a  0", "b  1"}));
    window.pick("Combo1", 1);
    window.put("sHelp_Code", "typed");
    EXPECT_EQ(own.times, 0);
    EXPECT_TRUE(page.Apply());
    EXPECT_EQ(own.times, 1);
    EXPECT_EQ(own.definitions[1]->sHelp_Code(), "typed");
    EXPECT_EQ(own.definitions[0]->sHelp_Code(), "");
    window.put("i帮助类型", "x");
    EXPECT_FALSE(page.Apply());
    EXPECT_EQ(own.times, 1);
}

TEST_F(PageHost, MayHaveNoDefinitionForAColumn) {
    OwnSource own;
    own.definitions[0] = nullptr;
    EXPECT_NO_THROW(page.select({&own}));
    EXPECT_NO_THROW(page.Apply());
    EXPECT_NO_THROW(page.loadColumns());
    for (const std::string& number : NumberNames) window.put(number, "1");
    EXPECT_TRUE(page.Apply());
    ASSERT_TRUE(own.definitions[0]);
    EXPECT_EQ(own.definitions[0]->i帮助类型(), 1);
}
}  // namespace
}  // namespace kxVsGrid::testing
