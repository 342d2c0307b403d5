// Members that are put into the main grid and copied to the total row, and those of the main grid alone.
#include <cstdint>
#include <functional>
#include <ostream>
#include <string>

#include "kit/PlacedGrid.h"

namespace kxVsGrid::testing {
namespace {

struct ColorMember {
    std::string name;
    std::function<std::uint32_t(kxGrid&)> get;
    std::function<void(kxGrid&, std::uint32_t)> put;
    std::function<std::uint32_t(CellGrid&)> own;
    std::function<void(CellGrid&, std::uint32_t)> putOwn;
    friend std::ostream& operator<<(std::ostream& out, const ColorMember& member) {
        return out << member.name;
    }
};

class ColorsOfBothGrids : public PlacedGrid, public ::testing::WithParamInterface<ColorMember> {};

TEST_P(ColorsOfBothGrids, ArePutIntoBothAndReadFromTheMainGrid) {
    const ColorMember& m = GetParam();
    for (const std::uint32_t value : {0x123456u, 0u, 0x80000005u, 0xFFFFFFFFu}) {
        m.put(grid, value);
        EXPECT_EQ(m.get(grid), value);
        EXPECT_EQ(m.own(vs()), value);
        EXPECT_EQ(m.own(sum()), value);
        EXPECT_EQ(reported(), Lines{m.name});
    }
    m.putOwn(vs(), 0x010203);
    EXPECT_EQ(m.get(grid), 0x010203u);
    m.putOwn(sum(), 0x040506);
    EXPECT_EQ(m.get(grid), 0x010203u);
}

TEST_P(ColorsOfBothGrids, CopyTheMainGridsColourEachTime) {
    const ColorMember& m = GetParam();
    m.put(grid, 0x123456);
    m.putOwn(sum(), 0x040506);
    m.put(grid, 0x123456);
    EXPECT_EQ(m.own(sum()), 0x123456u);
}

#define KX_COLOR(Name)                                                                              \
    ColorMember {                                                                                   \
#Name, [](kxGrid& g) { return g.Name(); }, [](kxGrid& g, std::uint32_t value) { g.Name(value); }, \
            [](CellGrid& g) { return g.Name(); }, [](CellGrid& g, std::uint32_t value) { g.Name(value); } \
    }
INSTANTIATE_TEST_SUITE_P(Each, ColorsOfBothGrids,
                         ::testing::Values(KX_COLOR(BackColor), KX_COLOR(BackColorBkg),
                                           KX_COLOR(BackColorFixed), KX_COLOR(ForeColor),
                                           KX_COLOR(ForeColorFixed)),
                         [](const auto& tested) { return tested.param.name; });
#undef KX_COLOR

class BothGrids : public PlacedGrid {};

TEST_F(BothGrids, GetTheFormatOfAColumn) {
    grid.ColFormat(3, "#,##0.00");
    EXPECT_EQ(grid.ColFormat(3), "#,##0.00");
    EXPECT_EQ(vs().ColFormat(3), "#,##0.00");
    EXPECT_EQ(sum().ColFormat(3), "#,##0.00");
    EXPECT_EQ(grid.ColFormat(2), "");
    grid.ColFormat(3, "");
    EXPECT_EQ(sum().ColFormat(3), "");
}

TEST_F(BothGrids, KeepTheirFormatWhenAColumnIsGivenNonsense) {
    grid.ColFormat(3, "0.00");
    for (const char* nonsense : {"General", "两位小数", "0.0E+00", ",", "@", "yyyy years"}) {
        try {
            grid.ColFormat(3, nonsense);
            ADD_FAILURE() << nonsense;
        } catch (const GridError& error) {
            const std::string message = error.what();
            EXPECT_NE(message.find("kxGrid.ColFormat"), std::string::npos) << message;
            EXPECT_NE(message.find(nonsense), std::string::npos) << message;
        }
    }
    EXPECT_EQ(vs().ColFormat(3), "0.00");
    EXPECT_EQ(sum().ColFormat(3), "0.00");
}

TEST_F(BothGrids, TakeEveryFormatThatShowsSomething) {
    for (const char* format : {"0", "#,##0.00", "0%", "\"约 \"0.0", "yyyy年m月d日", "HH:mm:ss", ""}) {
        grid.ColFormat(3, format);
        EXPECT_EQ(sum().ColFormat(3), format);
    }
}

TEST_F(BothGrids, GetTheAlignmentOfAColumn) {
    grid.ColAlignment(3, flexAlignRightBottom);
    EXPECT_EQ(grid.ColAlignment(3), flexAlignRightBottom);
    EXPECT_EQ(vs().ColAlignment(3), flexAlignRightBottom);
    EXPECT_EQ(sum().ColAlignment(3), flexAlignRightBottom);
    EXPECT_EQ(column(3).iColAlignment(), flexAlignLeftCenter);
}

TEST_F(BothGrids, HideAColumnTogetherAndTheDefinitionKnows) {
    grid.ColHidden(3, true);
    EXPECT_TRUE(grid.ColHidden(3));
    EXPECT_TRUE(vs().ColHidden(3));
    EXPECT_TRUE(sum().ColHidden(3));
    EXPECT_FALSE(column(3).bIsVisible());
    EXPECT_TRUE(column(2).bIsVisible());
    grid.ColHidden(3, false);
    EXPECT_FALSE(grid.ColHidden(3));
    EXPECT_FALSE(sum().ColHidden(3));
    EXPECT_TRUE(column(3).bIsVisible());
}

TEST_F(BothGrids, KeepAColumnHiddenOverASetUp) {
    grid.ColHidden(3, true);
    setUp();
    EXPECT_TRUE(grid.ColHidden(3));
    EXPECT_TRUE(sum().ColHidden(3));
}

TEST_F(BothGrids, AnswerFromTheMainGrid) {
    sum().ColFormat(3, "0.0");
    sum().ColAlignment(3, flexAlignRightTop);
    sum().ColHidden(3, true);
    EXPECT_EQ(grid.ColFormat(3), "");
    EXPECT_NE(grid.ColAlignment(3), flexAlignRightTop);
    EXPECT_FALSE(grid.ColHidden(3));
    vs().ColFormat(3, "0.00");
    EXPECT_EQ(grid.ColFormat(3), "0.00");
}

TEST_F(BothGrids, RefuseColumnsOutsideTheGrid) {
    for (const std::int32_t col : {-1, 10}) {
        EXPECT_THROW(grid.ColHidden(col, true), GridError) << col;
        EXPECT_THROW(grid.ColFormat(col, "0"), GridError) << col;
        EXPECT_THROW(grid.ColAlignment(col, flexAlignLeftTop), GridError) << col;
        EXPECT_THROW(grid.ColWidth(col, 100), GridError) << col;
        EXPECT_THROW(grid.ColHidden(col), GridError) << col;
        EXPECT_THROW(grid.ColFormat(col), GridError) << col;
        EXPECT_THROW(grid.ColAlignment(col), GridError) << col;
        EXPECT_THROW(grid.ColWidth(col), GridError) << col;
        EXPECT_THROW(grid.MergeCol(col, true), GridError) << col;
    }
    EXPECT_THROW(grid.RowHeight(6, 100), GridError);
    EXPECT_THROW(grid.RowHeight(-1), GridError);
    EXPECT_THROW(grid.MergeRow(6, true), GridError);
}

TEST_F(BothGrids, AreTheOnesThatTheHostReaches) {
    EXPECT_NE(&grid.Grid(), &grid.Grid_Sum());
    const kxGrid& constant = grid;
    EXPECT_EQ(&constant.Grid(), &grid.Grid());
    EXPECT_EQ(&constant.Grid_Sum(), &grid.Grid_Sum());
}

class MainGridAlone : public PlacedGrid {};

TEST_F(MainGridAlone, HasTheAppearance) {
    const auto ofTheTotalRow = sum().Appearance();
    for (const std::int32_t value : {0, 1}) {
        grid.Appearance(value);
        EXPECT_EQ(grid.Appearance(), value);
        EXPECT_EQ(vs().Appearance(), value);
        EXPECT_EQ(sum().Appearance(), ofTheTotalRow);
    }
}

TEST_F(MainGridAlone, HasTheMergeSettings) {
    grid.MergeCells(flexMergeFixedOnly);
    grid.MergeCol(3, true);
    grid.MergeRow(2, true);
    EXPECT_EQ(grid.MergeCells(), flexMergeFixedOnly);
    EXPECT_EQ(vs().MergeCells(), flexMergeFixedOnly);
    EXPECT_EQ(sum().MergeCells(), flexMergeNever);
    EXPECT_TRUE(grid.MergeCol(3));
    EXPECT_TRUE(vs().MergeCol(3));
    EXPECT_FALSE(sum().MergeCol(3));
    EXPECT_FALSE(grid.MergeCol(2));
    EXPECT_TRUE(grid.MergeRow(2));
    EXPECT_TRUE(vs().MergeRow(2));
    EXPECT_FALSE(grid.MergeRow(1));
    grid.MergeCells(flexMergeNever);
    EXPECT_EQ(grid.MergeCells(), flexMergeNever);
}

TEST_F(MainGridAlone, HasTheRowHeights) {
    setUp();
    grid.RowHeight(0, 480);
    grid.RowHeight(3, 600);
    EXPECT_EQ(grid.RowHeight(0), 480);
    EXPECT_EQ(grid.RowHeight(3), 600);
    EXPECT_EQ(vs().RowHeight(3), 600);
    EXPECT_EQ(sum().RowHeight(0), 300);
    EXPECT_EQ(grid.SumRowHeight(), 300);
}

TEST_F(MainGridAlone, GetsAColumnWidthAndTheTotalRowFollowsWithTheLayout) {
    setUp();
    grid.ColWidth(2, 1234);
    EXPECT_EQ(grid.ColWidth(2), 1234);
    EXPECT_EQ(vs().ColWidth(2), 1234);
    desk.resize(9000, 6000);
    EXPECT_EQ(sum().ColWidth(2), 1234);
}
}  // namespace
}  // namespace kxVsGrid::testing
