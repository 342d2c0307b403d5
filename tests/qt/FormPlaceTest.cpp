// Where the windows of forms go on the screen.
#include "qt/forms/FormPlace.h"

#include <gtest/gtest.h>

namespace kxVsGrid::qt::testing {
namespace {

const QRect Screen(-1280, 30, 1280, 770);  // left of the first one, with a task bar on top
}  // namespace

TEST(FormPlace, IsUnderTheCellWithTheCellsLeftEdge) {
    const QRect cell(-1000, 100, 80, 20);
    EXPECT_EQ(placeNear(cell, {480, 340}, Screen), QRect(-1000, 120, 480, 340));
}

TEST(FormPlace, UsesTheLastLineOfTheScreen) {
    const QRect cell(-1000, 440, 80, 20);
    EXPECT_EQ(placeNear(cell, {480, 340}, Screen), QRect(-1000, 460, 480, 340));
}

TEST(FormPlace, IsAboveTheCellWithoutRoomBelow) {
    const QRect cell(-1000, 441, 80, 20);
    EXPECT_EQ(placeNear(cell, {480, 340}, Screen), QRect(-1000, 101, 480, 340));
}

TEST(FormPlace, CoversTheCellWhereNeitherSideHasRoom) {
    const QRect cell(-1000, 400, 80, 20);
    EXPECT_EQ(placeNear(cell, {480, 700}, Screen), QRect(-1000, 100, 480, 700));
}

TEST(FormPlace, StaysOnTheScreenForEveryCell) {
    for (const QSize size : {QSize(480, 340), QSize(280, 268), QSize(1279, 769), QSize(3000, 3000)}) {
        for (int x = -2000; x <= 600; x += 37) {
            for (int y = -400; y <= 1200; y += 29) {
                const QRect place = placeNear({x, y, 80, 20}, size, Screen);
                ASSERT_TRUE(Screen.contains(place)) << x << ' ' << y << ' ' << size.width();
                ASSERT_EQ(place.size(), size.boundedTo(Screen.size()));
            }
        }
    }
}

TEST(FormPlace, IsInTheMiddleOfTheWindowWithoutACell) {
    EXPECT_EQ(placeInMiddle({-900, 200, 600, 400}, {200, 100}, Screen), QRect(-700, 350, 200, 100));
    EXPECT_TRUE(Screen.contains(placeInMiddle({-300, 700, 600, 400}, {500, 300}, Screen)));
    EXPECT_EQ(placeInMiddle({0, 0, 10, 10}, {5000, 300}, Screen).width(), Screen.width());
}
}  // namespace kxVsGrid::qt::testing
