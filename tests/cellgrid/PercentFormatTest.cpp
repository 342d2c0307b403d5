// Whether a column's format shows percent.
#include <gtest/gtest.h>

#include <string>

#include "kit/PlacedGrid.h"

namespace kxVsGrid::testing {
namespace {

TEST(PercentFormat, ShowsPercentWhereItMultipliesForTheSign) {
    headless::Desk desk;
    CellGrid& cells = desk.place().Grid();
    EXPECT_FALSE(cells.ColPercent(1));
    for (const char* format : {"0%", "#,##0.00%", "0.0;(0.0%)", "0;0;0%"}) {
        cells.ColFormat(1, format);
        EXPECT_TRUE(cells.ColPercent(1)) << format;
    }
    for (const char* format : {"", "0.00", "#,##0", "0\"%\"", "0\\%", "yyyy-mm-dd"}) {
        cells.ColFormat(1, format);
        EXPECT_FALSE(cells.ColPercent(1)) << format;
    }
    EXPECT_ANY_THROW(cells.ColPercent(cells.Cols()));
}
}  // namespace
}  // namespace kxVsGrid::testing
