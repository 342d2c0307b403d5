// Settings of the whole grid: kept as given.
#include <gtest/gtest.h>

#include "kxVsGrid/CellGrid.h"

namespace kxVsGrid {
namespace {

TEST(GridSettings, StartWithTheColoursOfTheSystem) {
    const CellGrid grid;
    for (const std::uint32_t color : {grid.BackColor(), grid.BackColorBkg(), grid.BackColorFixed(),
                                      grid.ForeColor(), grid.ForeColorFixed()})
        EXPECT_GE(color, 0x8000'0000U);
    EXPECT_EQ(grid.Redraw(), 1);
    EXPECT_TRUE(grid.ScrollBars());
    EXPECT_TRUE(grid.ShowCursor());
    EXPECT_FALSE(grid.SelectsRows());
    EXPECT_EQ(grid.MergeCells(), flexMergeNever);
    EXPECT_EQ(grid.BottomStrip(), 0);
    EXPECT_EQ(grid.Width(), 0);
    EXPECT_EQ(grid.Height(), 0);
    EXPECT_EQ(grid.FormatString(), "");
}

TEST(GridSettings, KeepTheirColoursApart) {
    CellGrid grid;
    grid.BackColor(1);
    grid.BackColorBkg(2);
    grid.BackColorFixed(3);
    grid.ForeColor(4);
    grid.ForeColorFixed(0x8000'0012);
    EXPECT_EQ(grid.BackColor(), 1U);
    EXPECT_EQ(grid.BackColorBkg(), 2U);
    EXPECT_EQ(grid.BackColorFixed(), 3U);
    EXPECT_EQ(grid.ForeColor(), 4U);
    EXPECT_EQ(grid.ForeColorFixed(), 0x8000'0012U);
}

TEST(GridSettings, KeepNumbersThatNameNoMember) {
    CellGrid grid;
    grid.Appearance(77);
    grid.MergeCells(static_cast<mEmflexMerge>(-3));
    grid.ColDataType(1, static_cast<mEmDataType>(1));
    grid.CellAlignment(1, 1, static_cast<mEmflexAlign>(-1));
    grid.Redraw(2);
    EXPECT_EQ(grid.Appearance(), 77);
    EXPECT_EQ(grid.MergeCells(), static_cast<mEmflexMerge>(-3));
    EXPECT_EQ(grid.ColDataType(1), static_cast<mEmDataType>(1));
    EXPECT_EQ(grid.CellAlignment(1, 1), static_cast<mEmflexAlign>(-1));
    EXPECT_EQ(grid.EffectiveAlignment(1, 1), flexAlignLeftCenter);
    EXPECT_EQ(grid.Redraw(), 2);
}

TEST(TextMetrics, CountHalfTheWidthForNarrowCharacters) {
    const TextMetrics& metrics = TextMetrics::fixed();
    EXPECT_EQ(metrics.textWidth(""), 0);
    EXPECT_EQ(metrics.textWidth("ab "), 300);
    EXPECT_EQ(metrics.textWidth("品名a"), 500);
    EXPECT_EQ(metrics.textWidth("\xff\xff"), 200);
    EXPECT_EQ(metrics.padding(), 90);
}

TEST(TextMetrics, DecideHowWideCaptionsAreWhenTheyAreTheHosts) {
    class Wide final : public TextMetrics {
      public:
        std::int32_t textWidth(std::string_view text) const override {
            return 1000 * static_cast<std::int32_t>(text.size());
        }
        std::int32_t padding() const override { return 7; }
    };
    const Wide metrics;
    CellGrid grid(metrics);
    grid.FormatString("a|bc");
    EXPECT_EQ(grid.ColWidth(1), 2007);
}
}  // namespace
}  // namespace kxVsGrid
