// Values that come from elsewhere and are entered as the clerk would.
#include <stdexcept>

#include "kit/MenuTest.h"

namespace kxVsGrid::testing {
namespace {

class EnteredValue : public MenuTest {
  protected:
    static constexpr std::int32_t Col = 2;
    EnteredValue() {
        typed(Col, flexDTDouble);
        rows(4);
    }
};

TEST_F(EnteredValue, StandsAsIfItWereTypedAsOneStep) {
    EXPECT_EQ(grid.Enter(2, Col, "12*3"), "");
    EXPECT_EQ(text(2, Col), "36");
    EXPECT_TRUE(grid.bIsDirty());
    EXPECT_TRUE(grid.History().Undo());
    EXPECT_EQ(text(2, Col), "");
    EXPECT_FALSE(grid.History().CanUndo());
}

TEST_F(EnteredValue, IsRefusedWithTheReasonAndWithoutABoxOrAMark) {
    grid.Options(Col).largest(10);
    grid.Grid().Text(2, Col, "5");
    EXPECT_NE(grid.Enter(2, Col, "11"), "");
    EXPECT_NE(grid.Enter(2, Col, "x"), "");
    EXPECT_EQ(text(2, Col), "5");
    EXPECT_TRUE(desk.messages().empty());
    EXPECT_FALSE(grid.Mark(2, Col));
    EXPECT_FALSE(desk.editor().visible);
}

TEST_F(EnteredValue, IsRefusedWhereTheClerkMayNotType) {
    grid.VsCtrl(Col)->bIsEditable(false);
    EXPECT_NE(grid.Enter(2, Col, "1"), "");
    EXPECT_NE(grid.Enter(0, Col, "1"), "");
    EXPECT_NE(grid.Enter(2, 99, "1"), "");
    EXPECT_NE(grid.Enter(-1, Col, "1"), "");
    EXPECT_EQ(text(2, Col), "");
}

TEST_F(EnteredValue, IsToldToNobodyAsAReportAndAsAnEditOfItsCell) {
    int reports = 0;
    int edits = 0;
    const ScopedConnection reported =
        grid.Commands().Reported.connect([&](const PasteReport&) { ++reports; });
    const ScopedConnection edited = grid.AfterEdit.connect([&](std::int32_t row, std::int32_t col) {
        EXPECT_EQ(row, 2);
        EXPECT_EQ(col, Col);
        ++edits;
    });
    grid.Enter(2, Col, "1");
    EXPECT_EQ(reports, 0);
    EXPECT_EQ(edits, 1);
}

TEST_F(EnteredValue, ComesAfterWhatIsBeingTyped) {
    at(1, Col);
    desk.focusGrid().type("7");
    EXPECT_EQ(grid.Enter(3, Col, "8"), "");
    EXPECT_EQ(text(1, Col), "7");
    EXPECT_EQ(text(3, Col), "8");
}

TEST_F(EnteredValue, IsSaidToBeNowhereWhereItsRowHasGone) {
    grid.Options(Col).accepts([this](std::int32_t row, std::string_view) {
        grid.Grid().RemoveRow(row);
        return std::string();
    });
    EXPECT_NE(grid.Enter(2, Col, "8"), "");
}

TEST_F(EnteredValue, LetsThroughWhatAListenerThrows) {
    const ScopedConnection edited =
        grid.AfterEdit.connect([](std::int32_t, std::int32_t) { throw std::runtime_error("host"); });
    EXPECT_THROW(grid.Enter(2, Col, "1"), std::runtime_error);
    EXPECT_EQ(text(2, Col), "1");
}
}  // namespace
}  // namespace kxVsGrid::testing
