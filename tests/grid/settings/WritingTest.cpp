// Saving: what is written, in which order, with which types and defaults; and what holds it back.
#include <cstdint>
#include <string>

#include "kit/SettingsTest.h"
#include "kxVsGrid/MemoryBag.h"

namespace kxVsGrid::testing {
namespace {

class Writing : public SettingsTest {
  protected:
    void write() {
        grid.WriteProperties(bag);
        EXPECT_EQ(boxes(), Nothing);
    }
};

Lines freshColumn(const std::string& key) {
    return {key + "bIsEditable = Boolean True, default Boolean True",
            key + "bIsVisible = Boolean True, default Boolean True",
            key + "b是否提供帮助 = Boolean False, default Text \"0\"",
            key + "iLimitLength = Int16 0, default Text \"0\"",
            key + "iType = Int32 8, default Text \"1\"",
            key + "i帮助返回值显示类型 = Int32 0, default Text \"1\"",
            key + "i帮助类型 = Int32 0, default Text \"0\"",
            key + "i是否允许为空 = Int32 0, default Boolean True",
            key + "i字段有效性判断类型 = Int32 0, default Text \"0\"",
            key + "sHelp_Code = Text \"\", default Text \"\"",
            key + " = Text \"\", default Text \"-1\"",
            key + "s错误提示信息 = Text \"\", default Text \"Error\"",
            key + "s文本框对应编码字段 = Text \"\", default Text \"\"",
            key + "s文本框对应名称字段 = Text \"\", default Text \"\"",
            key + "s有效性判断基础 = Text \"\", default Text \"\"",
            key + "i有效性判断 = Int16 0, default Int16 0",
            key + "b是否合计数据 = Boolean False, default Int16 0",
            key + "iColAlignment = Int32 1, default Int32 1",
            key + "bIsPrint = Boolean True, default Boolean True"};
}

TEST_F(Writing, OfANewlyPlacedControlIsTheWholeListInOrder) {
    write();
    Lines expected = {
        "FormatString = Text \"\", default Text \"\"",
        "Editable = Boolean True, default Int16 0",
        "ShowZero = Boolean False, default Boolean False",
        "SumRow = Boolean False, default Int16 0",
        "Cols = Int32 10, no default",
        "Rows = Int32 6, no default",
        "FixedCols = Int32 1, no default",
        "FixedRows = Int32 1, no default",
        "BackColor = " + typed(static_cast<std::int32_t>(grid.BackColor())) + ", no default",
        "BackColorBkg = " + typed(static_cast<std::int32_t>(grid.BackColorBkg())) + ", no default",
        "BackColorFixed = " + typed(static_cast<std::int32_t>(grid.BackColorFixed())) + ", no default",
        "ForeColor = " + typed(static_cast<std::int32_t>(grid.ForeColor())) + ", no default",
        "ForeColorFixe = " + typed(static_cast<std::int32_t>(grid.ForeColorFixed())) + ", no default",
        "Appearance = " + typed(grid.Appearance()) + ", default Int32 1"};
    for (std::int32_t col = 0; col < 10; ++col) expected = expected + freshColumn(columnName(col, ""));
    EXPECT_EQ(bag.written, expected);
}

TEST_F(Writing, TakesEveryGridWideValueFromTheControl) {
    grid.Cols(2);
    grid.FormatString("a|<b");
    grid.Editable(false);
    grid.bIsShowZero(true);
    grid.SumRow(true);
    grid.FixedRows(3);
    grid.Rows(40);
    grid.FixedCols(0);
    grid.BackColor(1);
    grid.BackColorBkg(2);
    grid.BackColorFixed(3);
    grid.ForeColor(0xFFFFFFFF);
    grid.ForeColorFixed(0x80000012);
    grid.Appearance(0);
    write();
    bag.written.resize(14);
    EXPECT_EQ(
        bag.written,
        (Lines{"FormatString = Text \"a|<b\", default Text \"\"", "Editable = Boolean False, default Int16 0",
               "ShowZero = Boolean True, default Boolean False", "SumRow = Boolean True, default Int16 0",
               "Cols = Int32 2, no default", "Rows = Int32 40, no default", "FixedCols = Int32 0, no default",
               "FixedRows = Int32 3, no default", "BackColor = Int32 1, no default",
               "BackColorBkg = Int32 2, no default", "BackColorFixed = Int32 3, no default",
               "ForeColor = Int32 -1, no default", "ForeColorFixe = Int32 -2147483630, no default",
               "Appearance = Int32 0, default Int32 1"}));
}

TEST_F(Writing, TakesTheColourBeyondTheCellsFromTheMainGrid) {
    vs().BackColorBkg(1);
    sum().BackColorBkg(2);
    write();
    EXPECT_EQ(bag.values.at("BackColorBkg"), Variant(1));
}

TEST_F(Writing, TakesEveryValueOfAColumnFromItsDefinition) {
    grid.Cols(2);
    cVsControl& second = column(1);
    second.bIsEditable(false);
    second.bIsVisible(false);
    second.b是否提供帮助(true);
    second.iLimitLength(-5);
    second.iType(flexDTDouble);
    second.i帮助返回值显示类型(iText记Name);
    second.i帮助类型(ih常量型);
    second.i是否允许为空(static_cast<gEmNotAllowEmptyType>(-1));
    second.i字段有效性判断类型(ij日期型);
    second.sHelp_Code("男;1|女;2");
    second.sName("性别");
    second.s错误提示信息("wrong");
    second.s文本框对应编码字段("code");
    second.s文本框对应名称字段("name");
    second.s有效性判断基础("basis");
    second.i有效性判断(1);
    second.b是否合计数据(true);
    second.iColAlignment(flexAlignRightCenter);
    second.bIsPrint(false);
    write();
    EXPECT_EQ(Lines(bag.written.begin() + 14 + 19, bag.written.end()),
              (Lines{"SetVsControl1bIsEditable = Boolean False, default Boolean True",
                     "SetVsControl1bIsVisible = Boolean False, default Boolean True",
                     "SetVsControl1b是否提供帮助 = Boolean True, default Text \"0\"",
                     "SetVsControl1iLimitLength = Int16 -5, default Text \"0\"",
                     "SetVsControl1iType = Int32 5, default Text \"1\"",
                     "SetVsControl1i帮助返回值显示类型 = Int32 1, default Text \"1\"",
                     "SetVsControl1i帮助类型 = Int32 3, default Text \"0\"",
                     "SetVsControl1i是否允许为空 = Int32 -1, default Boolean True",
                     "SetVsControl1i字段有效性判断类型 = Int32 2, default Text \"0\"",
                     "SetVsControl1sHelp_Code = Text \"男;1|女;2\", default Text \"\"",
                     "SetVsControl1 = Text \"性别\", default Text \"-1\"",
                     "SetVsControl1s错误提示信息 = Text \"wrong\", default Text \"Error\"",
                     "SetVsControl1s文本框对应编码字段 = Text \"code\", default Text \"\"",
                     "SetVsControl1s文本框对应名称字段 = Text \"name\", default Text \"\"",
                     "SetVsControl1s有效性判断基础 = Text \"basis\", default Text \"\"",
                     "SetVsControl1i有效性判断 = Int16 1, default Int16 0",
                     "SetVsControl1b是否合计数据 = Boolean True, default Int16 0",
                     "SetVsControl1iColAlignment = Int32 7, default Int32 1",
                     "SetVsControl1bIsPrint = Boolean False, default Boolean True"}));
}

TEST_F(Writing, WritesTheGroupsOfTwelveColumnsAndNoMore) {
    grid.Cols(12);
    column(12).sName("spare");
    write();
    EXPECT_EQ(bag.writtenNames.size(), storedValues(12));
    EXPECT_TRUE(bag.values.contains("SetVsControl11bIsPrint"));
    EXPECT_FALSE(bag.values.contains("SetVsControl12"));
}

TEST_F(Writing, OfAGridWithoutColumnsIsTheGridsOwnPart) {
    grid.Cols(0);
    write();
    EXPECT_EQ(bag.writtenNames.size(), 14u);
    EXPECT_EQ(bag.values.at("FixedCols"), Variant(0));
}

TEST_F(Writing, SpellsTwoNamesAsTheStoredFormatDoes) {
    write();
    EXPECT_TRUE(bag.values.contains("ForeColorFixe"));
    EXPECT_FALSE(bag.values.contains("ForeColorFixed"));
    EXPECT_TRUE(bag.values.contains("SetVsControl0bIsPrint"));
    EXPECT_FALSE(bag.values.contains("SetVsControl0bIsPint"));
    EXPECT_TRUE(bag.values.contains("ShowZero"));
    EXPECT_FALSE(bag.values.contains("bIsShowZero"));
}

TEST_F(Writing, LosesThePrintFlagOnTheWayBack) {
    column(3).bIsPrint(false);
    write();
    EXPECT_EQ(bag.values.at("SetVsControl3bIsPrint"), Variant(false));
    headless::Desk other;
    EXPECT_TRUE(other.load(bag).VsCtrl(3)->bIsPrint());
}

TEST_F(Writing, MakesTheDefinitionsThatAreMissing) {
    grid.Col(2);
    grid.SetVsControl(nullptr);
    write();
    EXPECT_EQ(bag.values.at("SetVsControl2iType"), Variant(8));
    EXPECT_EQ(bag.values.at("SetVsControl2"), Variant(""));
}

TEST_F(Writing, AsksForNothingReportsNothingAndKeepsTheChangedDataFlag) {
    typeInto(1, 1, "typed");
    ASSERT_TRUE(grid.ValidTextData());
    desk.clear();
    write();
    EXPECT_EQ(bag.names, Nothing);
    EXPECT_EQ(reported(), Nothing);
    EXPECT_TRUE(grid.bIsDirty());
}

TEST_F(Writing, TwiceGivesTheSame) {
    write();
    const Lines first = bag.written;
    bag.written.clear();
    write();
    EXPECT_EQ(bag.written, first);
}

TEST_F(Writing, HoldsBackAtEveryStepWhileTheControlItselfIsLoading) {
    RecordingBag target;
    bag.onRead = [&](const std::string&) { grid.WriteProperties(target); };
    read();
    EXPECT_EQ(bag.names, readNames(10));
    EXPECT_EQ(target.writtenNames, Nothing);
    grid.WriteProperties(target);
    EXPECT_EQ(target.writtenNames.size(), storedValues(10));
}

TEST_F(Writing, HoldsBackAtEveryStepWhileAnotherControlIsLoading) {
    headless::Desk elsewhere;
    kxGrid& another = elsewhere.place();
    RecordingBag target;
    bag.onRead = [&](const std::string&) { another.WriteProperties(target); };
    read();
    EXPECT_EQ(target.writtenNames, Nothing);
    EXPECT_TRUE(elsewhere.messages().empty());
    another.WriteProperties(target);
    EXPECT_EQ(target.writtenNames.size(), storedValues(10));
}

TEST_F(Writing, IntoABagInMemoryKeepsTypesAndDefaults) {
    MemoryBag memory;
    grid.WriteProperties(memory);
    ASSERT_EQ(memory.size(), storedValues(10));
    EXPECT_EQ(memory.entries()[0].name, "FormatString");
    ASSERT_TRUE(memory.find("SetVsControl2iType"));
    EXPECT_EQ(typed(*memory.find("SetVsControl2iType")), "Int32 8");
    ASSERT_TRUE(memory.entries()[1].fallback);
    EXPECT_EQ(typed(*memory.entries()[1].fallback), "Int16 0");
    EXPECT_FALSE(memory.entries()[4].fallback);
}
}  // namespace
}  // namespace kxVsGrid::testing
