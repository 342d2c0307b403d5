// The column page's apply step: what is written into which definition, and when nothing is.
#include <memory>
#include <string>

#include "dialogs/PageTest.h"

namespace kxVsGrid::testing {
namespace {

class PageApply : public PageTest {};

TEST_F(PageApply, WritesEveryShownValueBack) {
    openAt(1);
    for (const auto& name : YesNoNames) {
        const bool before = window.checked(name);
        window.check(name, !before);
        EXPECT_TRUE(page.Apply());
        EXPECT_EQ(column(1).Get(name), Variant(!before)) << name;
        window.check(name, before);
        EXPECT_TRUE(page.Apply());
        EXPECT_EQ(column(1).Get(name), Variant(before)) << name;
    }
    for (const auto& name : TextNames) window.put(name, " text of " + name);
    std::int32_t number = 40;
    for (const auto& name : NumberNames) window.put(name, std::to_string(number++));
    EXPECT_TRUE(page.Apply());
    for (const auto& name : TextNames) EXPECT_EQ(column(1).Get(name).toText(), " text of " + name);
    number = 40;
    for (const auto& name : NumberNames) EXPECT_EQ(column(1).Get(name).toInt32(), number++) << name;
}

TEST_F(PageApply, WithoutAnEditChangesNothing) {
    column(1).d列前景色(2147483653.0);
    column(1).d列背景色(0.5);
    column(1).i帮助类型(static_cast<gEmHelpType>(-7));
    column(1).sHelp_Code("男;1|女;2");
    const cVsControl before = column(1);
    openAt(1);
    EXPECT_TRUE(page.Apply());
    for (const Member& member : cVsControl::members())
        if (member.type != Variant::Type::Empty) {
            EXPECT_EQ(column(1).Get(member.name), before.Get(member.name)) << member.name;
        }
}

TEST_F(PageApply, LeavesThePropertiesThatThePageDoesNotShow) {
    cVsControl& shown = column(1);
    shown.sName("name");
    shown.iLimitLength(5);
    shown.i是否允许为空(i字段不能为空);
    shown.HelpWidth(3000);
    shown.bIsPrint(false);
    shown.sCellInput("r");
    shown.sDefaultText_Name("[1,2]");
    openAt(1);
    window.put("sHelp_Code", "code");
    EXPECT_TRUE(page.Apply());
    EXPECT_EQ(shown.sName(), "name");
    EXPECT_EQ(shown.iLimitLength(), 5);
    EXPECT_EQ(shown.i是否允许为空(), i字段不能为空);
    EXPECT_EQ(shown.HelpWidth(), 3000);
    EXPECT_FALSE(shown.bIsPrint());
    EXPECT_EQ(shown.sCellInput(), "r");
    EXPECT_EQ(shown.sDefaultText_Name(), "[1,2]");
}

TEST_F(PageApply, TellsTheContainerAndShowsAnUpToDateGridAtOnce) {
    grid.ReDraw(true);
    openAt(2);
    window.pick("Combo2", "右居中");
    window.pick("Combo3", "数字型");
    window.check("bIsVisible", false);
    EXPECT_TRUE(page.Apply());
    EXPECT_EQ(vs().ColAlignment(2), flexAlignRightCenter);
    EXPECT_EQ(vs().ColDataType(2), flexDTDouble);
    EXPECT_TRUE(vs().ColHidden(2));
    EXPECT_FALSE(named(reported(), "SetVsControl").empty());
}

TEST_F(PageApply, KeepsTheTotalsUnderTheirColumnsInAScrolledGrid) {
    grid.Cols(20);
    summed(12);
    setUp();
    openAt(12);
    desk.scrollTo(1, 8);
    window.check("bIsEditable", false);
    EXPECT_TRUE(page.Apply());
    ASSERT_EQ(vs().LeftCol(), 8);
    EXPECT_EQ(sum().LeftCol(), 8);
    for (std::int32_t col = 0; col < grid.Cols(); ++col)
        EXPECT_EQ(sum().CellRect(0, col).left, vs().CellRect(1, col).left) << col;
}

TEST_F(PageApply, LeavesAGridThatIsNotUpToDateAsItIs) {
    openAt(2);
    const auto alignment = vs().ColAlignment(2);
    window.pick("Combo2", "居中");
    EXPECT_TRUE(page.Apply());
    EXPECT_EQ(column(2).iColAlignment(), flexAlignCenterCenter);
    EXPECT_EQ(vs().ColAlignment(2), alignment);
    EXPECT_FALSE(grid.ReDraw());
    EXPECT_FALSE(named(reported(), "SetVsControl").empty());
}

TEST_F(PageApply, WritesNothingAtAllWhenABoxHoldsNoNumber) {
    openAt(1);
    for (const auto& name : NumberNames)
        for (const char* wrong : {"abc", "", "1 2", "12x", "&HFF"}) {
            const std::string before = window.text(name);
            window.put("sHelp_Code", "new code");
            window.check("bIsEditable", false);
            window.pick("Combo2", "右居中");
            window.put(name, wrong);
            desk.clear();
            EXPECT_FALSE(page.Apply()) << name << " = " << wrong;
            EXPECT_NE(page.problem().find(name), std::string::npos) << page.problem();
            EXPECT_EQ(window.focused(), window.of(name).name);
            EXPECT_EQ(window.text(name), wrong) << "what was typed stays";
            EXPECT_TRUE(page.Changed());
            EXPECT_TRUE(window.applyEnabled());
            EXPECT_EQ(column(1).sHelp_Code(), "");
            EXPECT_TRUE(column(1).bIsEditable());
            EXPECT_EQ(column(1).iColAlignment(), flexAlignLeftCenter);
            EXPECT_EQ(reported(), Nothing);
            window.put(name, before);
        }
    EXPECT_TRUE(page.Apply());
    EXPECT_EQ(page.problem(), "");
    EXPECT_EQ(column(1).sHelp_Code(), "new code");
    EXPECT_EQ(boxes(), Nothing);
}

TEST_F(PageApply, RefusesNumbersOutOfTheRangeOfTheirProperty) {
    openAt(1);
    for (const auto& [name, wrong] :
         {std::pair("i有效性判断", "32768"), std::pair("i有效性判断", "-32769"),
          std::pair("i帮助类型", "2147483648"), std::pair("i字段有效性判断类型", "99999999999999999999"),
          std::pair("d列前景色", "1e999")}) {
        const std::string before = window.text(name);
        window.put(name, wrong);
        EXPECT_FALSE(page.Apply()) << name << " = " << wrong;
        EXPECT_NE(page.problem().find(name), std::string::npos) << page.problem();
        window.put(name, before);
    }
}

TEST_F(PageApply, GoesIntoTheDefinitionThatTheColumnHasThen) {
    const auto shown = grid.VsCtrl(1);
    openAt(1);
    window.put("sHelp_Code", "typed");
    const auto put = std::make_shared<cVsControl>();
    put->sName("another");
    put->sHelp_Code("meanwhile");
    put->b是否合计数据(true);
    grid.SetVsControl(put);
    EXPECT_TRUE(page.Apply());
    EXPECT_EQ(grid.VsCtrl(1), put);
    EXPECT_EQ(put->sHelp_Code(), "typed");
    EXPECT_FALSE(put->b是否合计数据()) << "every shown value is written";
    EXPECT_EQ(put->sName(), "another");
    EXPECT_EQ(shown->sHelp_Code(), "");
}

TEST_F(PageApply, GoesIntoTheChosenColumnAlsoWhenAnotherIsTheCurrentOneByThen) {
    openAt(1);
    window.put("sHelp_Code", "typed");
    grid.Col(3);
    EXPECT_TRUE(page.Apply());
    EXPECT_EQ(column(1).sHelp_Code(), "typed");
    EXPECT_EQ(column(3).sHelp_Code(), "");
}

TEST_F(PageApply, MakesTheDefinitionThatIsMissing) {
    openAt(1);
    window.put("sHelp_Code", "typed");
    grid.SetVsControl(nullptr);
    EXPECT_TRUE(page.Apply());
    EXPECT_EQ(column(1).sHelp_Code(), "typed");
}

TEST_F(PageApply, WritesIntoNoOtherColumnWhenTheChosenOneHasGone) {
    openAt(5);
    window.put("sHelp_Code", "typed");
    grid.Cols(3);
    EXPECT_FALSE(page.Apply());
    EXPECT_NE(page.problem(), "");
    for (std::int32_t col = 0; col <= 3; ++col) EXPECT_EQ(column(col).sHelp_Code(), "") << col;
    page.select({&columns});
    window.click("Command1");
    EXPECT_EQ(window.list("Combo1").size(), 3u);
    EXPECT_EQ(page.problem(), "");
    window.pick("Combo1", 2);
    window.put("sHelp_Code", "again");
    EXPECT_TRUE(page.Apply());
    EXPECT_EQ(column(2).sHelp_Code(), "again");
}

TEST_F(PageApply, OfAnEntryWhoseColumnHasGoneIsHarmless) {
    openAt(1);
    grid.Cols(3);
    EXPECT_NO_THROW(window.pick("Combo1", 7));
    EXPECT_LT(grid.Col(), 3);
    window.put("sHelp_Code", "typed");
    EXPECT_NO_THROW(page.Apply());
    EXPECT_EQ(column(0).sHelp_Code(), "");
    EXPECT_EQ(column(2).sHelp_Code(), "");
}

TEST_F(PageApply, OfAGridWithoutColumnsIsHarmless) {
    openAt(1);
    window.put("sHelp_Code", "typed");
    grid.Cols(0);
    EXPECT_NO_THROW(page.Apply());
    EXPECT_NO_THROW(page.select({&columns}));
    EXPECT_NO_THROW(window.click("Command1"));
    EXPECT_TRUE(window.list("Combo1").empty());
    EXPECT_NO_THROW(page.Apply());
    grid.Cols(4);
    page.select({&columns});
    window.click("Command1");
    EXPECT_EQ(window.list("Combo1").size(), 4u);
}

TEST_F(PageApply, IsWhatTheApplyButtonDoes) {
    openAt(1);
    window.put("sHelp_Code", "typed");
    window.click("YyCommand");
    EXPECT_EQ(column(1).sHelp_Code(), "typed");
    EXPECT_TRUE(window.open());
    EXPECT_FALSE(window.applyEnabled());
}

TEST_F(PageApply, IsFollowedByTheWindowsCloseWithTheOkButton) {
    openAt(1);
    window.put("sHelp_Code", "typed");
    window.click("QdCommand");
    EXPECT_EQ(column(1).sHelp_Code(), "typed");
    EXPECT_FALSE(window.open());
}

TEST_F(PageApply, KeepsTheWindowOpenWhenItIsRefused) {
    openAt(1);
    window.put("i帮助类型", "abc");
    window.click("QdCommand");
    EXPECT_TRUE(window.open());
    EXPECT_EQ(window.focused(), window.of("i帮助类型").name);
}

TEST_F(PageApply, IsNotDoneByCancellingOrByTheFrame) {
    openAt(1);
    window.put("sHelp_Code", "typed");
    window.click("QxCommand");
    EXPECT_FALSE(window.open());
    EXPECT_EQ(column(1).sHelp_Code(), "");
    PageWindow again(page);
    page.select({&columns});
    again.put("sHelp_Code", "typed");
    again.press(Key::Escape);
    EXPECT_FALSE(again.open());
    EXPECT_EQ(column(1).sHelp_Code(), "");
}
}  // namespace
}  // namespace kxVsGrid::testing
