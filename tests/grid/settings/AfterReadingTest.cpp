// Loading: the set-up that ends it, the wheel hook, and the conversions on the way in.
#include <cstdint>
#include <string>

#include "kit/SettingsTest.h"

namespace kxVsGrid::testing {
namespace {

class LoadedSetUp : public SettingsTest {};

TEST_F(LoadedSetUp, IsTheTotalRowsAloneWhileReDrawIsFalse) {
    grid.VsSumCellBackColor(0x123456);
    store("Cols", 5);
    store("FixedCols", 2);
    store("FormatString", "a|b|c|d              |e");
    store(3, "iType", 5);
    store(3, "iColAlignment", 7);
    store(3, "bIsVisible", false);
    bool prepared = false;
    bag.onRead = [&](const std::string& name) {
        if (name == "SetVsControl0bIsEditable") prepared = sum().Cols() == 5 && grid.ReadSum(2) == "合计";
    };
    vs().FixedAlignment(3, flexAlignRightBottom);
    vs().ColDataType(3, flexDTString);
    read();
    EXPECT_TRUE(prepared) << "before the columns are read";
    EXPECT_EQ(sum().FixedCols(), 2);
    EXPECT_EQ(sum().Rows(), 1);
    EXPECT_EQ(sum().ColWidth(3), vs().ColWidth(3));
    EXPECT_EQ(sum().CellBackColor(0, 2), color(LightGrey));
    EXPECT_EQ(vs().ColDataType(3), flexDTString);
    EXPECT_FALSE(vs().ColHidden(3));
    EXPECT_EQ(vs().FixedAlignment(3), flexAlignRightBottom);
    EXPECT_FALSE(column(3).bIsVisible());

    grid.ReDraw(true);
    EXPECT_EQ(vs().ColDataType(3), flexDTDouble);
    EXPECT_EQ(vs().ColAlignment(3), flexAlignRightCenter);
    EXPECT_TRUE(vs().ColHidden(3));
    EXPECT_TRUE(sum().ColHidden(3));
}

TEST_F(LoadedSetUp, IsTheFullOneAfterTheColumnsWhileReDrawIsTrue) {
    grid.ReDraw(true);
    grid.VsSumCellBackColor(0x123456);
    store("Cols", 5);
    store(3, "iType", 5);
    store(3, "iColAlignment", 7);
    store(3, "bIsVisible", false);
    bag.onRead = [&](const std::string& name) {
        if (name == "SetVsControl0bIsEditable") {
            EXPECT_EQ(sum().CellBackColor(0, 2), color(0x123456)) << "no light set-up before";
        }
        if (name == "SetVsControl4bIsPint") {
            EXPECT_FALSE(vs().ColHidden(3)) << "not yet";
        }
    };
    read();
    EXPECT_EQ(vs().ColDataType(3), flexDTDouble);
    EXPECT_EQ(vs().ColDataType(2), 1);
    EXPECT_EQ(vs().ColAlignment(3), flexAlignRightCenter);
    EXPECT_TRUE(vs().ColHidden(3));
    EXPECT_EQ(sum().Cols(), 5);
    EXPECT_EQ(sum().CellBackColor(0, 2), color(LightGrey));
    EXPECT_TRUE(sum().ColHidden(3));
    EXPECT_EQ(grid.ReadSum(1), "合计");
    EXPECT_TRUE(grid.ReDraw());
}

TEST_F(LoadedSetUp, AddsUpNoTotals) {
    summed(2);
    setUp();
    grid.SetCell(1, 2, "5");
    ASSERT_EQ(grid.ReadSum(2), "5");
    store("SumRow", true);
    store(2, "iType", 5);
    store(2, "b是否合计数据", true);
    read();
    EXPECT_EQ(text(1, 2), "5");
    EXPECT_EQ(grid.ReadSum(2), "");
    grid.ReDraw(true);
    EXPECT_EQ(grid.ReadSum(2), "5");
}

TEST_F(LoadedSetUp, ShowsAndHidesTheTotalRow) {
    store("SumRow", true);
    read();
    EXPECT_TRUE(grid.SumRow());
    EXPECT_TRUE(grid.totalRowShown());
    store("SumRow", false);
    read();
    EXPECT_FALSE(grid.SumRow());
    EXPECT_FALSE(grid.totalRowShown());
}

class LoadedHook : public SettingsTest {};

TEST_F(LoadedHook, IsMadeByTheReadWithTheFixedRowsAndAFifthOfTheRows) {
    EXPECT_FALSE(desk.wheelHook());
    store("Rows", 100);
    store("FixedRows", 2);
    read();
    ASSERT_TRUE(desk.wheelHook());
    EXPECT_EQ(desk.wheelHook()->fixedRows, 2);
    EXPECT_EQ(desk.wheelHook()->step, 19);
}

TEST_F(LoadedHook, IsMadeInTheLastStep) {
    bag.onRead = [&](const std::string&) { EXPECT_FALSE(desk.wheelHook()); };
    read();
    ASSERT_TRUE(desk.wheelHook());
    EXPECT_EQ(desk.wheelHook()->step, 1);
}

TEST_F(LoadedHook, HearsOfAPutOfTheRowsAndOfAnotherRead) {
    store("Rows", 5);
    read();
    ASSERT_TRUE(desk.wheelHook());
    EXPECT_EQ(desk.wheelHook()->step, 0);
    grid.Rows(51);
    EXPECT_EQ(desk.wheelHook()->step, 10);
    store("Rows", 26);
    read();
    ASSERT_TRUE(desk.wheelHook()) << "the first one's end takes nothing from the second";
    EXPECT_EQ(desk.wheelHook()->step, 5);
}

class LoadedWhileTheClerkTypes : public SettingsTest {};

TEST_F(LoadedWhileTheClerkTypes, KeepsTheTextForTheCellThatItWasTypedInto) {
    typeInto(1, 1, "typed");
    store("FixedRows", 2);
    store("Editable", true);
    read();
    EXPECT_EQ(grid.Text(), "typed");
    desk.press(Key::Enter);
    EXPECT_EQ(text(1, 1), "typed");
    EXPECT_GE(grid.Row(), 2);
}

class Conversion : public SettingsTest {};

TEST_F(Conversion, ReadsTextsAndNumbersAsBooleans) {
    store("Editable", "true");
    store("ShowZero", "-1");
    store("SumRow", 2);
    store("Cols", 6);
    store(1, "bIsEditable", "FALSE");
    store(2, "bIsEditable", "0");
    store(3, "bIsEditable", 0.0);
    store(4, "bIsEditable", Variant());
    store(5, "bIsEditable", 0.5);
    read();
    EXPECT_TRUE(grid.Editable());
    EXPECT_TRUE(grid.bIsShowZero());
    EXPECT_TRUE(grid.SumRow());
    EXPECT_TRUE(column(0).bIsEditable());
    EXPECT_FALSE(column(1).bIsEditable());
    EXPECT_FALSE(column(2).bIsEditable());
    EXPECT_FALSE(column(3).bIsEditable());
    EXPECT_FALSE(column(4).bIsEditable());
    EXPECT_TRUE(column(5).bIsEditable());
}

TEST_F(Conversion, ReadsTextsNumbersAndBooleansAsWholeNumbersWithHalvesToEven) {
    store("Cols", "6");
    store("Rows", "12.5");
    store(1, "iLimitLength", 13.5);
    store(2, "iLimitLength", true);
    store(3, "iLimitLength", Variant());
    store(4, "iLimitLength", " 7 ");
    store(1, "i是否允许为空", "-2.5");
    store(2, "i是否允许为空", false);
    store(3, "i有效性判断", "32767");
    store(4, "iType", 2147483647.0);
    store(5, "iColAlignment", std::int16_t{4});
    read();
    EXPECT_EQ(grid.Cols(), 6);
    EXPECT_EQ(grid.Rows(), 12);
    EXPECT_EQ(column(1).iLimitLength(), 14);
    EXPECT_EQ(column(2).iLimitLength(), -1);
    EXPECT_EQ(column(3).iLimitLength(), 0);
    EXPECT_EQ(column(4).iLimitLength(), 7);
    EXPECT_EQ(column(0).i是否允许为空(), -1) << "the default, True";
    EXPECT_EQ(column(1).i是否允许为空(), -2);
    EXPECT_EQ(column(2).i是否允许为空(), 0);
    EXPECT_EQ(column(3).i有效性判断(), 32767);
    EXPECT_EQ(column(4).iType(), 2147483647);
    EXPECT_EQ(column(5).iColAlignment(), flexAlignCenterCenter);
}

TEST_F(Conversion, ReadsNumbersAndBooleansAsTexts) {
    store("FormatString", Variant());
    store(1, "", 12);
    store(2, "", true);
    store(3, "", 1.5);
    store(4, "", Variant());
    store(5, "", StrayBytes);
    read();
    EXPECT_EQ(column(1).sName(), "12");
    EXPECT_EQ(column(2).sName(), "True");
    EXPECT_EQ(column(3).sName(), "1.5");
    EXPECT_EQ(column(4).sName(), "");
    EXPECT_EQ(column(5).sName(), StrayBytes);
}

TEST_F(Conversion, KeepsNumbersThatNameNoMemberOfTheirEnumeration) {
    store(1, "iType", -7);
    store(1, "iColAlignment", -32768);
    store(1, "i帮助类型", 2147483647);
    store(1, "i帮助返回值显示类型", -1);
    store(1, "i字段有效性判断类型", 99);
    read();
    EXPECT_EQ(column(1).iType(), -7);
    EXPECT_EQ(column(1).iColAlignment(), -32768);
    EXPECT_EQ(column(1).i帮助类型(), 2147483647);
    EXPECT_EQ(column(1).i帮助返回值显示类型(), -1);
    EXPECT_EQ(column(1).i字段有效性判断类型(), 99);
}

TEST_F(Conversion, ReadsColoursAsNumbersOfThirtyTwoBits) {
    store("BackColor", -1);
    store("ForeColor", "-2147483648");
    store("BackColorFixed", 255.0);
    read();
    EXPECT_EQ(grid.BackColor(), 0xFFFFFFFF);
    EXPECT_EQ(grid.ForeColor(), 0x80000000);
    EXPECT_EQ(grid.BackColorFixed(), 255u);
}
}  // namespace
}  // namespace kxVsGrid::testing
