// Which members tell the container that a setting has changed, and under which name.
#include <functional>
#include <memory>
#include <ostream>
#include <string>

#include "kit/PlacedGrid.h"

namespace kxVsGrid::testing {
namespace {

struct Change {
    std::string member;
    std::function<void(kxGrid&)> make;
    Lines names;
    friend std::ostream& operator<<(std::ostream& out, const Change& change) { return out << change.member; }
};

class SettingsReport : public PlacedGrid, public ::testing::WithParamInterface<Change> {};

TEST_P(SettingsReport, IsMadeByNameOncePerPut) {
    GetParam().make(grid);
    EXPECT_EQ(reported(), GetParam().names);
    GetParam().make(grid);
    EXPECT_EQ(reported(), GetParam().names) << "the same value again";
}

const Change Reporting[] = {
    {"FormatString", [](kxGrid& g) { g.FormatString("a|b"); }, {"FormatString"}},
    {"Editable", [](kxGrid& g) { g.Editable(false); }, {"Editable"}},
    {"SumRow", [](kxGrid& g) { g.SumRow(true); }, {"SumRow"}},
    {"FixedCols", [](kxGrid& g) { g.FixedCols(2); }, {"FixedCols"}},
    {"FixedRows", [](kxGrid& g) { g.FixedRows(2); }, {"FixedRows"}},
    {"Cols", [](kxGrid& g) { g.Cols(7); }, {"Cols"}},
    {"Rows", [](kxGrid& g) { g.Rows(20); }, {"Rows"}},
    {"SetVsControl", [](kxGrid& g) { g.SetVsControl(std::make_shared<cVsControl>()); }, {"SetVsControl"}},
    {"BackColor", [](kxGrid& g) { g.BackColor(1); }, {"BackColor"}},
    {"BackColorBkg", [](kxGrid& g) { g.BackColorBkg(1); }, {"BackColorBkg"}},
    {"BackColorFixed", [](kxGrid& g) { g.BackColorFixed(1); }, {"BackColorFixed"}},
    {"ForeColor", [](kxGrid& g) { g.ForeColor(1); }, {"ForeColor"}},
    {"ForeColorFixed", [](kxGrid& g) { g.ForeColorFixed(1); }, {"ForeColorFixed"}},
    {"bIsShowZero", [](kxGrid& g) { g.bIsShowZero(true); }, {"ShowZero"}},
    {"Appearance", [](kxGrid& g) { g.Appearance(0); }, {"Appearance"}},
    {"Clear", [](kxGrid& g) { g.Clear(); }, {"Rows"}},
};

const Change Silent[] = {
    {"Text", [](kxGrid& g) { g.Text("text"); }, {}},
    {"TextTag", [](kxGrid& g) { g.TextTag("tag"); }, {}},
    {"SetCell", [](kxGrid& g) { g.SetCell(1, 1, "text", "tag"); }, {}},
    {"ReadCell", [](kxGrid& g) { g.ReadCell(1, 1); }, {}},
    {"ReadSum", [](kxGrid& g) { g.ReadSum(1); }, {}},
    {"VsCtrl", [](kxGrid& g) { g.VsCtrl(3)->sName("name"); }, {}},
    {"Col", [](kxGrid& g) { g.Col(3); }, {}},
    {"Row", [](kxGrid& g) { g.Row(3); }, {}},
    {"ColHidden", [](kxGrid& g) { g.ColHidden(3, true); }, {}},
    {"ColFormat", [](kxGrid& g) { g.ColFormat(3, "0.00"); }, {}},
    {"ColWidth", [](kxGrid& g) { g.ColWidth(3, 500); }, {}},
    {"ColAlignment", [](kxGrid& g) { g.ColAlignment(3, flexAlignRightCenter); }, {}},
    {"RowHeight", [](kxGrid& g) { g.RowHeight(3, 500); }, {}},
    {"SumRowHeight", [](kxGrid& g) { g.SumRowHeight(500); }, {}},
    {"MergeCells", [](kxGrid& g) { g.MergeCells(flexMergeFixedOnly); }, {}},
    {"MergeCol", [](kxGrid& g) { g.MergeCol(3, true); }, {}},
    {"MergeRow", [](kxGrid& g) { g.MergeRow(3, true); }, {}},
    {"ReDraw", [](kxGrid& g) { g.ReDraw(true); }, {}},
    {"VsSumCellBackColor", [](kxGrid& g) { g.VsSumCellBackColor(1); }, {}},
    {"ValidTextData", [](kxGrid& g) { g.ValidTextData(); }, {}},
    {"IsValid", [](kxGrid& g) { g.IsValid(); }, {}},
};

INSTANTIATE_TEST_SUITE_P(Of, SettingsReport, ::testing::ValuesIn(Reporting),
                         [](const auto& tested) { return tested.param.member; });
INSTANTIATE_TEST_SUITE_P(NotOf, SettingsReport, ::testing::ValuesIn(Silent),
                         [](const auto& tested) { return tested.param.member; });

class Settings : public PlacedGrid {};

TEST_F(Settings, OfANewlyPlacedControlAreTheStatedOnes) {
    EXPECT_TRUE(grid.Editable());
    EXPECT_FALSE(grid.bIsShowZero());
    EXPECT_FALSE(grid.SumRow());
    EXPECT_FALSE(grid.totalRowShown());
    EXPECT_FALSE(grid.ReDraw());
    EXPECT_FALSE(grid.IsActive());
    EXPECT_FALSE(grid.bIsDirty());
    EXPECT_TRUE(grid.VsCtrl(10));
    EXPECT_THROW(grid.VsCtrl(11), GridError);
}

TEST_F(Settings, AreReportedInTheOrderOfThePuts) {
    grid.ForeColorFixed(1);
    grid.Cols(4);
    grid.FormatString("a|b");
    grid.Rows(0);
    EXPECT_EQ(reported(), (Lines{"ForeColorFixed", "Cols", "FormatString", "Rows"}));
}

TEST_F(Settings, AreBroughtBackByPlacingAnew) {
    grid.Editable(false);
    grid.bIsShowZero(true);
    grid.SumRow(true);
    grid.InitProperties();
    EXPECT_TRUE(grid.Editable());
    EXPECT_FALSE(grid.bIsShowZero());
    EXPECT_FALSE(grid.SumRow());
    EXPECT_FALSE(grid.totalRowShown());
}
}  // namespace
}  // namespace kxVsGrid::testing
