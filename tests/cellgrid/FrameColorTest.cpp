#include <gtest/gtest.h>

#include "cellgrid/FrameReader.h"

namespace kxVsGrid {
namespace {

using Kind = FrameItem::Kind;

TEST(FrameColors, FillDataHeadersAndTheRestInTheGridsColors) {
    FilledGrid grid(4, 3, 4000, 2000);
    grid.ShowCursor(false);
    grid.BackColor(0x111111);
    grid.BackColorFixed(0x222222);
    grid.BackColorBkg(0x333333);
    const FrameReader frame(grid);
    EXPECT_EQ(frame.fillOf(1, 1), 0x111111u);
    EXPECT_EQ(frame.fillOf(3, 2), 0x111111u);
    EXPECT_EQ(frame.fillOf(0, 0), 0x222222u);
    EXPECT_EQ(frame.fillOf(0, 2), 0x222222u);
    EXPECT_EQ(frame.fillOf(3, 0), 0x222222u);
    EXPECT_EQ(frame.fillAt(3900, 100), 0x333333u);
    EXPECT_EQ(frame.fillAt(100, 1900), 0x333333u);
    EXPECT_EQ(frame.fillAt(3900, 1900), 0x333333u);
}

TEST(FrameColors, KeepSystemColorsAsTheyAre) {
    FilledGrid grid(4, 3, 4000, 2000);
    const FrameReader frame(grid);
    EXPECT_EQ(frame.fillOf(2, 2), 0x80000005u);
    EXPECT_EQ(frame.fillOf(2, 0), 0x8000000Fu);
    EXPECT_EQ(frame.fillAt(3900, 1900), 0x8000000Cu);
    EXPECT_EQ(frame.textColor(2, 2), 0x80000008u);
    EXPECT_EQ(frame.textColor(2, 0), 0x80000012u);
}

TEST(FrameColors, CoverEveryPointOfTheView) {
    for (const bool bars : {false, true}) {
        FilledGrid grid(60, 12, 4000, 2000);
        grid.ScrollBars(bars);
        const FrameReader frame(grid);
        for (std::int32_t x = 0; x < 4000; x += 77)
            for (std::int32_t y = 0; y < 2000; y += 77)
                EXPECT_NE(frame.fillAt(x, y), 0xFFFFFFFFu) << x << "," << y;
    }
}

TEST(FrameColors, AreTheCellsOwnWhereItHasThem) {
    FilledGrid grid(6, 4, 3500, 1800);
    grid.CellBackColor(2, 2, 0);
    grid.CellForeColor(2, 2, 0xFFFFFF);
    grid.CellBackColor(0, 1, 0xAA00AA);
    grid.CellForeColor(0, 1, 0xBB00BB);
    const FrameReader frame(grid);
    EXPECT_EQ(frame.fillOf(2, 2), 0u);
    EXPECT_EQ(frame.textColor(2, 2), 0xFFFFFFu);
    EXPECT_EQ(frame.fillOf(0, 1), 0xAA00AAu);
    EXPECT_EQ(frame.textColor(0, 1), 0xBB00BBu);
    EXPECT_EQ(frame.fillOf(2, 1), grid.BackColor());
    EXPECT_EQ(frame.textColor(2, 1), grid.ForeColor());
    EXPECT_EQ(frame.textColor(0, 2), grid.ForeColorFixed());
}

TEST(FrameColors, OfAPaintedColumnShowInItsDataCells) {
    FilledGrid grid(6, 4, 3500, 1800);
    grid.PaintColumn(2, 1, 5, 0x0000FF, 0x00FFFF);
    const FrameReader frame(grid);
    for (std::int32_t row = 1; row < 6; ++row) {
        EXPECT_EQ(frame.fillOf(row, 2), 0x00FFFFu) << row;
        EXPECT_EQ(frame.textColor(row, 2), 0x0000FFu) << row;
        EXPECT_EQ(frame.fillOf(row, 1), grid.BackColor()) << row;
    }
    EXPECT_NE(frame.fillOf(0, 2), 0x00FFFFu);
}

TEST(FrameColors, ApplyToCheckMarks) {
    FilledGrid grid(6, 4, 3500, 1800);
    grid.ColDataType(2, flexDTBoolean);
    grid.CellForeColor(2, 2, 0x123456);
    const FrameReader frame(grid);
    EXPECT_EQ(frame.find(Kind::CheckMark, 2, 2)->color, 0x123456u);
    EXPECT_EQ(frame.find(Kind::CheckMark, 3, 2)->color, grid.ForeColor());
}

TEST(FrameColors, PreferTheHeadersOwnColorToTheMarkOfTheCurrentCell) {
    FilledGrid grid(6, 4, 3500, 1800);
    grid.Select(2, 2);
    grid.CellBackColor(0, 2, 0xAA00AA);
    EXPECT_EQ(FrameReader(grid).fillOf(0, 2), 0xAA00AAu);
}

TEST(FrameColors, NeedOneFillForAPlainDataArea) {
    FilledGrid grid(60, 12, 12'000, 9000);
    grid.ShowCursor(false);
    EXPECT_EQ(FrameReader(grid).count(Kind::Fill),
              4u);  // beyond the cells, data, header columns, header rows
}

TEST(FrameColors, NeedOneFillForARectangleOfEqualColor) {
    FilledGrid grid(60, 12, 12'000, 9000);
    grid.ShowCursor(false);
    const std::size_t plain = FrameReader(grid).count(Kind::Fill);
    for (std::int32_t row = 3; row < 9; ++row)
        for (std::int32_t col = 2; col < 6; ++col) grid.CellBackColor(row, col, 0xE0E0E0);
    const FrameReader frame(grid);
    EXPECT_EQ(frame.count(Kind::Fill), plain + 1);
    EXPECT_EQ(frame.fillOf(3, 2), 0xE0E0E0u);
    EXPECT_EQ(frame.fillOf(8, 5), 0xE0E0E0u);
    EXPECT_EQ(frame.fillOf(9, 5), grid.BackColor());
    EXPECT_EQ(frame.fillOf(8, 6), grid.BackColor());
}

TEST(FrameColors, NeedNoFillForACellInTheColorOfItsSurroundings) {
    FilledGrid grid(60, 12, 12'000, 9000);
    const std::size_t plain = FrameReader(grid).count(Kind::Fill);
    grid.CellBackColor(3, 3, grid.BackColor());
    EXPECT_EQ(FrameReader(grid).count(Kind::Fill), plain);
}

TEST(FrameColors, NameTheCellOfAFillThatIsForOneCell) {
    FilledGrid grid(6, 4, 3500, 1800);
    grid.CellBackColor(2, 2, 0x0000FF);
    const auto* fill = FrameReader(grid).find(Kind::Fill, 2, 2);
    ASSERT_TRUE(fill);
}

TEST(FrameLines, RunBelowEveryRowAndBesideEveryColumn) {
    FilledGrid grid(6, 4, 3500, 1800);
    const FrameReader frame(grid);
    for (std::int32_t row = 0; row < 6; ++row) {
        for (std::int32_t col = 0; col < 4; ++col) {
            const std::uint32_t color = row == 0 || col == 0 ? 0x80000010u : 0x80000016u;
            EXPECT_EQ(frame.lineBelow(row, col), color) << row << "," << col;
            EXPECT_EQ(frame.lineBeside(row, col), color) << row << "," << col;
        }
    }
}

TEST(FrameLines, AreOneForEachBoundaryAndNotForEachCell) {
    FilledGrid grid(31, 11, 10'500, 9300);
    // data: 30 rows and 10 columns; header column: 30 and 1; header row: 1 and 11
    EXPECT_EQ(FrameReader(grid).count(Kind::Line), 40u + 31u + 12u);
}

TEST(FrameLines, EndWhereTheCellsEnd) {
    FilledGrid grid(4, 3, 4000, 2000);
    const FrameReader frame(grid);
    for (const auto& item : frame.items()) {
        if (item.kind != Kind::Line) continue;
        EXPECT_LE(item.rect.right(), 2500);
        EXPECT_LE(item.rect.bottom(), 1200);
    }
}

TEST(FrameLines, LieOverTheFillsOfCells) {
    FilledGrid grid(6, 4, 3500, 1800);
    grid.CellBackColor(2, 2, 0x0000FF);
    EXPECT_EQ(FrameReader(grid).lineBelow(2, 2), 0x80000016u);
}
}  // namespace
}  // namespace kxVsGrid
