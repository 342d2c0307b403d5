// Loading: what is asked of the bag, in which order and with which defaults, and where each value goes.
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "kit/SettingsTest.h"

namespace kxVsGrid::testing {
namespace {

class Reading : public SettingsTest {};

Lines askedForGrid() {
    return {"Editable: Int16 0",
            "ShowZero: Boolean False",
            "SumRow: Int16 0",
            "Cols: Int32 10",
            "Rows: Int32 6",
            "FixedCols: Int32 1",
            "FixedRows: Int32 1",
            "Appearance: Int32 1",
            "BackColor: Int32 -2147483643",
            "BackColorBkg: Int32 -2147483636",
            "BackColorFixed: Int32 -2147483633",
            "ForeColor: Int32 -2147483640",
            "ForeColorFixe: Int32 -2147483630",
            "FormatString: Text \"\"",
            "BackColorBkg: Int32 -2147483636"};
}

Lines askedForColumn(const std::string& key) {
    return {key + "bIsEditable: Boolean True",
            key + "bIsVisible: Boolean True",
            key + "b是否提供帮助: Text \"0\"",
            key + "iLimitLength: Text \"0\"",
            key + "iType: Text \"1\"",
            key + "i帮助返回值显示类型: Text \"1\"",
            key + "i帮助类型: Text \"0\"",
            key + "i是否允许为空: Boolean True",
            key + "i字段有效性判断类型: Text \"0\"",
            key + "sHelp_Code: Text \"\"",
            key + ": Text \"-1\"",
            key + "s错误提示信息: Text \"Error\"",
            key + "s文本框对应编码字段: Text \"\"",
            key + "s文本框对应名称字段: Text \"\"",
            key + "s有效性判断基础: Text \"\"",
            key + "i有效性判断: Int16 0",
            key + "b是否合计数据: Int16 0",
            key + "iColAlignment: Int32 1",
            key + "bIsPint: Boolean True"};
}

TEST_F(Reading, AsksForEveryKeyInOrderWithItsTypedDefault) {
    read();
    EXPECT_EQ(bag.asked, askedForGrid() + askedForColumn("SetVsControl0") + askedForColumn("SetVsControl1") +
                             askedForColumn("SetVsControl2") + askedForColumn("SetVsControl3") +
                             askedForColumn("SetVsControl4") + askedForColumn("SetVsControl5") +
                             askedForColumn("SetVsControl6") + askedForColumn("SetVsControl7") +
                             askedForColumn("SetVsControl8") + askedForColumn("SetVsControl9"));
}

TEST_F(Reading, AsksForAsManyColumnsAsWereLoaded) {
    store("Cols", 12);
    read();
    EXPECT_EQ(bag.names, readNames(12));
    store("Cols", 2);
    bag.names.clear();
    read();
    EXPECT_EQ(bag.names, readNames(2));
}

TEST_F(Reading, WritesNothingIntoTheBag) {
    read();
    EXPECT_EQ(bag.writtenNames, Nothing);
}

TEST_F(Reading, OfAnEmptyBagGivesTheStatedGrid) {
    headless::Desk other;
    kxGrid& loaded = other.load(bag);
    EXPECT_FALSE(loaded.Editable());
    EXPECT_FALSE(loaded.bIsShowZero());
    EXPECT_FALSE(loaded.SumRow());
    EXPECT_FALSE(loaded.totalRowShown());
    EXPECT_EQ(loaded.Cols(), 10);
    EXPECT_EQ(loaded.Rows(), 6);
    EXPECT_EQ(loaded.FixedCols(), 1);
    EXPECT_EQ(loaded.FixedRows(), 1);
    EXPECT_EQ(loaded.Appearance(), 1);
    EXPECT_EQ(loaded.BackColor(), 0x80000005);
    EXPECT_EQ(loaded.BackColorBkg(), 0x8000000C);
    EXPECT_EQ(loaded.BackColorFixed(), 0x8000000F);
    EXPECT_EQ(loaded.ForeColor(), 0x80000008);
    EXPECT_EQ(loaded.ForeColorFixed(), 0x80000012);
    EXPECT_EQ(loaded.FormatString(), "");
    EXPECT_EQ(loaded.Grid_Sum().BackColorBkg(), 0x8000000C);
    EXPECT_FALSE(loaded.ReDraw());
    EXPECT_FALSE(loaded.bIsDirty());
    EXPECT_TRUE(other.messages().empty());
}

TEST_F(Reading, OfAnEmptyBagGivesColumnsTheStoredDefaultsAndNotThoseOfAFreshDefinition) {
    headless::Desk other;
    kxGrid& loaded = other.load(bag);
    for (std::int16_t col = 0; col < 10; ++col) {
        const auto made = loaded.VsCtrl(col);
        EXPECT_TRUE(made->bIsEditable());
        EXPECT_TRUE(made->bIsVisible());
        EXPECT_FALSE(made->b是否提供帮助());
        EXPECT_EQ(made->iLimitLength(), 0);
        EXPECT_EQ(made->iType(), 1);
        EXPECT_EQ(made->i帮助返回值显示类型(), iText记Name);
        EXPECT_EQ(made->i帮助类型(), ih通用型);
        EXPECT_EQ(made->i是否允许为空(), -1);
        EXPECT_EQ(made->i字段有效性判断类型(), 0);
        EXPECT_EQ(made->sHelp_Code(), "");
        EXPECT_EQ(made->sName(), "-1");
        EXPECT_EQ(made->s错误提示信息(), "Error");
        EXPECT_EQ(made->s文本框对应编码字段(), "");
        EXPECT_EQ(made->s文本框对应名称字段(), "");
        EXPECT_EQ(made->s有效性判断基础(), "");
        EXPECT_EQ(made->i有效性判断(), 0);
        EXPECT_FALSE(made->b是否合计数据());
        EXPECT_EQ(made->iColAlignment(), flexAlignLeftCenter);
        EXPECT_TRUE(made->bIsPrint());
    }
}

TEST_F(Reading, LeavesWhatIsNotStoredAtTheDefaultsOfAFreshDefinition) {
    headless::Desk other;
    const auto made = other.load(bag).VsCtrl(3);
    EXPECT_FALSE(made->b是否编辑多行());
    EXPECT_EQ(made->HelpWidth(), 0);
    EXPECT_EQ(made->HelpHeight(), 0);
    EXPECT_FALSE(made->b是否设列颜色());
    EXPECT_EQ(made->d列前景色(), 0);
    EXPECT_EQ(made->d列背景色(), 0);
    EXPECT_EQ(made->sCellInput(), "");
    EXPECT_EQ(made->sDefaultText_Code(), "");
    EXPECT_EQ(made->sDefaultText_Name(), "");
}

TEST_F(Reading, LeavesTheSpareDefinitionFresh) {
    read();
    EXPECT_EQ(column(10).iType(), flexDTString);
    EXPECT_EQ(column(10).sName(), "");
    EXPECT_THROW(grid.VsCtrl(11), GridError);
}

TEST_F(Reading, PutsEveryGridWideValueInItsPlace) {
    store("Editable", true);
    store("ShowZero", true);
    store("SumRow", true);
    store("Cols", 7);
    store("Rows", 30);
    store("FixedCols", 2);
    store("FixedRows", 3);
    store("Appearance", 0);
    store("BackColor", 0x010203);
    store("BackColorBkg", 0x040506);
    store("BackColorFixed", 0x070809);
    store("ForeColor", 0x0A0B0C);
    store("ForeColorFixe", 0x0D0E0F);
    store("FormatString", "行号|<货号|>数量");
    read();
    EXPECT_TRUE(grid.Editable());
    EXPECT_TRUE(grid.bIsShowZero());
    EXPECT_TRUE(grid.SumRow());
    EXPECT_TRUE(grid.totalRowShown());
    EXPECT_EQ(vs().Cols(), 7);
    EXPECT_EQ(vs().Rows(), 30);
    EXPECT_EQ(vs().FixedCols(), 2);
    EXPECT_EQ(vs().FixedRows(), 3);
    EXPECT_EQ(vs().Appearance(), 0);
    EXPECT_EQ(vs().BackColor(), 0x010203u);
    EXPECT_EQ(vs().BackColorBkg(), 0x040506u);
    EXPECT_EQ(vs().BackColorFixed(), 0x070809u);
    EXPECT_EQ(vs().ForeColor(), 0x0A0B0Cu);
    EXPECT_EQ(vs().ForeColorFixed(), 0x0D0E0Fu);
    EXPECT_EQ(vs().FormatString(), "行号|<货号|>数量");
    EXPECT_EQ(text(0, 1), "货号");
    EXPECT_EQ(vs().ColAlignment(2), flexAlignRightCenter);
    EXPECT_EQ(sum().BackColorBkg(), 0x040506u);
}

TEST_F(Reading, GivesTheTotalRowNoColourButTheOneBeyondItsCells) {
    const auto back = sum().BackColor();
    const auto backFixed = sum().BackColorFixed();
    const auto fore = sum().ForeColor();
    const auto foreFixed = sum().ForeColorFixed();
    store("BackColor", 0x010203);
    store("BackColorFixed", 0x070809);
    store("ForeColor", 0x0A0B0C);
    store("ForeColorFixe", 0x0D0E0F);
    read();
    EXPECT_EQ(sum().BackColor(), back);
    EXPECT_EQ(sum().BackColorFixed(), backFixed);
    EXPECT_EQ(sum().ForeColor(), fore);
    EXPECT_EQ(sum().ForeColorFixed(), foreFixed);
}

TEST_F(Reading, TakesTheSecondColourBeyondTheCellsForTheTotalRowAlone) {
    bag.onRead = [&](const std::string& name) {
        if (name == "FormatString") store("BackColorBkg", 2);
    };
    store("BackColorBkg", 1);
    read();
    EXPECT_EQ(vs().BackColorBkg(), 1u);
    EXPECT_EQ(sum().BackColorBkg(), 2u);
}

TEST_F(Reading, PutsEveryValueOfAColumnIntoItsDefinition) {
    store(3, "bIsEditable", false);
    store(3, "bIsVisible", false);
    store(3, "b是否提供帮助", true);
    store(3, "iLimitLength", std::int16_t{12});
    store(3, "iType", 5);
    store(3, "i帮助返回值显示类型", 0);
    store(3, "i帮助类型", 3);
    store(3, "i是否允许为空", 2);
    store(3, "i字段有效性判断类型", 1);
    store(3, "sHelp_Code", " code ");
    store(3, "", " 单价 ");
    store(3, "s错误提示信息", "wrong");
    store(3, "s文本框对应编码字段", "code field");
    store(3, "s文本框对应名称字段", "name field");
    store(3, "s有效性判断基础", "select");
    store(3, "i有效性判断", std::int16_t{7});
    store(3, "b是否合计数据", true);
    store(3, "iColAlignment", 7);
    read();
    EXPECT_FALSE(column(3).bIsEditable());
    EXPECT_FALSE(column(3).bIsVisible());
    EXPECT_TRUE(column(3).b是否提供帮助());
    EXPECT_EQ(column(3).iLimitLength(), 12);
    EXPECT_EQ(column(3).iType(), flexDTDouble);
    EXPECT_EQ(column(3).i帮助返回值显示类型(), iText记Code);
    EXPECT_EQ(column(3).i帮助类型(), ih常量型);
    EXPECT_EQ(column(3).i是否允许为空(), i字段不能为零);
    EXPECT_EQ(column(3).i字段有效性判断类型(), ij编码型);
    EXPECT_EQ(column(3).sHelp_Code(), " code ");
    EXPECT_EQ(column(3).sName(), " 单价 ");
    EXPECT_EQ(column(3).s错误提示信息(), "wrong");
    EXPECT_EQ(column(3).s文本框对应编码字段(), "code field");
    EXPECT_EQ(column(3).s文本框对应名称字段(), "name field");
    EXPECT_EQ(column(3).s有效性判断基础(), "select");
    EXPECT_EQ(column(3).i有效性判断(), 7);
    EXPECT_TRUE(column(3).b是否合计数据());
    EXPECT_EQ(column(3).iColAlignment(), flexAlignRightCenter);
    EXPECT_EQ(column(2).sName(), "-1");
    EXPECT_EQ(column(4).sName(), "-1");
}

TEST_F(Reading, TellsColumnOneFromColumnsTenAndEleven) {
    store("Cols", 12);
    store(1, "", "one");
    store(10, "", "ten");
    store(11, "bIsEditable", false);
    read();
    EXPECT_EQ(column(1).sName(), "one");
    EXPECT_EQ(column(10).sName(), "ten");
    EXPECT_TRUE(column(1).bIsEditable());
    EXPECT_TRUE(column(10).bIsEditable());
    EXPECT_FALSE(column(11).bIsEditable());
    EXPECT_EQ(column(11).sName(), "-1");
}

TEST_F(Reading, IgnoresKeysOfColumnsThatAreNotLoadedAndUnknownOnes) {
    store("Cols", 3);
    store(3, "", Variant::null());
    store("ForeColorFixed", 5);
    store("SumRowHeight", Variant(Table()));
    read();
    EXPECT_EQ(bag.names, readNames(3));
    EXPECT_EQ(grid.ForeColorFixed(), 0x80000012);
}

TEST_F(Reading, NeverFindsTheStoredPrintFlagSinceItAsksUnderAnotherName) {
    store(3, "bIsPrint", false);
    column(3).bIsPrint(false);
    read();
    EXPECT_TRUE(column(3).bIsPrint());
    store(3, "bIsPint", false);
    read();
    EXPECT_FALSE(column(3).bIsPrint());
}

TEST_F(Reading, AppliesEveryGridWideValueBeforeItAsksForTheNext) {
    const auto asked = [&] { return bag.names.size(); };
    store("Editable", false);
    store("ShowZero", true);
    store("SumRow", true);
    store("Cols", 5);
    store("Rows", 9);
    store("FixedCols", 2);
    store("FixedRows", 4);
    store("Appearance", 0);
    store("BackColor", 11);
    store("BackColorBkg", 12);
    store("BackColorFixed", 13);
    store("ForeColor", 14);
    store("ForeColorFixe", 15);
    store("FormatString", "a|b");
    std::vector<std::uint32_t> last;
    bag.onRead = [&](const std::string&) {
        const std::vector<std::uint32_t> now = {
            grid.Editable(),
            grid.bIsShowZero(),
            grid.totalRowShown(),
            vs().Cols() == 5,
            vs().Rows() == 9,
            vs().FixedCols() == 2,
            vs().FixedRows() == 4,
            vs().Appearance() == 0,
            vs().BackColor() == 11,
            vs().BackColorBkg() == 12,
            vs().BackColorFixed() == 13,
            vs().ForeColor() == 14,
            vs().ForeColorFixed() == 15,
            vs().FormatString() == "a|b",
        };
        for (std::size_t i = 0; i < now.size(); ++i)
            EXPECT_EQ(now[i], (i < asked() - 1) != (i == 0)) << GridNames[i] << " at " << bag.names.back();
        last = now;
    };
    read();
    EXPECT_EQ(last.size(), 14u);
}

TEST_F(Reading, TakesTheDefaultOfTheRowsFromTheFixedRowsBeforeThoseAreRead) {
    vs().Rows(20);
    vs().FixedRows(4);
    store("FixedRows", 2);
    read();
    EXPECT_EQ(bag.asked[4], "Rows: Int32 9");
    EXPECT_EQ(grid.Rows(), 9);
    EXPECT_EQ(grid.FixedRows(), 2);
}

TEST_F(Reading, SetsTheLeastRowHeightBetweenTheTotalRowAndTheColumns) {
    vs().RowHeightMin(0);
    vs().RowHeight(3, 100);
    bag.onRead = [&](const std::string& name) {
        if (name == "SumRow") {
            EXPECT_EQ(vs().RowHeightMin(), 0);
        }
        if (name == "Cols") {
            EXPECT_EQ(vs().RowHeightMin(), 300);
        }
    };
    read();
    EXPECT_EQ(vs().RowHeightMin(), 300);
    EXPECT_EQ(grid.RowHeight(3), 300);
}

TEST_F(Reading, ReportsNoSettingsAndRaisesNoWarnings) {
    store("Cols", 12);
    store("Rows", 40);
    store("FormatString", "a|b");
    desk.clear();
    read();
    EXPECT_EQ(reported(), Nothing);
}

TEST_F(Reading, KeepsNoFiveEmptyRowsAndNumbersNone) {
    store("Rows", 3);
    read();
    EXPECT_EQ(grid.Rows(), 3);
    EXPECT_EQ(text(1, 0), "");
    store("Rows", 1);
    read();
    EXPECT_EQ(grid.Rows(), 1);
}

TEST_F(Reading, LoadsAGridWithoutColumns) {
    store("Cols", 0);
    store("FixedCols", 0);
    read();
    EXPECT_EQ(grid.Cols(), 0);
    EXPECT_EQ(bag.names, GridNames);
}

TEST_F(Reading, LoadsTheColumnsThatTheFormatStringAdds) {
    store("Cols", 2);
    store("FormatString", "a|b|c|d");
    store(3, "", "last");
    read();
    EXPECT_EQ(grid.Cols(), 4);
    EXPECT_EQ(bag.names, readNames(4));
    EXPECT_EQ(column(3).sName(), "last");
    EXPECT_EQ(sum().Cols(), 4);
}

TEST_F(Reading, UpdatesPresentDefinitionsInPlace) {
    const auto kept = grid.VsCtrl(3);
    kept->sName("before");
    kept->iLimitLength(5);
    kept->sCellInput("2,3");
    kept->b是否编辑多行(true);
    store(3, "", "after");
    read();
    EXPECT_EQ(grid.VsCtrl(3), kept);
    EXPECT_EQ(kept->sName(), "after");
    EXPECT_EQ(kept->iLimitLength(), 0) << "the stored default";
    EXPECT_EQ(kept->sCellInput(), "2,3") << "not stored";
    EXPECT_TRUE(kept->b是否编辑多行()) << "not stored";
}

TEST_F(Reading, KeepsTheDefinitionsThatTheNewBoundsHoldAndDropsTheRest) {
    const auto third = grid.VsCtrl(3);
    const auto spare = grid.VsCtrl(4);
    const auto seventh = grid.VsCtrl(7);
    store("Cols", 4);
    read();
    EXPECT_EQ(grid.VsCtrl(3), third);
    EXPECT_EQ(grid.VsCtrl(4), spare);
    EXPECT_THROW(grid.VsCtrl(5), GridError);
    store("Cols", 12);
    read();
    EXPECT_EQ(grid.VsCtrl(4), spare);
    EXPECT_NE(grid.VsCtrl(7), seventh);
    EXPECT_TRUE(grid.VsCtrl(12));
}

TEST_F(Reading, MakesTheDefinitionsThatAreMissing) {
    vs().Col(2);
    grid.SetVsControl(nullptr);
    store(2, "", "made");
    read();
    EXPECT_EQ(column(2).sName(), "made");
}

TEST_F(Reading, ClearsTheChangedDataFlag) {
    store("Editable", true);
    typeInto(1, 1, "typed");
    ASSERT_TRUE(grid.ValidTextData());
    ASSERT_TRUE(grid.bIsDirty());
    bag.onRead = [&](const std::string& name) {
        if (name == "SetVsControl9bIsPint") {
            EXPECT_TRUE(grid.bIsDirty()) << "until the last step";
        }
    };
    read();
    EXPECT_FALSE(grid.bIsDirty());
}
}  // namespace
}  // namespace kxVsGrid::testing
