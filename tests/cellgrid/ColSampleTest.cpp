// Columns that are as wide as a text.
#include <gtest/gtest.h>

#include "kxVsGrid/CellGrid.h"

namespace kxVsGrid {
namespace {

/// A machine whose font can be changed.
class Font final : public TextMetrics {
  public:
    std::int32_t character = 100;
    std::int32_t textWidth(std::string_view text) const override {
        return character * static_cast<std::int32_t>(text.size());
    }
    std::int32_t padding() const override { return 90; }
};

TEST(ColSample, MakesTheColumnAsWideAsTheTextInTheFontOfTheMoment) {
    Font font;
    CellGrid grid(font);
    grid.ColSample(2, "2026-11-27");
    EXPECT_EQ(grid.ColSample(2), "2026-11-27");
    EXPECT_EQ(grid.ColWidth(2), 1090);
    font.character = 120;
    EXPECT_EQ(grid.ColWidth(2), 1090);
    grid.MeasureCols();
    EXPECT_EQ(grid.ColWidth(2), 1290);
    EXPECT_EQ(grid.ColWidth(3), CellGrid::DefaultColWidth);
}

TEST(ColSample, IsWhatACaptionOfTheFormatStringIs) {
    Font font;
    CellGrid grid(font);
    grid.FormatString("no|<code      |>n");
    EXPECT_EQ(grid.ColSample(1), "code      ");
    EXPECT_EQ(grid.ColWidth(1), 1090);
    font.character = 120;
    grid.MeasureCols();
    EXPECT_EQ(grid.ColWidth(0), 330);
    EXPECT_EQ(grid.ColWidth(1), 1290);
    EXPECT_EQ(grid.Text(0, 1), "code");
}

TEST(ColSample, EndsWithAWidthOfTheHostsOrTheClerks) {
    Font font;
    CellGrid grid(font);
    grid.FormatString("no|code|name|note");
    grid.ColWidth(1, 700);
    grid.userColWidth(2, 800);
    grid.ColSample(3, "");
    const std::int32_t last = grid.ColWidth(3);
    font.character = 120;
    grid.MeasureCols();
    EXPECT_EQ(grid.ColWidth(1), 700);
    EXPECT_EQ(grid.ColWidth(2), 800);
    EXPECT_EQ(grid.ColWidth(3), last);
    for (const std::int32_t col : {1, 2, 3}) EXPECT_EQ(grid.ColSample(col), "");
}

TEST(ColSample, GoesWithItsColumn) {
    Font font;
    CellGrid grid(font);
    grid.ColSample(9, "2026-11-27");
    grid.Cols(9);
    grid.Cols(10);
    EXPECT_EQ(grid.ColSample(9), "");
    font.character = 120;
    grid.MeasureCols();
    EXPECT_EQ(grid.ColWidth(9), CellGrid::DefaultColWidth);
}

TEST(ColSample, TellsOfAllNewPlacesOnce) {
    Font font;
    CellGrid grid(font);
    grid.FormatString("no|code|name");
    int told = 0;
    grid.PlacesChanged.connect([&] { ++told; });
    grid.MeasureCols();
    EXPECT_EQ(told, 0);
    font.character = 120;
    grid.MeasureCols();
    EXPECT_EQ(told, 1);
}

TEST(ColSample, IsNeverWiderThanWidthsCanBe) {
    Font font;
    CellGrid grid(font);
    grid.ColSample(2, "2026-11-27");
    font.character = 150'000'000;
    grid.MeasureCols();
    EXPECT_EQ(grid.ColWidth(2), 1'000'000'000);
    EXPECT_THROW(grid.ColSample(3, "2026-11-27"), GridError);
    EXPECT_EQ(grid.ColSample(3), "");
    EXPECT_EQ(grid.ColWidth(3), CellGrid::DefaultColWidth);
}

TEST(ColSample, RefusesAColumnThatThereIsNot) {
    CellGrid grid;
    EXPECT_THROW(grid.ColSample(10, "x"), GridError);
    EXPECT_THROW(grid.ColSample(-1), GridError);
}
}  // namespace
}  // namespace kxVsGrid
