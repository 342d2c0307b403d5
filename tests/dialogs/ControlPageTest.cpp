// The column page: its lists, what it shows of a column, and when it counts as changed.
#include <string>
#include <vector>

#include "dialogs/PageTest.h"

namespace kxVsGrid::testing {
namespace {

class Page : public PageTest {};

TEST_F(Page, ListsEveryColumnByItsHeaderAndNumber) {
    page.select({&columns});
    window.click("Command1");
    EXPECT_EQ(window.list("Combo1"),
              (Lines{"行号  0", "货号  1", "数量  2", "单价  3", "  4", "  5", "  6", "  7", "  8", "  9"}));
}

TEST_F(Page, TakesHeadersWithoutMarksBlanksAndRowCaptions) {
    grid.Cols(5);
    grid.FormatString("  a  |<  b|>||^;row|captions");
    page.select({&columns});
    window.click("Command1");
    EXPECT_EQ(window.list("Combo1"), (Lines{"a  0", "b  1", "  2", "  3", "  4"}));
    grid.FormatString("");
    window.click("Command1");
    EXPECT_EQ(window.list("Combo1").size(), 5u);
}

TEST_F(Page, LoadsTheListAnewEveryTime) {
    page.select({&columns});
    page.loadColumns();
    page.loadColumns();
    EXPECT_EQ(window.list("Combo1").size(), 10u);
    EXPECT_EQ(window.list("Combo2").size(), 3u);
    EXPECT_EQ(window.list("Combo3").size(), 5u);
    grid.Cols(2);
    page.loadColumns();
    EXPECT_EQ(window.list("Combo1"), (Lines{"行号  0", "货号  1"}));
}

TEST_F(Page, OffersAlignmentsAndKindsOfDataInTheStatedOrder) {
    openAt(1);
    EXPECT_EQ(window.list("Combo2"), (Lines{"居中", "左居中", "右居中"}));
    EXPECT_EQ(window.list("Combo3"), (Lines{"空", "文本型", "数字型", "逻辑型", "日期型"}));
}

TEST_F(Page, WritesTheCodesOfWhatIsChosen) {
    openAt(1);
    const mEmflexAlign alignments[] = {flexAlignCenterCenter, flexAlignLeftCenter, flexAlignRightCenter};
    for (std::int32_t index = 0; index < 3; ++index) {
        window.pick("Combo2", index);
        EXPECT_TRUE(page.Apply());
        EXPECT_EQ(column(1).iColAlignment(), alignments[index]);
    }
    const mEmDataType kinds[] = {flexDTEmpty, flexDTString, flexDTDouble, flexDTBoolean, flexDTDate};
    for (std::int32_t index = 0; index < 5; ++index) {
        window.pick("Combo3", index);
        EXPECT_TRUE(page.Apply());
        EXPECT_EQ(column(1).iType(), kinds[index]);
    }
}

TEST_F(Page, ShowsTheCurrentColumnWhenAGridIsSelected) {
    column(3).sHelp_Code("of column 3");
    column(3).b是否提供帮助(true);
    grid.Col(3);
    page.select({&columns});
    EXPECT_EQ(window.text("sHelp_Code"), "of column 3");
    EXPECT_TRUE(window.checked("b是否提供帮助"));
    EXPECT_EQ(grid.Col(), 3);
    EXPECT_FALSE(page.Changed());
}

TEST_F(Page, ShowsTheChosenColumnAndMakesItTheCurrentOne) {
    for (std::int16_t col = 0; col < 4; ++col)
        grid.VsCtrl(col)->sHelp_Code("of column " + std::to_string(col));
    openAt(1);
    EXPECT_EQ(window.text("sHelp_Code"), "of column 1");
    for (const std::int32_t col : {3, 0, 2}) {
        window.pick("Combo1", col);
        EXPECT_EQ(grid.Col(), col);
        EXPECT_EQ(window.text("sHelp_Code"), "of column " + std::to_string(col));
        EXPECT_FALSE(page.Changed());
    }
    EXPECT_EQ(window.chosen("Combo1"), "数量  2");
}

TEST_F(Page, HasABoxForEveryListedPropertyWithItsNameBesideTexts) {
    for (const auto& name : YesNoNames) EXPECT_EQ(window.of(name).typeName, "CheckBox") << name;
    for (const auto& name : TextNames + NumberNames) {
        EXPECT_EQ(window.of(name).typeName, "TextBox") << name;
        int labels = 0;
        for (const auto& control : page.controls())
            if (control->typeName == "Label" && control->caption == name) ++labels;
        EXPECT_EQ(labels, 1) << name;
    }
    int mentioned = 0;
    for (const auto& control : page.controls())
        if (control->caption == "Col") ++mentioned;
    EXPECT_GT(mentioned, 0);
}

TEST_F(Page, ShowsEveryProperty) {
    cVsControl& shown = column(1);
    for (std::size_t i = 0; i < YesNoNames.size(); ++i) {
        for (const auto& name : YesNoNames) shown.Put(name, name == YesNoNames[i]);
        openAt(1);
        for (const auto& name : YesNoNames) EXPECT_EQ(window.checked(name), name == YesNoNames[i]) << name;
    }
    for (const auto& name : TextNames) shown.Put(name, "text of " + name);
    std::int16_t number = -5;
    for (const auto& name : NumberNames) shown.Put(name, number--);
    openAt(1);
    for (const auto& name : TextNames) EXPECT_EQ(window.text(name), "text of " + name);
    number = -5;
    for (const auto& name : NumberNames) EXPECT_EQ(window.text(name), std::to_string(number--)) << name;
}

TEST_F(Page, ShowsColoursAsPlainNumbers) {
    column(1).d列前景色(2147483653.0);
    column(1).d列背景色(16777215.0);
    openAt(1);
    EXPECT_EQ(window.text("d列前景色"), "2147483653");
    EXPECT_EQ(window.text("d列背景色"), "16777215");
}

TEST_F(Page, ShowsTheEntriesOfAlignmentAndKind) {
    column(1).iColAlignment(flexAlignRightCenter);
    column(1).iType(flexDTBoolean);
    column(2).iColAlignment(flexAlignCenterCenter);
    column(2).iType(flexDTEmpty);
    openAt(1);
    EXPECT_EQ(window.chosen("Combo2"), "右居中");
    EXPECT_EQ(window.chosen("Combo3"), "逻辑型");
    window.pick("Combo1", 2);
    EXPECT_EQ(window.chosen("Combo2"), "居中");
    EXPECT_EQ(window.chosen("Combo3"), "空");
}

TEST_F(Page, LeavesThePreviousEntryWhereNoneFits) {
    column(1).iColAlignment(flexAlignRightCenter);
    column(1).iType(flexDTDate);
    column(2).iColAlignment(flexAlignCenterBottom);
    column(2).iType(static_cast<mEmDataType>(1));
    openAt(1);
    window.pick("Combo1", 2);
    EXPECT_EQ(window.chosen("Combo2"), "右居中");
    EXPECT_EQ(window.chosen("Combo3"), "日期型");
    EXPECT_TRUE(page.Apply());
    EXPECT_EQ(column(2).iColAlignment(), flexAlignRightCenter) << "what is shown is written";
    EXPECT_EQ(column(2).iType(), flexDTDate);
}

TEST_F(Page, WritesNothingForACombinationBoxWithoutAChoice) {
    for (std::int32_t col = 0; col < 10; ++col) {
        column(col).iColAlignment(flexAlignCenterBottom);
        column(col).iType(static_cast<mEmDataType>(1));
    }
    openAt(2);
    EXPECT_EQ(window.chosen("Combo2"), "");
    EXPECT_EQ(window.chosen("Combo3"), "");
    window.put("sHelp_Code", "code");
    EXPECT_TRUE(page.Apply());
    EXPECT_EQ(column(2).sHelp_Code(), "code");
    EXPECT_EQ(column(2).iColAlignment(), flexAlignCenterBottom);
    EXPECT_EQ(column(2).iType(), 1);
}

TEST_F(Page, IsMarkedAsChangedByEveryEdit) {
    std::vector<bool> told;
    page.onChanged([&](bool changed) { told.push_back(changed); });
    const auto marks = [&](const std::string& what) {
        EXPECT_TRUE(page.Changed()) << what;
        EXPECT_TRUE(window.applyEnabled()) << what;
        EXPECT_EQ(told, (std::vector<bool>{true})) << what;
        page.Apply();
        EXPECT_FALSE(page.Changed()) << what;
        EXPECT_FALSE(window.applyEnabled()) << what;
        EXPECT_EQ(told, (std::vector<bool>{true, false})) << what;
        told.clear();
    };
    openAt(1);
    EXPECT_FALSE(window.applyEnabled());
    EXPECT_TRUE(told.empty());
    for (const auto& name : YesNoNames) {
        window.check(name, !window.checked(name));
        marks(name);
    }
    for (const auto& name : TextNames + NumberNames) {
        window.put(name, "7");
        marks(name);
    }
    window.pick("Combo2", 2);
    marks("Combo2");
    window.pick("Combo3", 4);
    marks("Combo3");
}

TEST_F(Page, IsMarkedAsChangedByAClickOnTheEntryThatIsChosen) {
    openAt(1);
    window.pick("Combo2", window.chosen("Combo2"));
    EXPECT_TRUE(page.Changed());
}

TEST_F(Page, IsNotMarkedByShowingAndListing) {
    bool told = false;
    page.onChanged([&](bool) { told = true; });
    openAt(1);
    window.click("Command1");
    window.pick("Combo1", 2);
    EXPECT_FALSE(page.Changed());
    EXPECT_FALSE(told);
}

TEST_F(Page, WritesNothingByShowingListingAndEditing) {
    openAt(1);
    window.check("bIsEditable", false);
    window.put("sHelp_Code", "code");
    window.put("i帮助类型", "3");
    window.pick("Combo2", 2);
    window.pick("Combo3", 2);
    window.pick("Combo1", 2);
    window.pick("Combo1", 1);
    EXPECT_TRUE(column(1).bIsEditable());
    EXPECT_EQ(column(1).sHelp_Code(), "");
    EXPECT_EQ(column(1).i帮助类型(), ih通用型);
    EXPECT_EQ(column(1).iColAlignment(), flexAlignLeftCenter);
    EXPECT_EQ(column(1).iType(), flexDTString);
    EXPECT_EQ(window.text("sHelp_Code"), "") << "shown anew";
    EXPECT_FALSE(page.Changed());
}

TEST_F(Page, DropsWhatWasNotAppliedWhenAGridIsSelected) {
    openAt(1);
    window.put("sHelp_Code", "code");
    page.select({&columns});
    EXPECT_EQ(window.text("sHelp_Code"), "");
    EXPECT_FALSE(page.Changed());
    EXPECT_FALSE(window.applyEnabled());
    EXPECT_EQ(column(1).sHelp_Code(), "");
}

TEST_F(Page, WorksOnTheFirstOfSeveralGrids) {
    kxGrid& second = desk.place();
    GridColumns others(second);
    column(1).sHelp_Code("first");
    second.VsCtrl(1)->sHelp_Code("second");
    page.select({&columns, &others});
    EXPECT_EQ(window.text("sHelp_Code"), "first");
    window.put("sHelp_Code", "changed");
    EXPECT_TRUE(page.Apply());
    EXPECT_EQ(column(1).sHelp_Code(), "changed");
    EXPECT_EQ(second.VsCtrl(1)->sHelp_Code(), "second");
    page.select({&others});
    EXPECT_EQ(window.text("sHelp_Code"), "second");
    desk.use(grid);
}

TEST_F(Page, WithoutAGridIsEmptyAndHarmless) {
    EXPECT_NO_THROW(page.loadColumns());
    EXPECT_FALSE(window.control("Command1").enabled);
    column(1).sHelp_Code("code");
    column(1).bIsEditable(true);
    openAt(1);
    page.select({});
    EXPECT_EQ(window.text("sHelp_Code"), "");
    EXPECT_FALSE(window.checked("bIsEditable"));
    EXPECT_TRUE(window.list("Combo1").empty());
    EXPECT_FALSE(page.Changed());
    EXPECT_FALSE(window.applyEnabled());
    EXPECT_NO_THROW(page.loadColumns());
    EXPECT_TRUE(window.list("Combo1").empty());
    EXPECT_NO_THROW(page.Apply());
    EXPECT_EQ(column(1).sHelp_Code(), "code");
    EXPECT_EQ(reported(), Nothing);
}

TEST_F(Page, SaysWhatItIsToldToUntilItIsAppliedOrAnotherGridIsSelected) {
    openAt(1);
    EXPECT_EQ(page.problem(), "");
    page.explain("These settings cannot be read.");
    EXPECT_EQ(page.problem(), "These settings cannot be read.");
    EXPECT_TRUE(page.Apply());
    EXPECT_EQ(page.problem(), "");
    page.explain("Again.");
    page.select({&columns});
    EXPECT_EQ(page.problem(), "");
}
}  // namespace
}  // namespace kxVsGrid::testing
