// Constants beside the enumerations are numbers that columns have always held.
#include "kxVsGrid/Enumerations.h"

#include <gtest/gtest.h>

#include "kxVsGrid/Platform.h"

namespace kxVsGrid {
namespace {

TEST(Enumerations, NameTheDateFormsWithHalfADayAndWithATime) {
    EXPECT_EQ(static_cast<int>(ij半日型), 4);
    EXPECT_EQ(static_cast<int>(ij时间型), 5);
    EXPECT_EQ(static_cast<int>(ih半日型), 4);
    EXPECT_EQ(static_cast<int>(ih时间型), 5);
}

TEST(Enumerations, NameTheStylesOfMessageBoxes) {
    const MessageBox box{"text", MessageBox::Critical, "title"};
    EXPECT_EQ(box.style, 16);
    EXPECT_EQ(MessageBox::Information, 64);
}
}  // namespace
}  // namespace kxVsGrid
