// The column count, the format string, and the array of column definitions that follows both.
#include <cstdint>
#include <memory>
#include <string>

#include "kit/PlacedGrid.h"

namespace kxVsGrid::testing {
namespace {

class ColumnCount : public PlacedGrid {};

TEST_F(ColumnCount, IsTenWithOneFixedColumnInAFreshGrid) {
    EXPECT_EQ(grid.Cols(), 10);
    EXPECT_EQ(grid.FixedCols(), 1);
}

TEST_F(ColumnCount, IsPutIntoBothGridsAndReported) {
    grid.Cols(7);
    EXPECT_EQ(grid.Cols(), 7);
    EXPECT_EQ(vs().Cols(), 7);
    EXPECT_EQ(sum().Cols(), 7);
    EXPECT_EQ(reported(), Lines{"Cols"});
    EXPECT_EQ(heard(), Nothing);
}

TEST_F(ColumnCount, KeepsCaptionsAndWidthsOfTheFormatString) {
    grid.Cols(5);
    grid.FormatString("行号|<货号|^单价|>金额|备注");
    grid.ColWidth(1, 3000);
    grid.SetCell(0, 1, "other");
    grid.ColAlignment(2, flexAlignRightBottom);
    grid.Cols(8);
    EXPECT_EQ(grid.FormatString(), "行号|<货号|^单价|>金额|备注");
    EXPECT_EQ(text(0, 1), "货号");
    EXPECT_EQ(grid.ColWidth(1), 2 * 200 + 90);
    EXPECT_EQ(grid.ColAlignment(2), flexAlignCenterCenter);
    EXPECT_EQ(grid.ColWidth(7), 1000);
}

TEST_F(ColumnCount, KeepsWidthsThatTheFormatStringDoesNotName) {
    grid.FormatString("行号||单价");
    grid.ColWidth(1, 3000);
    grid.ColWidth(6, 4000);
    grid.Cols(12);
    EXPECT_EQ(grid.ColWidth(1), 3000);
    EXPECT_EQ(grid.ColWidth(6), 4000);
}

TEST_F(ColumnCount, BelowTheFormatStringCutsItAndIsNotRaisedAgain) {
    grid.FormatString("a|b|c|d|e");
    grid.Cols(3);
    EXPECT_EQ(grid.Cols(), 3);
    EXPECT_EQ(sum().Cols(), 3);
    EXPECT_EQ(grid.FormatString(), "a|b|c");
    grid.Cols(5);
    EXPECT_EQ(text(0, 3), "");
}

TEST_F(ColumnCount, BringsTheWidthsOfTheTotalRowUpToDate) {
    setUp();
    grid.ColWidth(2, 1234);
    grid.Cols(12);
    for (std::int32_t col = 0; col < 12; ++col) EXPECT_EQ(sum().ColWidth(col), grid.ColWidth(col)) << col;
}

TEST_F(ColumnCount, LiftsTheTotalRowOverTheBarThatAppears) {
    grid.Cols(5);
    setUp();
    EXPECT_EQ(grid.totalRowRect().top, LayoutSizes::LowTop);
    grid.Cols(12);
    EXPECT_EQ(grid.totalRowRect().top, LayoutSizes::HighTop);
    grid.Cols(5);
    EXPECT_EQ(grid.totalRowRect().top, LayoutSizes::LowTop);
}

TEST_F(ColumnCount, TakesTheCurrentColumnAlongWithoutAsking) {
    vs().Select(2, 8);
    heard();
    grid.Cols(4);
    EXPECT_EQ(heard(), arrives() + settles(2, 8, 2, 3));
    EXPECT_EQ(grid.Col(), 3);
}

TEST_F(ColumnCount, CommitsAnEditorWhoseColumnGoes) {
    typeInto(2, 8, "typed");
    grid.Cols(4);
    EXPECT_FALSE(desk.editor().visible);
    EXPECT_EQ(named(heard(), "AfterEdit"), edited(2, 8));
    EXPECT_TRUE(grid.bIsDirty());
}

TEST_F(ColumnCount, BelowTheFixedColumnsOrBeyondTheLargestIsRefused) {
    grid.FixedCols(3);
    desk.clear();
    for (const std::int32_t count : {2, -1, 32'767}) {
        EXPECT_THROW(grid.Cols(count), GridError) << count;
        EXPECT_EQ(grid.Cols(), 10) << count;
        EXPECT_EQ(sum().Cols(), 10) << count;
        EXPECT_EQ(grid.FixedCols(), 3) << count;
        EXPECT_EQ(desk.reports(), Nothing) << count;
    }
    EXPECT_NO_THROW(grid.VsCtrl(10));
    EXPECT_THROW(grid.VsCtrl(11), GridError);
}

TEST_F(ColumnCount, MayBeZeroAndComeBack) {
    grid.FormatString("a|b");
    summed(2);
    setUp();
    grid.Cols(0);
    EXPECT_EQ(grid.Cols(), 0);
    EXPECT_EQ(sum().Cols(), 0);
    EXPECT_EQ(grid.FixedCols(), 0);
    EXPECT_EQ(grid.Col(), -1);
    EXPECT_NO_THROW(grid.ReDraw(true));
    EXPECT_NO_THROW(grid.Rows(9));
    EXPECT_NO_THROW(desk.resize(8000, 5000));
    EXPECT_EQ(grid.ReadCell(1, 0, true), "");
    EXPECT_EQ(grid.ReadSum(0), "");
    EXPECT_EQ(boxes(), Nothing);
    grid.Cols(4);
    grid.ReDraw(true);
    EXPECT_EQ(grid.Cols(), 4);
    EXPECT_EQ(sum().Cols(), 4);
    EXPECT_EQ(grid.Col(), 0);
    grid.SetCell(1, 3, "text");
    EXPECT_EQ(text(1, 3), "text");
}

TEST_F(ColumnCount, OfFixedColumnsAloneSkipsTheCaption) {
    grid.Cols(1);
    setUp();
    EXPECT_EQ(sum().Cols(), 1);
    EXPECT_EQ(sum().Text(0, 0), "");
    EXPECT_EQ(sum().CellBackColor(0, 0), NoColor);
    EXPECT_NO_THROW(grid.VsSumCellBackColor(0xFF));
    EXPECT_EQ(sum().CellBackColor(0, 0), NoColor);
}

class ColumnDefinitions : public PlacedGrid {};

TEST_F(ColumnDefinitions, AreMadeOnFirstUseAndAreThenTheSame) {
    auto fresh = grid.VsCtrl(2);
    ASSERT_TRUE(fresh);
    EXPECT_EQ(fresh->iType(), flexDTString);
    EXPECT_TRUE(fresh->bIsEditable());
    EXPECT_EQ(grid.VsCtrl(2), fresh);
    EXPECT_NE(grid.VsCtrl(3), fresh);
}

TEST_F(ColumnDefinitions, AreOneMoreThanThereAreColumns) {
    grid.Cols(5);
    for (std::int16_t col = 0; col <= 5; ++col) EXPECT_TRUE(grid.VsCtrl(col)) << col;
    EXPECT_THROW(grid.VsCtrl(6), GridError);
    EXPECT_THROW(grid.VsCtrl(-1), GridError);
    EXPECT_EQ(desk.reports(), Lines{"Cols"});
}

TEST_F(ColumnDefinitions, StayWhenTheColumnsGrow) {
    grid.Cols(5);
    std::shared_ptr<cVsControl> before[5];
    for (std::int16_t col = 0; col < 5; ++col) {
        before[col] = grid.VsCtrl(col);
        before[col]->sName("col " + std::to_string(col));
    }
    grid.Cols(8);
    for (std::int16_t col = 0; col < 5; ++col) {
        EXPECT_EQ(grid.VsCtrl(col), before[col]) << col;
        EXPECT_EQ(column(col).sName(), "col " + std::to_string(col));
    }
    for (std::int16_t col = 5; col <= 8; ++col) EXPECT_EQ(column(col).sName(), "") << col;
}

TEST_F(ColumnDefinitions, BeyondTheSpareOneGoWhenTheColumnsShrink) {
    for (std::int16_t col = 0; col <= 10; ++col) column(col).sName("col " + std::to_string(col));
    grid.Cols(5);
    grid.Cols(10);
    EXPECT_EQ(column(4).sName(), "col 4");
    EXPECT_EQ(column(5).sName(), "col 5");
    for (std::int16_t col = 6; col <= 10; ++col) EXPECT_EQ(column(col).sName(), "") << col;
}

TEST_F(ColumnDefinitions, HeldByTheHostOutliveTheirColumn) {
    auto held = grid.VsCtrl(9);
    grid.Cols(5);
    held->sName("kept");
    grid.Cols(10);
    EXPECT_EQ(held->sName(), "kept");
    EXPECT_EQ(column(9).sName(), "");
}

TEST_F(ColumnDefinitions, GrowWithTheFormatString) {
    column(3).sName("three");
    grid.FormatString("0|1|2|3|4|5|6|7|8|9|10|11");
    EXPECT_EQ(grid.Cols(), 12);
    EXPECT_EQ(column(3).sName(), "three");
    EXPECT_TRUE(grid.VsCtrl(12));
    EXPECT_THROW(grid.VsCtrl(13), GridError);
}

TEST_F(ColumnDefinitions, OfTheCurrentColumnAreReachedBySetVsControl) {
    column(1).sName("one");
    column(4).sName("four");
    EXPECT_EQ(grid.SetVsControl()->sName(), "one");
    grid.Col(4);
    EXPECT_EQ(grid.SetVsControl(), grid.VsCtrl(4));
    EXPECT_EQ(desk.reports(), Nothing);
}

TEST_F(ColumnDefinitions, ArePutAsTheObjectItself) {
    auto price = std::make_shared<cVsControl>();
    price->sName("单价");
    grid.Col(4);
    grid.SetVsControl(price);
    EXPECT_EQ(reported(), Lines{"SetVsControl"});
    EXPECT_EQ(grid.VsCtrl(4), price);
    EXPECT_EQ(grid.SetVsControl(), price);
    EXPECT_NE(grid.VsCtrl(3), price);
    price->sName("金额");
    EXPECT_EQ(column(4).sName(), "金额");
}

TEST_F(ColumnDefinitions, MayServeTwoColumns) {
    auto shared = std::make_shared<cVsControl>();
    grid.SetVsControl(shared);
    grid.Col(2);
    grid.SetVsControl(shared);
    EXPECT_EQ(grid.VsCtrl(1), grid.VsCtrl(2));
    shared->iType(flexDTDouble);
    grid.SetCell(1, 1, "0");
    grid.SetCell(1, 2, "0");
    EXPECT_EQ(text(1, 1), "");
    EXPECT_EQ(text(1, 2), "");
}

TEST_F(ColumnDefinitions, ArePutToNothingAndThenMadeAnew) {
    column(1).sName("one");
    auto old = grid.VsCtrl(1);
    grid.SetVsControl(nullptr);
    EXPECT_EQ(reported(), Lines{"SetVsControl"});
    ASSERT_TRUE(grid.VsCtrl(1));
    EXPECT_NE(grid.VsCtrl(1), old);
    EXPECT_EQ(column(1).sName(), "");
    grid.SetVsControl(nullptr);
    EXPECT_NO_THROW(grid.ReDraw(true));
    EXPECT_TRUE(grid.SetVsControl());
}

class FormatOfTheGrid : public PlacedGrid {};

TEST_F(FormatOfTheGrid, IsAnsweredAsItWasPut) {
    const std::string format = "行号|<货号  ||>金额;甲|乙";
    grid.FormatString(format);
    EXPECT_EQ(grid.FormatString(), format);
    EXPECT_EQ(reported(), Lines{"FormatString"});
    EXPECT_EQ(text(0, 1), "货号");
    EXPECT_EQ(text(1, 0), "甲");
    EXPECT_EQ(text(2, 0), "乙");
    EXPECT_EQ(grid.ColWidth(1), 2 * 200 + 2 * 100 + 90);
    EXPECT_EQ(grid.ColAlignment(3), flexAlignRightCenter);
}

TEST_F(FormatOfTheGrid, RaisesTheColumnsOfBothGridsAndReportsOnlyItself) {
    grid.FormatString("0|1|2|3|4|5|6|7|8|9|10|11");
    EXPECT_EQ(grid.Cols(), 12);
    EXPECT_EQ(sum().Cols(), 12);
    EXPECT_EQ(reported(), Lines{"FormatString"});
}

TEST_F(FormatOfTheGrid, NeverLowersTheColumns) {
    grid.FormatString("a|b");
    EXPECT_EQ(grid.Cols(), 10);
    EXPECT_EQ(sum().Cols(), 10);
    grid.FormatString("");
    EXPECT_EQ(grid.Cols(), 10);
    EXPECT_EQ(grid.FormatString(), "");
    EXPECT_EQ(text(0, 1), "b");
}

TEST_F(FormatOfTheGrid, GivesTheTotalRowTheColumnsOfTheMainGrid) {
    vs().Cols(4);
    grid.FormatString("a|b");
    EXPECT_EQ(sum().Cols(), 4);
    EXPECT_THROW(grid.VsCtrl(5), GridError);
}

TEST_F(FormatOfTheGrid, KeepsBytesThatAreNoText) {
    grid.FormatString("a|" + StrayBytes + "|c");
    EXPECT_EQ(grid.FormatString(), "a|" + StrayBytes + "|c");
    EXPECT_EQ(grid.ReadCell(0, 1, true), StrayBytes);
    grid.Cols(12);
    EXPECT_EQ(grid.FormatString(), "a|" + StrayBytes + "|c");
    EXPECT_EQ(grid.ReadCell(0, 1, true), StrayBytes);
}
class Definitions : public PlacedGrid {
  protected:
    static constexpr const char* Twelve = "a|b|c|d|e|f|g|h|i|j|k|l";
    void expectColumnElevenToWork() {
        ASSERT_EQ(grid.Cols(), 12);
        EXPECT_EQ(sum().Cols(), 12);
        grid.ColFormat(11, "0.00");
        setUp();
        EXPECT_NE(vs().Redraw(), 0);
        typeInto(1, 11, "abc");
        desk.press(Key::Enter);
        EXPECT_EQ(text(1, 11), "abc");
    }
};

TEST_F(Definitions, AreThereWhenTheHostHearsOfTheirCaptions) {
    Lines types;
    grid.CellChanged.connect([&](std::int32_t, std::int32_t col) {
        types.push_back(std::to_string(grid.VsCtrl(static_cast<std::int16_t>(col))->iType()));
    });
    grid.FormatString(Twelve);
    EXPECT_EQ(types, Lines(12, "8"));
    expectColumnElevenToWork();
}

TEST_F(Definitions, AreThereAfterAHandlerFailed) {
    auto failing = grid.CellChanged.connect(Boom());
    EXPECT_THROW(grid.FormatString(Twelve), std::runtime_error);
    failing.disconnect();
    expectColumnElevenToWork();
}

TEST_F(Definitions, AreThereForColumnsThatTheEngineWasGiven) {
    vs().Cols(12);
    expectColumnElevenToWork();
}

TEST_F(Definitions, EndWithTheColumnsThatTheEngineWasLeft) {
    const auto kept = grid.VsCtrl(3);
    vs().Cols(4);
    EXPECT_EQ(grid.VsCtrl(3), kept);
    EXPECT_NO_THROW(grid.VsCtrl(4));
    EXPECT_THROW(grid.VsCtrl(5), GridError);
}
}  // namespace
}  // namespace kxVsGrid::testing
